#include "support/storage/refusals.h"

#include "storage/engine/engine.h"

#include <QFile>

#include <gtest/gtest.h>

#include <sys/mount.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace Qt::StringLiterals;
using namespace storage;

QString askEngine(Connection& of, const QString& question)
{
    Error error;
    const auto answer = of.session()->prepare({question, {}}, &error);
    if (!answer || answer->step() != engine::Cursor::Step::Row)
        return answer ? answer->error().message : error.message;
    return answer->value(0, schema::ColumnType::Text).toText();
}

QString integrity(Connection& of)
{
    return askEngine(of, u"PRAGMA integrity_check"_s);
}

void limitSize(Connection& of, int pages)
{
    const QString limit = QString::number(askEngine(of, u"PRAGMA page_count"_s).toInt() + pages);
    ASSERT_EQ(askEngine(of, u"PRAGMA max_page_count = "_s + limit), limit);
}

void shortenWaiting(Connection& of)
{
    ASSERT_EQ(askEngine(of, u"PRAGMA busy_timeout = 50"_s), u"50"_s);
}

namespace {

// Permissions don't bind the superuser, a read-only mount does.
bool forbidWriting(const QByteArray& folder)
{
    if (geteuid() != 0)
        return chmod(folder, 0500) == 0;
    if (mount(folder, folder, nullptr, MS_BIND, nullptr) != 0)
        return false;
    if (mount(nullptr, folder, nullptr, MS_BIND | MS_REMOUNT | MS_RDONLY, nullptr) == 0)
        return true;
    umount2(folder, MNT_DETACH);
    return false;
}

} // namespace

ReadOnlyFolder::ReadOnlyFolder(const QString& folder)
    : m_folder(QFile::encodeName(folder)), m_holds(forbidWriting(m_folder))
{
}

ReadOnlyFolder::~ReadOnlyFolder()
{
    if (!m_holds)
        return;
    if (geteuid() != 0)
        chmod(m_folder, 0700);
    else
        umount2(m_folder, MNT_DETACH);
}
