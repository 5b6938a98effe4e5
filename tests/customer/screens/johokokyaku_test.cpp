#include "customer/screens/johokokyaku.h"

#include "support/customer/screens/main_screen_test.h"
#include "ui/list_view.h"

#include <QClipboard>
#include <QDropEvent>
#include <QGuiApplication>
#include <QLabel>
#include <QMimeData>
#include <QPushButton>
#include <QUrl>

using namespace Qt::StringLiterals;

namespace {

// The floating details of the customer that is selected on the main screen.
class JohokokyakuTest : public MainScreenTest {
protected:
    void SetUp() override
    {
        MainScreenTest::SetUp();
        records::FieldValues fields = named(u"<b>加藤</b> & 子"_s, u"ｶﾄｳ"_s);
        fields += records::FieldValues{{u"E-MAIL"_s, u"kato@example.jp"_s},
                                       {u"URL"_s, u"http://example.jp/"_s},
                                       {u"備考"_s, u"一\r\n二"_s}};
        add(customer::customerTable(), {}, fields);
        addNamed(u"木村"_s, u"ｷﾑﾗ"_s);
        execute(u"UPDATE 設定 SET 顧客詳細表示 = 1 WHERE 設定ID = 1"_s);
        openScreen();
        choose(0);
    }
    void choose(int row)
    {
        chooseRow(1, row);
        EXPECT_TRUE(QTest::qWaitFor([this] {
            return detail().isVisible()
                && detail().findChild<QLabel*>(u"lblName"_s)->text()
                == list(1).currentIndex().siblingAtColumn(0).data().toString();
        }));
    }

    customer::johokokyaku& detail() { return *screen->findChild<customer::johokokyaku*>(); }
    QPushButton& button(const char* name)
    {
        return *detail().findChild<QPushButton*>(QLatin1String(name));
    }
    void drop(const QList<QUrl>& urls)
    {
        QMimeData data;
        data.setUrls(urls);
        QDragEnterEvent enter({5, 5}, Qt::CopyAction, &data, Qt::LeftButton, {});
        QCoreApplication::sendEvent(list(6).viewport(), &enter);
        EXPECT_TRUE(enter.isAccepted());
        QDropEvent event({5, 5}, Qt::CopyAction, &data, Qt::LeftButton, {});
        QCoreApplication::sendEvent(list(6).viewport(), &event);
        QCoreApplication::processEvents(); // files are added after the drag has ended
    }
    QStringList kept() { return column(u"SELECT ﾌｧｲﾙ名 FROM ユーザー関連ファイル"_s); }
};

TEST_F(JohokokyakuTest, MailAddressAndTextGoOut)
{
    button("MAIL").click();
    button("URL").click();
    EXPECT_EQ(opener.opened, QStringList({u"mailto:kato@example.jp"_s, u"http://example.jp/"_s}));
    opener.outcome = core::Opened::NoProgram;
    button("URL").click();
    EXPECT_EQ(messages.takeText(),
              u"開けませんでした。\r\nhttp://example.jp/\r\n"
              "このアドレスを開くプログラムがありません。"_s);

    EXPECT_EQ(button("UserText").accessibleName(), u"<b>加藤</b> & 子 の内容をコピー"_s);
    button("UserText").click();
    EXPECT_EQ(QGuiApplication::clipboard()->text(),
              u"表示名ﾌﾘｶﾞﾅ： ｶﾄｳ\r\n表示名： <b>加藤</b> & 子\r\nE-MAIL： kato@example.jp\r\n"
              u"URL： http://example.jp/\r\n備考： 一\r\n二\r\n"_s);

    choose(1);
    EXPECT_FALSE(button("MAIL").isEnabled());
    EXPECT_FALSE(button("URL").isEnabled());
}

TEST_F(JohokokyakuTest, KeepsFilesThatAreChosenOrDroppedAndNeverTouchesThem)
{
    QTemporaryDir folder;
    const QString path = folder.filePath(u"見積'1.tar.gz"_s);
    ASSERT_TRUE(QFile(path).open(QIODevice::WriteOnly));
    button("Command4").click(); // the dialog is cancelled
    EXPECT_EQ(kept(), QStringList());
    files.chosen = path;
    button("Command4").click();
    drop({QUrl(u"http://example.jp/"_s), QUrl::fromLocalFile(u"/無い/一.txt"_s),
          QUrl::fromLocalFile(u"/無い/二.txt"_s)});
    EXPECT_EQ(kept(), QStringList({u"見積'1.tar.gz"_s, u"一.txt"_s, u"二.txt"_s}));
    EXPECT_EQ(cells(6, 0), kept());

    choose(1); // another customer has none
    EXPECT_EQ(cells(6, 0), QStringList());
    EXPECT_FALSE(button("Command5").isEnabled());
    choose(0);
    list(6).selectRow(0);
    emit list(6).opened(list(6).currentIndex().row());
    EXPECT_EQ(opener.opened, QStringList({path}));
    for (const core::Answer answer : {core::Answer::No, core::Answer::Yes}) {
        messages.willAnswer(answer);
        button("Command5").click();
        EXPECT_EQ(messages.takeText(), u"見積'1.tar.gz ショートカットを削除しますか？"_s);
    }
    EXPECT_EQ(kept(), QStringList({u"一.txt"_s, u"二.txt"_s}));
    EXPECT_TRUE(QFile::exists(path));
}

TEST_F(JohokokyakuTest, NoFileIsAddedToACustomerThatHasGone)
{
    execute(u"DELETE FROM ユーザー"_s);
    drop({QUrl::fromLocalFile(u"/無い/一.txt"_s), QUrl::fromLocalFile(u"/無い/二.txt"_s)});
    EXPECT_EQ(messages.takeText(), u"追加しようしているデータ元がみつかりません。"_s);
    EXPECT_EQ(kept(), QStringList());
}

} // namespace
