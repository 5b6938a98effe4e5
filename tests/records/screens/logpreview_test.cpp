#include "customer/screens/klogpreview.h"
#include "repair/screens/clogpreview.h"
#include "support/records/data/each_kind_test.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QMenu>
#include <QPlainTextEdit>
#include <QScreen>
#include <QTest>

using namespace Qt::StringLiterals;
using core::Answer;

namespace {

// The log preview on either kind of file.
class LogpreviewTest : public EachKindTest {
protected:
    void SetUp() override
    {
        EachKindTest::SetUp();
        execute(isRepair()
                    ? u"INSERT INTO 修理ログ (記録日, 記録者, ログ) VALUES ('2024/02/29(木)', "
                      u"'佐藤', '受付\r\n電話')"_s
                    : u"INSERT INTO ログ (登録日, 記録者, Rログ) VALUES ('2024/02/29(木)', '佐藤', "
                      u"'受付\r\n電話')"_s);
        openPreview();
    }
    void TearDown() override
    {
        preview.reset();
        EachKindTest::TearDown();
    }

    void openPreview()
    {
        if (isRepair())
            preview = std::make_unique<repair::clogpreview>(repairs, nullptr);
        else
            preview = std::make_unique<customer::klogpreview>(customers, nullptr);
        preview->show();
    }
    template <typename Part> Part& part(const char* name)
    {
        auto* const found = preview->findChild<Part*>(QLatin1String(name));
        if (!found)
            qFatal("no part %s", name);
        return *found;
    }
    QPlainTextEdit& rogu() { return part<QPlainTextEdit>("rogu"); }
    // The captions of the right-click menu, opened by the mouse.
    QStringList menuCaptions()
    {
        QTest::mousePress(rogu().viewport(), Qt::RightButton);
        auto& menu = part<QMenu>("RightMenu");
        QStringList captions;
        for (const QAction* const action : menu.actions())
            captions.append(action->text());
        menu.close();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        return captions;
    }
    QString settings()
    {
        return valueOf(u"SELECT ログプレ手前 & ' ' & ログプレ横位置 & ' ' & ログプレ縦位置 & ' ' & "
                       u"ログプレ横幅 & ' ' & ログプレ縦幅 FROM 設定"_s);
    }

    std::unique_ptr<records::logpreview> preview;
};

TEST_P(LogpreviewTest, ShowsAndCopiesAnEntryAsItIsStored)
{
    preview->showEntry({1, 0, 1, {}});
    EXPECT_EQ(rogu().toPlainText(),
              u"【 2024/02/29(木) 】　　【 佐藤 】\n【 ロ グ 】\n受付\n電話"_s);
    EXPECT_TRUE(rogu().isReadOnly());
    part<QAction>("Rcopy").trigger();
    EXPECT_EQ(QApplication::clipboard()->text(),
              u"【 2024/02/29(木) 】　　【 佐藤 】\r\n【 ロ グ 】\r\n受付\r\n電話"_s);
    execute(isRepair() ? u"UPDATE 修理ログ SET 記録日 = '昨日'"_s
                       : u"UPDATE ログ SET 登録日 = '昨日'"_s);
    preview->showEntry({1, 0, 1, {}});
    EXPECT_TRUE(rogu().toPlainText().startsWith(u"【 昨日 】"_s));
    preview->showEntry({2, 0, 2, {}}); // deleted by another copy
    EXPECT_EQ(rogu().toPlainText(), QString());
}

TEST_P(LogpreviewTest, StaysInFrontWhenAskedAndRemembersNothingElse)
{
    EXPECT_EQ(menuCaptions(), (QStringList{u"コピー"_s, u"常に手前表示"_s, u"位置サイズ保存"_s}));
    execute(u"UPDATE 設定 SET ログプレ横幅 = 6000"_s); // by another copy
    part<QAction>("temae").trigger();
    EXPECT_TRUE(preview->windowFlags().testFlag(Qt::WindowStaysOnTopHint));
    EXPECT_TRUE(preview->isVisible());
    EXPECT_EQ(settings(), u"1 0 0 6000 2085"_s);
    openPreview();
    EXPECT_TRUE(preview->windowFlags().testFlag(Qt::WindowStaysOnTopHint));
    EXPECT_EQ(menuCaptions().value(1), u"常に手前解除"_s);
    part<QAction>("temae").trigger();
    EXPECT_FALSE(preview->windowFlags().testFlag(Qt::WindowStaysOnTopHint));
    EXPECT_EQ(settings(), u"0 0 0 6000 2085"_s);
}

TEST_P(LogpreviewTest, IsDraggedAndKeepsItsPlaceWhenAsked)
{
    EXPECT_EQ(preview->size(), QSize(610, 139));
    execute(u"UPDATE 設定 SET ログプレ縦位置 = 60000, ログプレ横位置 = -60000"_s);
    openPreview(); // kept on a screen that is gone
    const QRect stands(preview->pos(), preview->size());
    EXPECT_TRUE(preview->screen()->availableGeometry().contains(stands));
    execute(u"UPDATE 設定 SET ログプレ縦位置 = 0, ログプレ横位置 = 0"_s);
    openPreview();
    preview->move(100, 100);
    QWidget* const surface = rogu().viewport();
    // Inside the text with Ctrl alone, without a key by its head and its edges.
    const struct {
        QPoint held; // from the text's upper left corner
        Qt::KeyboardModifiers keys;
        QPoint moved;
    } drags[] = {{{80, 60}, {}, {}},
                 {{80, 60}, Qt::ControlModifier, {-20, -10}},
                 {{80, 8}, {}, {-20, -15}},
                 {{3, 60}, {}, {-20, -15}}};
    for (const auto& each : drags) {
        const QPoint before = preview->pos();
        const QPoint from = surface->mapToGlobal(each.held);
        const auto send = [&](QEvent::Type type, const QPoint& place, Qt::MouseButtons buttons) {
            QMouseEvent event(type, surface->mapFromGlobal(place), place, Qt::LeftButton, buttons,
                              each.keys);
            QCoreApplication::sendEvent(surface, &event);
        };
        const QPoint to = from + (each.moved.isNull() ? QPoint(-20, -15) : each.moved);
        send(QEvent::MouseButtonPress, from, Qt::LeftButton);
        send(QEvent::MouseMove, to, Qt::LeftButton);
        send(QEvent::MouseButtonRelease, to, {});
        EXPECT_EQ(preview->pos(), before + each.moved);
    }
    EXPECT_EQ(preview->pos(), QPoint(40, 60));
    preview->resize(500, 120);

    for (const Answer answer : {Answer::No, Answer::Yes}) {
        messages.willAnswer(answer);
        part<QAction>("ichi").trigger();
        EXPECT_EQ(messages.takeText(), u"現在の表示位置・サイズを保存しますか？"_s);
        EXPECT_EQ(settings(),
                  answer == Answer::Yes ? u"0 600 900 7500 1800"_s : u"0 0 0 9150 2085"_s);
    }
    openPreview();
    EXPECT_EQ(preview->pos(), QPoint(40, 60));
    EXPECT_EQ(preview->size(), QSize(500, 120));
}

INSTANTIATE_TEST_SUITE_P(Kinds, LogpreviewTest, EachKind, kindName);

} // namespace
