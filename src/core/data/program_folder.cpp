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
    if (QFileInfo(parent + u'/' + expected).isDir())
        return expected;
    for (const QString& found : QDir(parent).entryList(QDir::Dirs | QDir::NoDotAndDotDot)) {
        if (found.compare(name, Qt::CaseInsensitive) == 0)
            return found;
    }
    return expected;
}

// Lies in the folder while it is filled for the first time.
const QString FillingMark = u"初回起動.new"_s;

bool holdsDataFolder(const QString& folder)
{
    return QFileInfo(programSubfolder(folder, u"Corvane"_s)).isDir()
        || QFileInfo(programSubfolder(folder, u"Care"_s)).isDir();
}

// Whether the filling was cut short, before anybody has worked in the folder without its main.mdb.
bool isHalfFilled(const QString& folder)
{
    return QFileInfo::exists(folder + u'/' + FillingMark)
        && (!holdsDataFolder(folder) || QFileInfo::exists(folder + u"/main.mdb"_s));
}

bool makeMark(const QString& folder)
{
    return QFile(folder + u'/' + FillingMark).open(QIODevice::WriteOnly);
}

// The originals are read-only; the copy is to be worked with.
bool copyWritable(const QString& from, const QString& to)
{
    return QFile::copy(from, to)
        && QFile::setPermissions(to, QFile::permissions(to) | QFile::WriteOwner | QFile::ReadOwner);
}

// Gives why it could not be copied. A database is kept clear of a journal that was left behind.
std::optional<QString> copyOriginal(const QString& from, const QString& to)
{
    if (QFile::exists(to))
        return std::nullopt;
    if (to.endsWith(u".mdb"_s)) {
        const auto error = storage::data_files::create(from, to);
        return error ? std::optional(error->message) : std::nullopt;
    }
    return copyWritable(from, to) ? std::nullopt
                                  : std::optional(u"ファイルを作成できませんでした。"_s + to);
}

// Gives why they could not all be copied.
std::optional<QString> copyOriginals(const QDir& originals, const QString& folder)
{
    std::optional<QString> reason;
    for (const QString& name : originals.entryList(QDir::Files)) {
        if (name.endsWith(u".ldb"_s))
            continue; // a lock file that was left where the originals were made
        if (auto failure = copyOriginal(originals.filePath(name), folder + u'/' + name))
            reason = failure;
    }
    return reason;
}

} // namespace

ProgramFolder findProgramFolder(const QString& executableFolder)
{
    const QString originals = QDir::cleanPath(executableFolder + u"/../share/corvane"_s);
    const QString named = qEnvironmentVariable("CORVANE_HOME");
    if (!named.isEmpty())
        return {QDir::cleanPath(QDir::current().absoluteFilePath(named)), originals};
    if (isPortable(executableFolder))
        return {QDir::cleanPath(executableFolder), {}};
    const QString data = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation);
    return {data + u"/corvane"_s, originals};
}

std::optional<QString> fillProgramFolder(const ProgramFolder& folder)
{
    const bool isWanted =
        !QFileInfo::exists(folder.path) || isEmptyFolder(folder.path) || isHalfFilled(folder.path);
    if (folder.originals.isEmpty() || !isWanted)
        return std::nullopt;
    const QDir originals(folder.originals);
    const QString quoted = u"プログラムフォルダー 『 "_s + folder.path + u" 』 "_s;
    if (!originals.exists(u"main.mdb"_s)) {
        return u"新しい main.mdb の元になる 『 "_s + originals.filePath(u"main.mdb"_s)
            + u" 』 がありません。"_s;
    }
    if (!QDir().mkpath(folder.path))
        return quoted + u"を作成できません。"_s;
    if (!makeMark(folder.path))
        return quoted + u"に書き込めません。"_s;
    std::optional<QString> reason = copyOriginals(originals, folder.path);
    if (!reason)
        QFile::remove(folder.path + u'/' + FillingMark);
    return reason;
}

bool holdsShopFiles(const QString& programFolder)
{
    return holdsDataFolder(programFolder) || QFileInfo::exists(programFolder + u"/Corvane.mdb"_s)
        || QFileInfo::exists(programFolder + u"/Care.mdb"_s);
}

bool isEmptyFolder(const QString& folder)
{
    return QFileInfo(folder).isDir()
        && QDir(folder).isEmpty(QDir::AllEntries | QDir::Hidden | QDir::System
                                | QDir::NoDotAndDotDot);
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
