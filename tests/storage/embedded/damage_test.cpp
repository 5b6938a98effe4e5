#include "storage_contract/scratch_file.h"

#include <QFile>

using namespace Qt::StringLiterals;
using namespace storage;

namespace {

// What is read of a file of which a part is damaged.
class Damage : public ScratchFile {};

TEST_F(Damage, InTheMiddleFailsTheStatementThatMeetsIt)
{
    fill(500);
    connection.close();
    QFile file(path());
    ASSERT_TRUE(file.open(QIODevice::ReadWrite));
    QByteArray bytes = file.readAll();
    for (qsizetype at = 6 * 4096; at < bytes.size(); at += 4096)
        bytes[at + 2000] = static_cast<char>(bytes[at + 2000] + 1);
    ASSERT_TRUE(file.seek(0));
    ASSERT_EQ(file.write(bytes), bytes.size());
    file.close();
    ASSERT_TRUE(connection.open(path(), Password));
    Recordset all;
    if (all.open(u"SELECT * FROM 品目"_s, connection)) {
        while (!all.eof())
            all.moveNext();
    }
    EXPECT_EQ(connection.lastError().message, u"ファイルの一部が壊れている為、読み込めません。"_s);
    EXPECT_FALSE(connection.lastError().details.isEmpty());
    EXPECT_EQ(takeErrors(), QList{ErrorKind::Unreadable});
}

// A page of the file that holds rows and no index is written over.
TEST_F(Damage, RowsThatCanBeReadStayBesideThoseThatCannot)
{
    constexpr int Rows = 9000;
    fill(Rows);
    connection.close();
    QFile file(path());
    ASSERT_TRUE(file.open(QIODevice::ReadWrite));
    constexpr qint64 Page = 4096;
    const qint64 pages = file.size() / Page;
    qint64 damaged = 0;
    for (qint64 page = pages / 2; page > 2 && damaged == 0; --page) {
        ASSERT_TRUE(file.seek(page * Page));
        const QByteArray sound = file.read(Page);
        ASSERT_TRUE(file.seek(page * Page));
        ASSERT_EQ(file.write(QByteArray(Page, 'x')), Page);
        ASSERT_TRUE(file.flush());
        Connection reading;
        ASSERT_TRUE(reading.open(path(), Password));
        Recordset list;
        list.setPageSize(Rows);
        // Found by the index over the names; damaged there, nothing can be found at all.
        if (list.open(u"SELECT 番号, 名称, 数量 FROM 品目 ORDER BY 名称 DESC, 番号"_s, reading)) {
            qint64 read = 0;
            for (qint64 position = 1; position <= Rows; ++position) {
                if (list.setAbsolutePosition(position))
                    ++read;
                else if (list.isUnreadable())
                    ++damaged;
            }
            EXPECT_EQ(read + damaged, Rows);
            EXPECT_EQ(reading.errors().size(), damaged > 0 ? 1 : 0);
        }
        reading.clearErrors();
        ASSERT_TRUE(file.seek(page * Page));
        ASSERT_EQ(file.write(sound), Page);
        ASSERT_TRUE(file.flush());
    }
    EXPECT_GT(damaged, 0);
    EXPECT_LT(damaged, Rows / 10);
}

} // namespace
