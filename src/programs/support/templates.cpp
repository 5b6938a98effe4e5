#include "programs/support/templates.h"

#include "core/data/database_password.h"
#include "storage/connection.h"

#include <QCoreApplication>
#include <QDir>
#include <QTextStream>

namespace programs {

using namespace Qt::StringLiterals;
using storage::schema::Version;

std::optional<storage::Error> makeFolder(const QString& folder)
{
    if (QDir().mkpath(folder))
        return std::nullopt;
    return storage::Error{storage::ErrorKind::ReadOnly, u"フォルダーを作れません。"_s};
}

std::optional<storage::Error> writeTemplates(const QString& folder, Version version)
{
    if (auto error = makeFolder(folder))
        return error;
    const std::pair<QString, storage::schema::Definition> files[] = {
        {u"main.mdb"_s, storage::schema::mainDatabase(version)},
        {u"Corvane.mdb"_s, storage::schema::customerFile(version)},
        {u"Care.mdb"_s, storage::schema::repairFile(version)},
    };
    const QString password = QString::fromUtf16(core::DatabasePassword);
    for (const auto& [name, definition] : files) {
        storage::Connection file;
        if (!file.create(QDir(folder).filePath(name), password, definition)) {
            storage::Error error = file.lastError();
            error.message = name + u": "_s + error.message;
            return error;
        }
    }
    return std::nullopt;
}

void printError(const QString& subject, const storage::Error& error)
{
    QTextStream(stderr) << QCoreApplication::applicationName() << ": " << subject << ": "
                        << error.message << Qt::endl;
}

} // namespace programs
