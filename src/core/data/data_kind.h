#pragma once

#include <QString>
#include <QStringView>

#include <optional>

namespace core {

// The two kinds of data file.
enum class DataKind { Customer, Repair };

// "顧客管理" or "修理管理", as 種類 of a registry row holds it.
QString rowKind(DataKind kind);
// The kind of a registry row; nullopt for a row of another sort.
std::optional<DataKind> kindOfRow(QStringView text);

// The folder of a kind's data files and the template that new ones are copied from.
QString dataFolder(const QString& programFolder, DataKind kind);
QString templateFile(const QString& programFolder, DataKind kind);
// The path of the data file of that name; empty when the name cannot be that of a file here. A name
// that only other file systems refuse has one.
QString dataFile(const QString& programFolder, DataKind kind, const QString& name);

// Why a data file may not get this name, as a sentence for the user; empty when it may. A name has
// to be good on every file system that the files may be taken to.
QString whyNoNewName(const QString& name);
// Whether two names are one on a file system that ignores letter case.
bool isSameName(const QString& one, const QString& other);

} // namespace core
