#pragma once

#include <QString>
#include <QStringView>

#include <optional>

namespace core {

// Where main.mdb, the templates, menu.ini and the data files lie.
struct ProgramFolder {
    QString path;      // absolute
    QString originals; // the read-only originals to fill it from; empty when it is not to be filled
};

// Finds the program folder: what CORVANE_HOME names; else the executable's folder when it holds
// main.mdb and can be written (portable use); else "corvane" under the user's data folder. All but
// the portable one are to be filled from share/corvane beside the executable's folder.
ProgramFolder findProgramFolder(const QString& executableFolder);

// Copies the originals into a folder that is not there or holds nothing at all; completes a filling
// that was cut short. Any other folder is left alone: a shop whose main.mdb is missing must not
// look like a new one. Gives why it could not be filled, as a sentence for the user; nullopt when
// it was, or had no need of it.
std::optional<QString> fillProgramFolder(const ProgramFolder& folder);

// Whether the folder holds something of a shop besides main.mdb: a folder of data files or a
// template.
bool holdsShopFiles(const QString& programFolder);
// Whether the folder is there and has nothing in it.
bool isEmptyFolder(const QString& folder);

// The real path of a folder that stands in the program folder, found whatever its letter case.
QString programSubfolder(const QString& programFolder, const QString& name);

// The real path of a name that begins with "\" and stands below the program folder, such as
// "\care\最適化.mdb". Folder names are found whatever their letter case, the file's name is taken
// as it is.
QString programFile(const QString& programFolder, QStringView name);

} // namespace core
