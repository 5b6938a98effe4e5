#include "records/data/record_list.h"
#include "support/customer/data/customer_test.h"

#include <QFile>

using namespace Qt::StringLiterals;

namespace {

class DamagedListTest : public OpenCustomerTest {
protected:
    // How many rows of the first page show that they cannot be read.
    int unreadableRows()
    {
        const auto list = openList(file, customer::customerList(), {}, {}, {});
        const QList<core::ListRow> rows = list->rows(0, static_cast<int>(list->count()));
        int unreadable = 0;
        for (const core::ListRow& row : rows)
            unreadable += row.cells.first() == u"（読めない行）" ? 1 : 0;
        if (unreadable == 0 || unreadable == rows.size()) // or the page that leads to all others
            return 0;
        EXPECT_EQ(rows.size(), 100);
        EXPECT_LT(unreadable, 50);
        EXPECT_EQ(
            messages.takeText(),
            u"データを読めませんでした。\r\nファイルの一部が壊れている為、読み込めません。"_s);
        EXPECT_EQ(takeErrors(), QList{storage::ErrorKind::Unreadable});
        list->setPage(2);
        list->rows(0, 100); // is not told again
        EXPECT_TRUE(messages.takeBoxes().isEmpty());
        return unreadable;
    }
};

// A page of the file that holds customers and no index is written over.
TEST_F(DamagedListTest, TellsOnceWhatItCannotReadAndShowsTheRest)
{
    constexpr int Customers = 300;
    for (int i = 1; i <= Customers; ++i) {
        const QString name = QString::number(i).rightJustified(3, u'0') + QString(40, u'客');
        execute(u"INSERT INTO ユーザー (ﾕｰｻﾞｰ識別ID, ﾕｰｻﾞｰID, 表示名, 表示名ﾌﾘｶﾞﾅ) VALUES (0, "_s
                + QString::number(i) + u", '"_s + name + u"', '"_s + name + u"')"_s);
    }
    file.connection.close();
    QFile bytes(path());
    ASSERT_TRUE(bytes.open(QIODevice::ReadWrite));
    constexpr qint64 Page = 4096;
    int damaged = 0;
    for (qint64 page = 3; page < bytes.size() / Page && damaged == 0; ++page) {
        SCOPED_TRACE(page);
        ASSERT_TRUE(bytes.seek(page * Page));
        const QByteArray sound = bytes.read(Page);
        ASSERT_TRUE(bytes.seek(page * Page) && bytes.write(QByteArray(Page, 'x')) == Page);
        ASSERT_TRUE(bytes.flush());
        if (open())
            damaged = unreadableRows();
        messages.takeBoxes(); // damage elsewhere: in an index, or in what is read when it is opened
        file.connection.close();
        file.connection.clearErrors();
        ASSERT_TRUE(bytes.seek(page * Page) && bytes.write(sound) == Page);
        ASSERT_TRUE(bytes.flush());
    }
    EXPECT_GT(damaged, 0);
}

} // namespace
