#include "records/data/draft_store.h"

#include "core/data/database_password.h"
#include "storage/data_files/data_files.h"
#include "storage/recordset.h"
#include "storage/schema/definitions.h"
#include "storage/transaction.h"

#include <QDir>
#include <QFileInfo>

#include <algorithm>

using namespace Qt::StringLiterals;
using storage::ErrorKind;

namespace records {

namespace {

const QString AllDrafts = u"SELECT * FROM 下書き ORDER BY 下書きID"_s;
const QString DeleteAll = u"DELETE FROM 下書き"_s;
const QString DeleteDraft = u"DELETE FROM 下書き WHERE 下書きID = ?"_s;
const QString InsertDraft =
    u"INSERT INTO 下書き (下書きID, データファイル, フォーム, 対象, 編集内容, "
    "全内容, 入力日時, 更新日時) VALUES (?, ?, ?, ?, ?, ?, ?, ?)"_s;

constexpr int MostCopies = 20;
const QString FileName = u"下書き"_s;

QString password()
{
    return QString::fromUtf16(core::DatabasePassword);
}

// By whatever names its folder is reached; the file itself may be gone.
QString placeOf(const QString& dataFile)
{
    const QFileInfo file(dataFile);
    const QString folder = file.dir().canonicalPath();
    return folder.isEmpty() ? file.absoluteFilePath() : folder + u'/' + file.fileName();
}

// Other users of the machine see nothing of it.
bool makeFolder(const QString& path)
{
    if (QFileInfo(path).isDir())
        return true;
    return QDir().mkpath(path)
        && QFile::setPermissions(path, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
}

QStringList filesIn(const QString& folder)
{
    QStringList paths;
    for (const QString& name : QDir(folder).entryList({FileName + u"*.mdb"_s}, QDir::Files))
        paths.append(folder + u'/' + name);
    return paths;
}

} // namespace

bool Draft::holdsSameAs(const Draft& other) const
{
    return form == other.form && subject == other.subject && edited == other.edited
        && whole == other.whole;
}

QString userStateFolder()
{
    const QString named = qEnvironmentVariable("XDG_STATE_HOME");
    const QString base =
        QDir::isAbsolutePath(named) ? named : QDir::homePath() + u"/.local/state"_s;
    return base + u"/corvane"_s;
}

DraftStore::DraftStore(QString folder) : m_folder(std::move(folder)) {}

// One that another copy has open, or that is damaged, is passed over.
bool DraftStore::open()
{
    if (m_file || m_folder.isEmpty())
        return m_file != nullptr;
    auto file = std::make_unique<storage::Connection>();
    if (!makeFolder(m_folder)) {
        noteFailure(u"フォルダー 『 "_s + m_folder + u" 』 を作成できません。"_s);
        return false;
    }
    for (int copy = 1; copy <= MostCopies; ++copy) {
        const QString path = m_folder + u'/' + FileName
            + (copy == 1 ? QString() : QString::number(copy)) + u".mdb"_s;
        file->clearErrors();
        const bool opened = file->open(path, password(), storage::Mode::ShareExclusive)
            || (file->lastError().kind == ErrorKind::Missing
                && file->create(path, password(), storage::schema::draftsFile()));
        const std::optional<QList<Kept>> found = opened ? read(*file) : std::nullopt;
        if (found) {
            m_file = std::move(file);
            take(*found, true);
            return true;
        }
        const ErrorKind kind = file->lastError().kind;
        noteFailure(file->lastError().message);
        file->close();
        if (kind == ErrorKind::ReadOnly || kind == ErrorKind::Full || kind == ErrorKind::Missing)
            break;
    }
    return false;
}

std::optional<QList<DraftStore::Kept>> DraftStore::read(storage::Connection& from)
{
    QList<Kept> found;
    const qsizetype failures = from.errors().size();
    storage::Recordset row;
    if (!row.open(AllDrafts, from))
        return std::nullopt;
    for (; !row.eof(); row.moveNext()) {
        found.append(
            {row.text(u"データファイル"),
             {row.value(u"下書きID").toInteger(), row.text(u"フォーム"), row.text(u"対象"),
              row.value(u"入力日時").toDateTime(), row.text(u"編集内容"), row.text(u"全内容")}});
    }
    if (from.errors().size() != failures)
        return std::nullopt;
    return found;
}

// Their numbers may be in use here: by a draft that came before the file could be opened, or, for
// those of another file, by any.
void DraftStore::take(const QList<Kept>& found, bool isOwn)
{
    const bool keepsNumbers = isOwn && m_kept.isEmpty();
    for (const Kept& kept : found)
        m_lastId = std::max(m_lastId, kept.draft.id);
    for (Kept kept : found) {
        if (!keepsNumbers) {
            if (isOwn)
                m_pending.insert(kept.draft.id);
            kept.draft.id = ++m_lastId;
            m_pending.insert(kept.draft.id);
        }
        m_kept.append(kept);
    }
}

void DraftStore::takeOver()
{
    if (m_folder.isEmpty() || filesIn(m_folder).isEmpty() || !open())
        return;
    for (const QString& path : filesIn(m_folder)) {
        storage::Connection left;
        if (path == m_file->path() || !left.open(path, password(), storage::Mode::ShareExclusive))
            continue;
        const std::optional<QList<Kept>> found = read(left);
        if (!found)
            continue;
        const QList<Kept> keptBefore = m_kept;
        const QSet<qint64> pendingBefore = m_pending;
        take(*found, false);
        // Gone there only when it stands here.
        if (!flush()) {
            m_kept = keptBefore;
            m_pending = pendingBefore;
            return;
        }
        if (!left.execute(DeleteAll))
            continue;
        left.close();
        storage::data_files::remove(path);
    }
}

QList<Draft> DraftStore::drafts(const QString& dataFile, const QString& form) const
{
    const QString place = placeOf(dataFile);
    QList<Draft> found;
    for (const Kept& kept : m_kept) {
        if (kept.file == place && kept.draft.form == form)
            found.prepend(kept.draft);
    }
    std::ranges::stable_sort(found, std::greater(), &Draft::typed);
    return found;
}

QStringList DraftStore::forms(const QString& dataFile) const
{
    return allOf(dataFile, &Draft::form);
}

QStringList DraftStore::subjects(const QString& dataFile) const
{
    return allOf(dataFile, &Draft::subject);
}

QStringList DraftStore::allOf(const QString& dataFile, QString Draft::*text) const
{
    const QString place = placeOf(dataFile);
    QStringList found;
    for (const Kept& kept : m_kept) {
        if (kept.file == place)
            found.append(kept.draft.*text);
    }
    found.removeDuplicates();
    return found;
}

void DraftStore::keep(const QString& dataFile, Draft* draft)
{
    if (draft->id == 0) {
        open(); // the ids in the file come first
        draft->id = ++m_lastId;
    }
    const auto isSame = [draft](const Kept& kept) { return kept.draft.id == draft->id; };
    m_kept.removeIf(isSame);
    m_kept.append({placeOf(dataFile), *draft});
    m_pending.insert(draft->id);
    flush();
}

void DraftStore::drop(qint64 id)
{
    if (m_kept.removeIf([id](const Kept& kept) { return kept.draft.id == id; }) == 0)
        return;
    m_pending.insert(id);
    flush();
}

void DraftStore::dropAll(const QString& dataFile, const QString& form)
{
    for (const Draft& draft : drafts(dataFile, form))
        drop(draft.id);
}

void DraftStore::fileMoved(const QString& from, const QString& to)
{
    takeOver();
    const QString place = placeOf(from);
    for (Kept& kept : m_kept) {
        if (kept.file != place)
            continue;
        m_pending.insert(kept.draft.id);
        kept.file = to.isEmpty() ? QString() : placeOf(to);
    }
    m_kept.removeIf([](const Kept& kept) { return kept.file.isEmpty(); });
    flush();
}

void DraftStore::noteFailure(const QString& reason)
{
    m_failure = reason.isEmpty() ? u"ファイルに書き込めません。"_s : reason;
}

QString DraftStore::takeFailure()
{
    if (m_failure.isEmpty() || m_failureTaken)
        return {};
    m_failureTaken = true;
    return m_failure;
}

// Brings the file to what it should hold. A file that lost its place gets another one, once.
bool DraftStore::flush()
{
    if (m_folder.isEmpty())
        m_pending.clear();
    if (m_pending.isEmpty())
        return true;
    bool written = open() && writePending();
    if (!written && m_file) {
        const ErrorKind kind = m_file->lastError().kind;
        noteFailure(m_file->lastError().message);
        m_file->clearErrors();
        if (kind == ErrorKind::Moved || kind == ErrorKind::Missing) {
            leaveFile();
            written = open() && writePending();
        }
    }
    if (!written)
        return false;
    m_pending.clear();
    m_failure.clear();
    m_failureTaken = false;
    return true;
}

bool DraftStore::writePending()
{
    storage::Transaction change(*m_file);
    if (!change.isActive())
        return false;
    for (const qint64 id : std::as_const(m_pending)) {
        if (!m_file->execute(DeleteDraft, {storage::Value(id)}))
            return false;
    }
    for (const auto& [file, draft] : std::as_const(m_kept)) {
        if (m_pending.contains(draft.id)
            && !m_file->execute(InsertDraft,
                                {storage::Value(draft.id), storage::Value(file),
                                 storage::Value(draft.form), storage::Value(draft.subject),
                                 storage::Value(draft.edited), storage::Value(draft.whole),
                                 storage::Value(draft.typed), storage::Value(draft.typed)}))
            return false;
    }
    return change.commit();
}

// What the file held is held in memory; the numbers of what a new one holds may be the same.
void DraftStore::leaveFile()
{
    m_file.reset();
    m_pending.clear();
    for (const Kept& kept : std::as_const(m_kept))
        m_pending.insert(kept.draft.id);
}

Drafts::Drafts() : m_store(std::make_shared<DraftStore>(QString())) {}

Drafts::Drafts(std::shared_ptr<DraftStore> store, const QString& dataFile)
    : m_store(std::move(store)), m_file(dataFile)
{
}

QList<Draft> Drafts::of(const QString& form) const
{
    return m_store->drafts(m_file, form);
}

QStringList Drafts::forms() const
{
    return m_store->forms(m_file);
}

QStringList Drafts::subjects() const
{
    return m_store->subjects(m_file);
}

void Drafts::keep(Draft* draft) const
{
    m_store->keep(m_file, draft);
}

void Drafts::drop(qint64 id) const
{
    m_store->drop(id);
}

void Drafts::dropAll(const QString& form) const
{
    m_store->dropAll(m_file, form);
}

QString Drafts::takeFailure() const
{
    return m_store->takeFailure();
}

} // namespace records
