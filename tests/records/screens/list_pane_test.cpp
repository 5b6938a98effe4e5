#include "records/screens/list_pane.h"

#include "records/screens/selection.h"
#include "support/customer/data/customer_test.h"
#include "ui/list_view.h"

#include <QHeaderView>
#include <QSignalSpy>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

// A pane over a list of customers whose second column orders nothing.
class ListPaneTest : public OpenCustomerTest {
protected:
    void SetUp() override
    {
        OpenCustomerTest::SetUp();
        description = customer::customerList();
        description.columns[1].clause.clear();
        for (const QString& name : {u"い"_s, u"う"_s, u"あ"_s})
            addNamed(name, name);
        settings = records::readSettings(file);
        pane.initialize(file, description, settings, selection,
                        {u"list"_s, u"pages"_s, u"counters"_s, u"caption"_s, u"option"_s, u"顧客"_s,
                         7, u"表示名"_s, &customer::customerTable()});
        pane.resize(600, 300);
        pane.show();
    }
    QStringList names()
    {
        QStringList shown;
        for (int row = 0; row < pane.view().model()->rowCount(); ++row)
            shown.append(pane.view().model()->index(row, 0).data().toString());
        return shown;
    }
    void clickHeader(int column)
    {
        QHeaderView& header = *pane.view().header();
        const QPoint place(header.sectionViewportPosition(column) + 10, header.height() / 2);
        QTest::mouseClick(header.viewport(), Qt::LeftButton, {}, place);
    }

    records::ListDescription description;
    records::Settings settings;
    records::Selection selection;
    records::ListPane pane;
};

TEST_F(ListPaneTest, AHeaderWithoutAnOrderDoesNothing)
{
    ASSERT_TRUE(pane.showFilter({{}, {}, u"全て"_s}));
    clickHeader(0);
    clickHeader(0);
    const QStringList ordered{u"う"_s, u"い"_s, u"あ"_s};
    ASSERT_EQ(names(), ordered);
    pane.view().selectRow(1);
    QSignalSpy changed(&selection, &records::Selection::changed);
    clickHeader(1);
    EXPECT_EQ(names(), ordered);
    EXPECT_EQ(pane.view().header()->sortIndicatorSection(), 0);
    EXPECT_EQ(pane.view().header()->sortIndicatorOrder(), Qt::DescendingOrder);
    EXPECT_EQ(changed.count(), 0);
    EXPECT_EQ(selection.title(7), u"い"_s);
}

TEST_F(ListPaneTest, ATickOfARowThatAnotherCopyChangedShowsWhatItHolds)
{
    ASSERT_TRUE(pane.showFilter({{}, {}, u"全て"_s}));
    pane.view().selectRow(1);
    change(customer::customerTable(), core::RecordKey::fromText(pane.view().currentKey()),
           {{u"表示名"_s, u"か"_s}});
    messages.willAnswer(core::Answer::Yes);
    QTest::keyClick(&pane.view(), Qt::Key_Space);
    EXPECT_EQ(messages.takeBoxes().size(), 1);
    EXPECT_EQ(column(u"SELECT 表示名 FROM ユーザー WHERE Y印字 = 1"_s), QStringList{u"か"_s});
    EXPECT_EQ(names(), (QStringList{u"あ"_s, u"か"_s, u"う"_s}));
    EXPECT_EQ(selection.title(7), u"か"_s);
}

TEST_F(ListPaneTest, TurnsToARecordOnAnyPageAndToNoneThatIsNotListed)
{
    execute(u"UPDATE 設定 SET 顧客表示数 = 2 WHERE 設定ID = 1"_s);
    settings = records::readSettings(file);
    const core::RecordKey last = addNamed(u"え"_s, u"え"_s).key;
    const core::RecordKey other = addNamed(u"か"_s, u"か"_s).key;
    ASSERT_TRUE(pane.showFilter({u" WHERE 表示名 < 'お'"_s, {}, u"あ行"_s}));
    ASSERT_EQ(names().size(), 2);
    EXPECT_TRUE(pane.selectRecord(last));
    EXPECT_EQ(selection.title(7), u"え"_s);
    EXPECT_EQ(names().indexOf(u"え"_s), pane.view().currentIndex().row());
    EXPECT_FALSE(pane.selectRecord(other));
    EXPECT_EQ(selection.title(7), u"え"_s);
}

} // namespace
