#include "support/storage/power_cut.h"

#include "support/child_process.h"
#include "support/scratch_folder.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QRandomGenerator>
#include <QSet>

#include <algorithm>
#include <fcntl.h>

#include <gtest/gtest.h>

namespace {

constexpr int Folder = -1;

PowerCut* watched = nullptr;

std::map<QByteArray, QByteArray> readFolder(const QByteArray& folder)
{
    std::map<QByteArray, QByteArray> files;
    const QDir dir(QFile::decodeName(folder));
    for (const QString& name : dir.entryList(QDir::Files)) {
        QFile file(dir.filePath(name));
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        files[QFile::encodeName(name)] = file.readAll();
    }
    return files;
}

void writeFolder(const QString& folder, const std::map<QByteArray, QByteArray>& files)
{
    for (const auto& [name, content] : files) {
        QFile file(QDir(folder).filePath(QFile::decodeName(name)));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        EXPECT_EQ(file.write(content), content.size());
    }
}

QByteArray digest(const std::map<QByteArray, QByteArray>& files)
{
    QCryptographicHash hash(QCryptographicHash::Sha1);
    for (const auto& [name, content] : files) {
        hash.addData(name + '\0' + QByteArray::number(content.size()) + '\0');
        hash.addData(content);
    }
    return hash.result();
}

} // namespace

PowerCut::PowerCut(const QString& folder)
    : m_folder(QFile::encodeName(QDir(folder).canonicalPath()))
{
    for (const auto& [name, content] : readFolder(m_folder)) {
        m_contentsBefore[m_fileCount] = content;
        m_namesBefore[name] = m_fileCount++;
    }
    m_names = m_namesBefore;
    EXPECT_EQ(watched, nullptr);
    watched = this;
}

PowerCut::~PowerCut()
{
    watched = nullptr;
}

PowerCut* PowerCut::watching()
{
    return watched;
}

void PowerCut::acknowledge()
{
    m_steps.append({Kind::Acknowledge});
}

QByteArray PowerCut::nameOf(const QByteArray& path) const
{
    const qsizetype length = m_folder.size();
    const bool inside = path.startsWith(m_folder + '/') && path.indexOf('/', length + 1) < 0;
    return inside ? path.mid(length + 1) : QByteArray();
}

void PowerCut::opened(int descriptor, const QByteArray& path, int flags)
{
    if ((flags & O_TMPFILE) == O_TMPFILE) // has no name, and is gone when it is closed
        return;
    if (path == m_folder)
        m_open[descriptor] = Folder;
    const QByteArray name = nameOf(path);
    if (name.isEmpty())
        return;
    auto found = m_names.find(name);
    if (found == m_names.end()) {
        found = m_names.emplace(name, m_fileCount++).first;
        m_steps.append({Kind::Create, found->second, name});
    }
    m_open[descriptor] = found->second;
    if (flags & O_TRUNC)
        cut(descriptor, 0);
}

void PowerCut::written(int descriptor, off_t offset, QByteArrayView bytes)
{
    const auto file = m_open.find(descriptor);
    if (file != m_open.end())
        m_steps.append({Kind::Write, file->second, {}, bytes.toByteArray(), offset});
}

void PowerCut::cut(int descriptor, off_t size)
{
    const auto file = m_open.find(descriptor);
    if (file != m_open.end())
        m_steps.append({Kind::Cut, file->second, {}, {}, size});
}

void PowerCut::synced(int descriptor)
{
    const auto file = m_open.find(descriptor);
    if (file == m_open.end())
        return;
    m_steps.append({file->second == Folder ? Kind::SyncFolder : Kind::SyncFile, file->second});
}

void PowerCut::closed(int descriptor)
{
    m_open.erase(descriptor);
}

void PowerCut::unlinked(const QByteArray& path)
{
    const QByteArray name = nameOf(path);
    if (m_names.erase(name) > 0)
        m_steps.append({Kind::Unlink, -1, name});
}

void PowerCut::renamed(const QByteArray& from, const QByteArray& to)
{
    const auto file = m_names.find(nameOf(from));
    if (file == m_names.end())
        return;
    m_steps.append({Kind::Rename, file->second, file->first, nameOf(to)});
    m_names[nameOf(to)] = file->second;
    m_names.erase(nameOf(from));
}

// A sync keeps what came before it, of its file or of the names in its folder.
bool PowerCut::isKept(qsizetype step, qsizetype until) const
{
    const Step& kept = m_steps[step];
    const bool ofContent = kept.kind == Kind::Write || kept.kind == Kind::Cut;
    return std::any_of(m_steps.begin() + step, m_steps.begin() + until, [&](const Step& later) {
        return ofContent ? later.kind == Kind::SyncFile && later.file == kept.file
                         : later.kind == Kind::SyncFolder;
    });
}

void PowerCut::apply(const Step& step, std::map<QByteArray, int>* names,
                     std::map<int, QByteArray>* contents)
{
    QByteArray& content = (*contents)[step.file];
    switch (step.kind) {
    case Kind::Create:
        (*names)[step.name] = step.file;
        break;
    case Kind::Unlink:
        names->erase(step.name);
        break;
    case Kind::Rename: // of the file, whether or not its first name was kept
        names->erase(step.name);
        (*names)[step.other] = step.file;
        break;
    case Kind::Write:
        if (content.size() < step.offset + step.other.size())
            content.resize(step.offset + step.other.size(), '\0');
        content.replace(step.offset, step.other.size(), step.other);
        break;
    case Kind::Cut:
        content.resize(step.offset, '\0');
        break;
    case Kind::SyncFolder:
    case Kind::SyncFile:
    case Kind::Acknowledge:
        break;
    }
}

PowerCut::Files PowerCut::filesAfter(qsizetype steps, Unsynced unsynced, quint32 seed) const
{
    std::map<QByteArray, int> names = m_namesBefore;
    std::map<int, QByteArray> contents = m_contentsBefore;
    QRandomGenerator coin(seed);
    for (qsizetype step = 0; step < steps; ++step) {
        const bool heads = coin.bounded(2) == 0;
        if (unsynced == Unsynced::Kept || (unsynced == Unsynced::Half && heads)
            || isKept(step, steps))
            apply(m_steps[step], &names, &contents);
    }
    Files files;
    for (const auto& [name, file] : names)
        files[name] = contents[file];
    return files;
}

QStringList PowerCut::complaints(const QStringList& states,
                                 const std::function<QString(const QString& folder)>& look,
                                 int atMost) const
{
    // Whatever was done behind the back of the record would show here.
    EXPECT_TRUE(filesAfter(m_steps.size(), Unsynced::Kept, 0) == readFolder(m_folder));

    const auto halves = static_cast<quint32>(rounds("CORVANE_CUTS", 1));
    QStringList lines;
    QSet<QByteArray> seen;
    int acknowledged = 0;
    const auto check = [&](qsizetype steps, Unsynced unsynced, quint32 seed) {
        const Files files = filesAfter(steps, unsynced, seed);
        const qsizetype before = seen.size();
        seen.insert(digest(files) + QByteArray::number(acknowledged));
        if (seen.size() == before)
            return;
        const ScratchFolder folder;
        writeFolder(folder.path(), files);
        const QString found = look(folder.path());
        if (found != states.value(acknowledged) && found != states.value(acknowledged + 1))
            lines += QStringLiteral("%1 of %2 steps, %3: %4")
                         .arg(steps)
                         .arg(m_steps.size())
                         .arg(static_cast<int>(unsynced))
                         .arg(found);
    };
    for (qsizetype steps = 0; steps <= m_steps.size() && lines.size() < atMost; ++steps) {
        acknowledged += steps > 0 && m_steps[steps - 1].kind == Kind::Acknowledge;
        check(steps, Unsynced::Lost, 0);
        check(steps, Unsynced::Kept, 0);
        for (quint32 seed = 1; seed <= halves; ++seed)
            check(steps, Unsynced::Half, seed + static_cast<quint32>(steps) * halves);
    }
    return lines;
}
