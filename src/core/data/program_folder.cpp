#include "core/data/program_folder.h"

#include "storage/data_files/data_files.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>

using namespace Qt::StringLiterals;

namespace core {

namespace {

bool isPortable(const QString& folder)
{
    const QFileInfo database(folder + u"/main.mdb"_s);
    return database.isFile() && database.isWritable() && QFileInfo(folder).isWritable();
}

// The folder's name as it is spelled on disk; the expected spelling where there is none.
QString spelledOnDisk(const QString& parent, const QString& name)
{
    QString expected = name;
    for (const QString& known : {u"Corvane"_s, u"Care"_s}) {
        if (known.compare(name, Qt::CaseInsensitive) == 0)
            expected = known;
    }
    if (QFileInfo::exists(parent + u'/' + expected))
        return expected;
    for (const QString& found : QDir(parent).entryList(QDir::Dirs | QDir::NoDotAndDotDot)) {
        if (found.compare(name, Qt::CaseInsensitive) == 0)
            return found;
    }
    return expected;
}

// The originals are read-only; the copy is to be worked with.
void copyWritable(const QString& from, const QString& to)
{
    if (!QFile::exists(to) && QFile::copy(from, to))
        QFile::setPermissions(to, QFile::permissions(to) | QFile::WriteOwner | QFile::ReadOwner);
}

} // namespace

ProgramFolder findProgramFolder(const QString& executableFolder)
{
    const QString named = qEnvironmentVariable("CORVANE_HOME");
    if (!named.isEmpty())
        return {QDir::cleanPath(QDir::current().absoluteFilePath(named)), {}};
    if (isPortable(executableFolder))
        return {QDir::cleanPath(executableFolder), {}};
    const QString data = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation);
    return {data + u"/corvane"_s, QDir::cleanPath(executableFolder + u"/../share/corvane"_s)};
}

void fillProgramFolder(const ProgramFolder& folder)
{
    if (folder.originals.isEmpty())
        return;
    QDir().mkpath(folder.path);
    const QDir originals(folder.originals);
    for (const QString& name : originals.entryList(QDir::Files)) {
        const QString from = originals.filePath(name);
        const QString to = folder.path + u'/' + name;
        if (name.endsWith(u".ldb"_s))
            continue; // a lock file that was left where the originals were made
        if (name.endsWith(u".mdb"_s))
            storage::data_files::create(from, to); // keeps clear of a journal that was left behind
        else
            copyWritable(from, to);
    }
}

QString programSubfolder(const QString& programFolder, const QString& name)
{
    return programFolder + u'/' + spelledOnDisk(programFolder, name);
}

QString programFile(const QString& programFolder, QStringView name)
{
    const QStringList parts = name.toString().split(u'\\', Qt::SkipEmptyParts);
    QString path = programFolder;
    for (qsizetype i = 0; i + 1 < parts.size(); ++i)
        path = programSubfolder(path, parts[i]);
    return parts.isEmpty() ? path : path + u'/' + parts.last();
}

} // namespace core
