#include "ui/paged_list.h"

#include "support/fake_list_source.h"
#include "ui/counters.h"
#include "ui/list_view.h"
#include "ui/page_scroll_bar.h"

#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>

#include <gtest/gtest.h>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr qint64 Many = 100'000;

class PagedListTest : public testing::Test {
protected:
    PagedListTest()
    {
        view.resize(400, 300);
        view.show();
        pages.show();
    }

    std::shared_ptr<FakeListSource> fill(qint64 rows, qint64 pageSize = 0)
    {
        auto source = std::make_shared<FakeListSource>(rows, pageSize);
        list.fill(source, [rows] { return rows + 5; });
        waitForCount();
        return source;
    }

    void waitForCount() { EXPECT_TRUE(QSignalSpy(&list, &ui::PagedList::counted).wait()); }
    QString cell(int row, int column = 0)
    {
        return list.model().index(row, column).data().toString();
    }

    ui::ListView view;
    ui::PageScrollBar pages;
    ui::Counters counters;
    ui::PagedList list{view, pages, &counters, {u"表示名"_s, u"TEL"_s}};
};

TEST_F(PagedListTest, ReachesTheLastOfManyRowsByScrollingWithoutHoldingThemAll)
{
    const auto source = fill(Many);
    EXPECT_EQ(list.model().rowCount(), Many);
    view.verticalScrollBar()->setValue(view.verticalScrollBar()->maximum());
    const QModelIndex last = view.indexAt(view.viewport()->rect().bottomLeft() + QPoint(5, -5));
    EXPECT_GE(last.row(), Many - 2);
    EXPECT_EQ(cell(Many - 1), u"名前100000"_s);
    EXPECT_LT(source->fetches, 10);
    EXPECT_LE(source->largestFetch, ui::PagedListModel::BlockRows);
    EXPECT_FALSE(pages.isEnabled());
}

TEST_F(PagedListTest, KeepsOnlyTheBlocksUsedLast)
{
    const auto source = fill(Many);
    const int kept = static_cast<int>(ui::PagedListModel::BlocksKept);
    for (int block = 0; block <= kept; ++block)
        cell(block * ui::PagedListModel::BlockRows);
    const int fetched = source->fetches;
    cell(kept * ui::PagedListModel::BlockRows);
    EXPECT_EQ(source->fetches, fetched) << "the newest block was dropped";
    cell(0);
    EXPECT_EQ(source->fetches, fetched + 1) << "the oldest block is still held";
}

TEST_F(PagedListTest, TurnsPagesByItsScrollBar)
{
    fill(Many + 1, 100);
    EXPECT_EQ(pages.maximum(), 1001);
    EXPECT_EQ(list.model().rowCount(), 100);
    EXPECT_EQ(counters.text(), u"合計:100006 現在:0 最大:100001"_s);

    pages.setValue(1001);
    EXPECT_EQ(list.model().rowCount(), 1);
    EXPECT_EQ(cell(0), u"名前100001"_s);
    view.selectRow(0);
    EXPECT_EQ(counters.text(), u"合計:100006 現在:100001 最大:100001"_s);

    QTest::keyClick(&pages, Qt::Key_Left);
    EXPECT_EQ(pages.value(), 1000);
    EXPECT_EQ(cell(99), u"名前100000"_s);
    view.selectRow(99);
    EXPECT_EQ(counters.text(), u"合計:100006 現在:100000 最大:100001"_s);

    list.clear();
    EXPECT_EQ(counters.text(), u"合計:0 現在:0 最大:0"_s);
    EXPECT_FALSE(pages.isEnabled());
}

TEST_F(PagedListTest, ARefillKeepsPageRecordAndScrollPosition)
{
    fill(1000, 200);
    pages.setValue(3);
    view.selectRow(150);
    const int position = view.verticalScrollBar()->value();
    EXPECT_GT(position, 0);
    const QSignalSpy changed(&view, &ui::ListView::currentRowChanged);

    list.refill(std::make_shared<FakeListSource>(1000, 200), [] { return 1000; });
    waitForCount();
    EXPECT_EQ(view.currentKey(), u"551-0-551-stamp"_s);
    EXPECT_TRUE(view.selectionModel()->isRowSelected(150, {}));
    EXPECT_EQ(view.verticalScrollBar()->value(), position);
    EXPECT_EQ(pages.value(), 3);
    EXPECT_EQ(changed.count(), 0) << "the same record is still the current one";

    list.refill(std::make_shared<FakeListSource>(100, 200), [] { return 100; });
    EXPECT_EQ(view.currentKey(), QString());
    EXPECT_EQ(changed.count(), 1);
    EXPECT_EQ(list.model().rowCount(), 100);
    EXPECT_TRUE(counters.text().contains(u"現在:0"_s));
}

TEST_F(PagedListTest, TellsOnceWhenCountedRowsAreGone)
{
    const auto source = fill(1000);
    QSignalSpy vanished(&list.model(), &ui::PagedListModel::rowsVanished);
    source->readableRows = 600;
    EXPECT_EQ(cell(800), QString());
    EXPECT_EQ(cell(999), QString());
    EXPECT_EQ(list.model().rowAt(999).key, QString());
    QTest::qWait(0);
    EXPECT_EQ(vanished.count(), 1);
}

TEST_F(PagedListTest, CopiesTheSelectedRowsFromTopToBottom)
{
    fill(Many);
    auto* const selection = view.selectionModel();
    const auto select = [&](int first, int last) {
        selection->select({list.model().index(first, 0), list.model().index(last, 0)},
                          QItemSelectionModel::Select | QItemSelectionModel::Rows);
    };
    select(5, 5);
    select(1, 2);
    select(2, 3);
    QTest::keyClick(&view, Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QApplication::clipboard()->text(),
              u"名前2\t02\r\n名前3\t03\r\n名前4\t04\r\n名前6\t06\r\n"_s);

    view.selectAll();
    const QString all = view.selectedText();
    EXPECT_EQ(all.count(u"\r\n"_s), Many);
    EXPECT_TRUE(all.endsWith(u"名前100000\t0100000\r\n"_s));
    EXPECT_EQ(ui::oneLine(u"一行\r\n二行\t三"_s), u"一行 二行 三"_s);
}

TEST_F(PagedListTest, EverythingGoesByKeys)
{
    fill(10);
    list.model().setCheckBoxes(true, true);
    QSignalSpy opened(&view, &ui::ListView::opened);
    QSignalSpy asked(&list.model(), &ui::PagedListModel::checkRequested);
    QSignalSpy menu(&view, &ui::ListView::menuRequested);

    QApplication::setActiveWindow(&view);
    view.setFocus(Qt::MouseFocusReason);
    QTest::keyClick(&view, Qt::Key_Return);
    EXPECT_EQ(opened.count(), 0) << "there is no current row";
    view.clearFocus();
    view.setFocus(Qt::TabFocusReason);
    EXPECT_EQ(view.currentKey(), u"1-0-1-stamp"_s);
    view.selectRow(3);
    QTest::keyClick(&view, Qt::Key_Return);
    QTest::keyClick(&view, Qt::Key_Enter, Qt::KeypadModifier);
    EXPECT_EQ(opened.count(), 2);
    EXPECT_EQ(opened.takeLast().first().toInt(), 3);

    QTest::keyClick(&view, Qt::Key_Space);
    ASSERT_EQ(asked.count(), 1);
    EXPECT_EQ(asked.first(), QVariantList({3, false})) << "row 4 was checked";
    EXPECT_EQ(list.model().index(3, 0).data(Qt::CheckStateRole).toInt(), Qt::Checked)
        << "the answer is not the list's to give";

    const QRect row = view.visualRect(list.model().index(3, 0));
    const QPoint box = row.topLeft() + QPoint(8, row.height() / 2);
    QTest::mouseClick(view.viewport(), Qt::LeftButton, {}, box);
    QTest::mouseDClick(view.viewport(), Qt::LeftButton, {}, box);
    EXPECT_EQ(opened.count(), 1) << "two clicks on a check box open nothing";
    QTest::mouseClick(view.viewport(), Qt::LeftButton, {}, row.center());
    QTest::mouseDClick(view.viewport(), Qt::LeftButton, {}, row.center());
    EXPECT_EQ(opened.count(), 2);

    QContextMenuEvent key(QContextMenuEvent::Keyboard, QPoint(), QPoint());
    QCoreApplication::sendEvent(view.viewport(), &key);
    EXPECT_EQ(menu.count(), 1);
}

// The menu takes the button's release, so the row is chosen before the menu comes, and only once.
TEST_F(PagedListTest, ARowIsChosenOnceByEachClickAndBeforeItsMenu)
{
    fill(10);
    QStringList told;
    QObject::connect(&view, &ui::ListView::chosen, [&told](int row, int column, bool another) {
        told.append(u"%1 %2 %3"_s.arg(row).arg(column).arg(another));
    });
    QObject::connect(&view, &ui::ListView::menuRequested, [&told] { told.append(u"menu"_s); });
    const auto place = [this](int row) {
        return view.visualRect(list.model().index(row, 0)).center();
    };
    QTest::mouseClick(view.viewport(), Qt::LeftButton, {}, place(2));
    QTest::mouseClick(view.viewport(), Qt::LeftButton, {}, place(2));
    EXPECT_EQ(told, QStringList({u"2 0 1"_s, u"2 0 0"_s}));

    told.clear();
    QTest::mousePress(view.viewport(), Qt::RightButton, {}, place(4));
    QContextMenuEvent asked(QContextMenuEvent::Mouse, place(4),
                            view.viewport()->mapToGlobal(place(4)));
    QCoreApplication::sendEvent(view.viewport(), &asked);
    EXPECT_EQ(told, QStringList({u"4 0 1"_s, u"menu"_s}));
    QTest::keyClick(&view, Qt::Key_Down); // the release went to the menu
    EXPECT_EQ(told.last(), u"5 -1 1"_s);
}

TEST_F(PagedListTest, SaysInWordsWhatTheColourSays)
{
    fill(3);
    list.model().setEmphasis({{0, {Qt::red, {}, u"超過"_s}}}, 1);
    EXPECT_EQ(cell(0, 1), u"01（超過）"_s);
    EXPECT_EQ(cell(0, 0), u"名前1"_s);
    EXPECT_EQ(list.model().index(0, 0).data(Qt::ForegroundRole).value<QColor>(), QColor(Qt::red));
    EXPECT_FALSE(list.model().index(0, 0).data(Qt::BackgroundRole).isValid());
}

} // namespace
