#include "storage_contract/scratch_file.h"

#include "storage/base/waiting.h"
#include "storage/transaction.h"
#include "support/child_process.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>

#include <sys/resource.h>
#include <sys/stat.h>

using namespace Qt::StringLiterals;
using namespace storage;

// What is said of a file that can no longer be used as it could when it was opened.

namespace {

constexpr rlim_t NoLimit = RLIM_INFINITY;

class Told : public ScratchFile {
protected:
    // What a save that has to fail is told as; nothing of it may be left.
    Error refusedSave(Connection& on)
    {
        EXPECT_FALSE(on.execute(u"INSERT INTO 品目 (名称) VALUES ('後')"_s));
        const Error error = on.lastError();
        EXPECT_EQ(takeErrors(on).size(), 1);
        return error;
    }
};

TEST_F(Told, AFileThatIsNoLongerWhereItWasOpened)
{
    const QString moved = u"開いているファイルが、移動、名前の変更または削除されています。"
                          "元に戻すか、データを開き直して下さい。"_s;
    const QString away = path(u"別.mdb"_s);
    const QByteArray folder = QFile::encodeName(QFileInfo(path()).path());
    const struct {
        const char* name;
        std::function<bool()> happens;
        std::function<bool()> setRight;
    } cases[] = {
        {"renamed", [&] { return QFile::rename(path(), away); },
         [&] { return QFile::rename(away, path()); }},
        {"another file in its place",
         [&] { return QFile::rename(path(), away) && QFile::copy(away, path()); },
         [&] { return QFile::remove(path()) && QFile::rename(away, path()); }},
        {"its folder renamed", [&] { return rename(folder, folder + ".away") == 0; },
         [&] { return rename(folder + ".away", folder) == 0; }},
        {"deleted", [&] { return QFile::remove(path()); }, [] { return true; }},
    };
    for (const auto& each : cases) {
        SCOPED_TRACE(each.name);
        ASSERT_TRUE(each.happens());
        const Error error = refusedSave(connection);
        EXPECT_EQ(error.kind, ErrorKind::Moved);
        EXPECT_EQ(error.message, moved);
        EXPECT_FALSE(error.details.isEmpty());
        ASSERT_TRUE(each.setRight());
        if (QFileInfo::exists(path()))
            execute(u"INSERT INTO 品目 (名称) VALUES ('前')"_s);
    }
}

// As a user whom rights bind, and without a lock file that is there already.
TEST_F(Told, AFolderWithoutTheRightToWrite)
{
    connection.close();
    ASSERT_TRUE(QFile::remove(path(u"在庫.ldb"_s)));
    const QByteArray folder = QFile::encodeName(QFileInfo(path()).path());
    ASSERT_EQ(chmod(folder, 0555), 0);
    ChildProcess user([this] {
        if (geteuid() == 0 && setuid(65534) != 0)
            return false;
        Connection own;
        const bool opened = own.open(path(), Password);
        return !opened && own.lastError().kind == ErrorKind::ReadOnly
            && own.lastError().message
            == u"ファイルのあるフォルダーに書き込めません。"
               "フォルダーの書き込み許可を確認して下さい。"_s;
    });
    EXPECT_TRUE(user.succeeded());
    ASSERT_EQ(chmod(folder, 0755), 0);
}

// The program ignores the signal, as this child does.
TEST_F(Told, ALimitOfTheFilesSizeIsAFullDisk)
{
    connection.close();
    const auto size = static_cast<rlim_t>(QFileInfo(path()).size());
    ChildProcess copy([&, this] {
        std::signal(SIGXFSZ, SIG_IGN);
        Connection own;
        bool holds = own.open(path(), Password);
        const QString large = QString(40000, u'長');
        // At the commit, and while the transaction spills its pages.
        for (const int rows : {1, 400}) {
            const rlimit limit{size + 8192, NoLimit};
            holds = holds && setrlimit(RLIMIT_FSIZE, &limit) == 0;
            {
                Transaction transaction(own);
                bool written = true;
                for (int i = 0; i < rows && written; ++i)
                    written = own.execute(u"INSERT INTO 品目 (名称) VALUES ('"_s + large + u"')"_s);
                holds = holds && !(written && transaction.commit());
            }
            holds = holds && takeErrors(own) == QList{ErrorKind::Full};
            const rlimit none{NoLimit, NoLimit};
            holds = holds && setrlimit(RLIMIT_FSIZE, &none) == 0
                && own.execute(u"INSERT INTO 品目 (名称) VALUES ('後')"_s);
        }
        return holds;
    });
    EXPECT_TRUE(copy.succeeded());
    ASSERT_TRUE(connection.open(path(), Password));
    EXPECT_EQ(rows(u"SELECT 名称 FROM 品目"_s), (QStringList{u"後"_s, u"後"_s}));
    EXPECT_EQ(integrity(connection), u"ok"_s);
}

struct Watcher : WaitWatcher {
    Watcher() { watchWaits(this); }
    ~Watcher() override { watchWaits(nullptr); }
    Watcher(const Watcher&) = delete;
    Watcher& operator=(const Watcher&) = delete;

    void waitGoesOn() override { ++shown; }
    void waitEnded(std::chrono::nanoseconds waited) override
    {
        ++ended;
        longest = std::max(longest, waited);
    }

    int shown = 0;
    int ended = 0;
    std::chrono::nanoseconds longest{};
};

TEST_F(Told, AWaitForAnotherCopyAsLongAsItLasts)
{
    using namespace std::chrono_literals;
    connection.close();
    int lastShown = 0;
    for (const int holdFor : {250, 1000}) {
        const QString waiterIsReady = path(u"ready"_s + QString::number(holdFor));
        ChildProcess holder([&, this](const ChildProcess::StepDone& holds) {
            Connection own;
            if (!own.open(path(), Password) || !own.begin())
                return false;
            holds();
            while (!QFile::exists(waiterIsReady))
                usleep(1000);
            usleep(static_cast<useconds_t>(holdFor) * 1000);
            return own.execute(u"DELETE FROM 品目"_s) && own.commit();
        });
        ASSERT_TRUE(holder.waitForSteps(1));
        Watcher watcher;
        OtherCopy other(path());
        ASSERT_TRUE(QFile(waiterIsReady).open(QIODevice::WriteOnly));
        execute(other.connection, u"INSERT INTO 品目 (名称) VALUES ('待')"_s);
        EXPECT_EQ(watcher.ended, 1);
        EXPECT_EQ(watcher.shown, watcher.longest >= UnnoticedWait ? 1 : 0);
        EXPECT_LT(watcher.longest, holdFor * 1ms + 5s);
        EXPECT_TRUE(holder.succeeded());
        lastShown = watcher.shown;
    }
    EXPECT_EQ(lastShown, 1);
    ASSERT_TRUE(connection.open(path(), Password));
}

TEST_F(Told, AWaitThatEndsAfterTenSeconds)
{
    using namespace std::chrono_literals;
    Transaction transaction(connection);
    OtherCopy other(path());
    Watcher watcher;
    EXPECT_FALSE(other.connection.begin());
    EXPECT_EQ(other.connection.lastError().message,
              u"他で使用中の為、待ち時間（10秒）内に処理できませんでした。"
              "他のパソコンや画面で大きな処理が続いている可能性があります。"
              "しばらく待ってからもう一度実行し、続く場合は、"
              "他で開いているデータを閉じて下さい。"_s);
    EXPECT_EQ(takeErrors(other.connection), QList{ErrorKind::Busy});
    EXPECT_EQ(watcher.shown, 1);
    EXPECT_EQ(watcher.ended, 1);
    EXPECT_GE(watcher.longest, 10s);
    EXPECT_LT(watcher.longest, 15s);
    // The next wait begins anew.
    transaction.rollBack();
    execute(other.connection, u"INSERT INTO 品目 (名称) VALUES ('後')"_s);
    EXPECT_EQ(watcher.ended, 1);
}

} // namespace
