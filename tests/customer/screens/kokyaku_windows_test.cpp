#include "customer/screens/johokokyaku.h"
#include "customer/screens/klogpreview.h"
#include "records/screens/floating_windows.h"
#include "support/customer/screens/main_screen_test.h"
#include "ui/list_view.h"

#include <QLabel>
#include <QPlainTextEdit>
#include <QRadioButton>
#include <QScreen>
#include <QSignalSpy>
#include <QSplitter>

using namespace Qt::StringLiterals;

namespace {

// The windows that float beside the main screen.
class KokyakuWindowsTest : public MainScreenTest {
protected:
    void SetUp() override
    {
        MainScreenTest::SetUp();
        owner = addNamed(u"加藤 花子"_s, u"カトウ"_s).key;
        addLogOf(addCaseOf(owner, u"点検"_s).key, u"佐藤"_s, u"受付"_s);
    }
    void set(const QString& assignment)
    {
        execute(u"UPDATE 設定 SET "_s + assignment + u" WHERE 設定ID = 1"_s);
    }
    static QString textOf(const QWidget& window, const char* name)
    {
        const auto* const text = window.findChild<QPlainTextEdit*>(QLatin1String(name));
        return text ? text->toPlainText() : QString();
    }

    core::RecordKey owner;
};

TEST_F(KokyakuWindowsTest, ThePreviewFollowsTheSelectedEntry)
{
    openScreen();
    chooseRow(1, 0);
    chooseRow(2, 0);
    auto& preview = *screen->findChild<customer::klogpreview*>();
    EXPECT_FALSE(preview.isVisible());
    chooseRow(3, 0);
    EXPECT_TRUE(preview.isVisible());
    EXPECT_EQ(textOf(preview, "rogu"), u"【 2024/04/15(月) 】　　【 佐藤 】\n【 ロ グ 】\n受付"_s);

    preview.close();
    EXPECT_EQ(valueOf(u"SELECT ログプレ表示 FROM 設定"_s), u"0"_s);
}

TEST_F(KokyakuWindowsTest, TheDetailWindowFollowsTheSelection)
{
    addNamed(u"木村"_s, u"キムラ"_s);
    set(u"顧客詳細表示 = 1, 顧客詳細横位置 = 300, 顧客詳細縦位置 = 450"_s);
    openScreen();
    auto& detail = *screen->findChild<customer::johokokyaku*>();
    EXPECT_FALSE(detail.isVisible());
    chooseRow(1, 0);
    EXPECT_TRUE(QTest::qWaitFor([&detail] { return detail.isVisible(); }));
    EXPECT_EQ(detail.pos(), QPoint(20, 30));
    EXPECT_EQ(control<QLabel>("lblName").text(), u"加藤 花子"_s);
    chooseRow(1, 1);
    const auto& name = control<QLabel>("lblName");
    EXPECT_TRUE(QTest::qWaitFor([&name] { return name.text() == u"木村"_s; }));

    detail.move(100, 200);
    messages.willAnswer(core::Answer::Yes);
    screen->findChild<records::FloatingWindows*>()->ichi()->trigger();
    EXPECT_EQ(messages.takeText(), u"現在の表示位置を保存しますか？"_s);
    EXPECT_EQ(valueOf(u"SELECT 顧客詳細横位置 & ' ' & 顧客詳細縦位置 FROM 設定"_s), u"1500 3000"_s);
    detail.close();
    EXPECT_EQ(valueOf(u"SELECT 顧客詳細表示 FROM 設定"_s), u"0"_s);
    chooseRow(1, 0);
    QTest::qWait(20);
    EXPECT_FALSE(detail.isVisible());
}

// The log tab shows the entries of the selected case, and none of another customer's.
TEST_F(KokyakuWindowsTest, TheLogTabOfTheDetailsFollowsTheCase)
{
    addCaseOf(addNamed(u"木村"_s, u"キムラ"_s).key, u"見積"_s);
    addLogOf(addCaseOf(owner, u"納品"_s).key, u"鈴木"_s, u"搬入"_s);
    set(u"顧客詳細表示 = 1, 件名詳細表示 = 1, 顧客詳細横位置 = 300, 顧客詳細縦位置 = 450"_s);
    openScreen();
    auto& detail = *screen->findChild<customer::johokokyaku*>();
    const auto shown = [&detail](const QString& caption, const QString& entry) {
        const auto& model = *detail.findChild<ui::ListView*>(u"ListView3"_s)->model();
        const auto& title = *detail.findChild<QLabel*>(u"lblRog"_s);
        return QTest::qWaitFor([&] {
            return title.text() == caption && model.index(0, 2).data().toString() == entry;
        });
    };
    chooseRow(1, 0);
    EXPECT_TRUE(shown(u"件名が選択されていません。"_s, {}));
    chooseRow(2, 0);
    EXPECT_TRUE(shown(u"点検 のログ"_s, u"受付"_s));
    detail.move(500, 500);
    chooseRow(2, 1);
    EXPECT_TRUE(shown(u"納品 のログ"_s, u"搬入"_s));
    EXPECT_EQ(detail.pos(), QPoint(20, 30)) << "it goes to the kept place each time";
    chooseRow(1, 1);
    EXPECT_TRUE(shown(u"件名が選択されていません。"_s, {}))
        << "nothing of the other customer stays";
}

// On a low screen at a large scale, with a title bar of 30 pixels.
TEST_F(KokyakuWindowsTest, FitsASmallScreen)
{
    openScreen();
    screen->resize(900, 410);
    EXPECT_EQ(screen->size(), QSize(900, 410));
    EXPECT_LE(screen->minimumSizeHint().height(), 410);
}

TEST_F(KokyakuWindowsTest, ClosingLetsGoOfTheFileAndRemembersTheDesk)
{
    openScreen(storage::Mode::ReadWrite);
    const auto sizes = [this] { return control<QSplitter>("splitLists").sizes(); };
    const QList<int> before = sizes();
    control<QRadioButton>("optRog").click();
    QCoreApplication::processEvents();
    const QList<int> large = sizes();
    EXPECT_GT(large.at(2), large.at(0));
    QSignalSpy closed(screen.get(), &customer::kokyaku::closed);
    closeScreen();
    EXPECT_EQ(closed.count(), 1);
    EXPECT_EQ(shared.CustomerDataPath, QString());

    customer::CloseCustomerFile(file);
    openScreen(storage::Mode::ShareExclusive);
    EXPECT_EQ(control<QLabel>("StatusMode").text(), u"他接続不可"_s);
    EXPECT_EQ(sizes(), large);
    control<QRadioButton>("optRog").click(); // the second press gives the former sizes back
    EXPECT_EQ(sizes(), before);
    EXPECT_FALSE(control<QRadioButton>("optRog").isChecked());
    EXPECT_FALSE(open());
    EXPECT_EQ(messages.takeBoxes().size(), 1);
    takeErrors();
}

// Opened by key on a customer whose case is selected already, the details know it.
TEST_F(KokyakuWindowsTest, TheKeyOpensTheDetailsBesideTheListWithTheSelectedCase)
{
    openScreen();
    screen->setGeometry(0, 0, 780, 780); // all of the screen in one direction
    chooseRow(1, 0);
    chooseRow(2, 0);
    auto& detail = *screen->findChild<customer::johokokyaku*>();
    EXPECT_FALSE(detail.isVisible());
    QTest::keyClick(screen.get(), Qt::Key_I, Qt::ControlModifier);
    EXPECT_TRUE(detail.isVisible());
    EXPECT_EQ(detail.findChild<QLabel*>(u"lblRog"_s)->text(), u"点検 のログ"_s);
    const auto onScreen = [](QWidget& part) {
        return QRect(part.mapToGlobal(QPoint()), part.size());
    };
    EXPECT_FALSE(detail.frameGeometry().intersects(onScreen(list(1))));
    EXPECT_FALSE(detail.frameGeometry().intersects(onScreen(control<QWidget>("Toolbar1"))));
    EXPECT_TRUE(screen->screen()->availableGeometry().contains(detail.frameGeometry()));

    // It stays where it was put, also when it was closed meanwhile, but never beyond the screen.
    for (const auto& [put, seen] :
         {std::pair(QPoint(50, 60), QPoint(50, 60)), std::pair(QPoint(-900, 60), QPoint(0, 60))}) {
        detail.move(put);
        detail.close();
        screen->activateWindow();
        QTest::keyClick(screen.get(), Qt::Key_I, Qt::ControlModifier);
        EXPECT_TRUE(detail.isVisible());
        EXPECT_EQ(detail.pos(), seen);
    }
}

} // namespace
