#include "core/screens/saiteki.h"

#include "support/core/data/core_test.h"
#include "support/core/screens/screen_doubles.h"

#include <QFile>
#include <QPushButton>
#include <QTest>
#include <QTreeWidget>

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;
using core::DataKind;
using testing::ElementsAre;

namespace {

class Saiteki : public CoreTest {
protected:
    void SetUp() override { openFolder(); }

    RecordedFlow flow;
};

} // namespace

TEST_F(Saiteki, OptimisesTheSelectedFileOfEitherKind)
{
    AddDataFile(shared, DataKind::Customer, u"顧客"_s, {});
    AddDataFile(shared, DataKind::Repair, u"修理"_s, {});
    messages.takeBoxes();
    core::saiteki screen(shared, flow);
    screen.show();
    auto* const list = screen.findChild<QTreeWidget*>(u"ListView1"_s);
    ASSERT_EQ(list->topLevelItemCount(), 2);
    for (int i = 0; i < 2; ++i) {
        list->setCurrentItem(list->topLevelItem(i));
        QTest::mouseClick(screen.findChild<QPushButton*>(u"Command1"_s), Qt::LeftButton);
        EXPECT_EQ(messages.takeText(), u"最適化が終了しました。"_s);
        EXPECT_NE(screen.cursor().shape(), Qt::WaitCursor);
    }
    QTest::mouseClick(screen.findChild<QPushButton*>(u"Command2"_s), Qt::LeftButton);
    EXPECT_THAT(flow.shown, ElementsAre(core::Screen::Menu));
}

TEST_F(Saiteki, ThePointerIsSetBackBeforeTheMessage)
{
    class Watching : public ScriptedMessages {
    public:
        const QWidget* screen = nullptr;
        QList<Qt::CursorShape> pointers;
        core::Answer show(core::MessageStyle style, const QString& text, const QString& title,
                          const QString& details, core::DefaultButton button) override
        {
            pointers.append(screen->cursor().shape());
            return ScriptedMessages::show(style, text, title, details, button);
        }
    } watching;
    add(DataKind::Customer, u"顧客"_s);
    core::Shared watched(watching, clock);
    watched.programFolder = folder();
    core::saiteki screen(watched, flow);
    watching.screen = &screen;
    screen.show();
    for (const QString& text :
         {u"最適化が終了しました。"_s,
          u"「 顧客 」は使用中の可能性があります。終了させてから実行して下さい。"_s}) {
        QTest::mouseClick(screen.findChild<QPushButton*>(u"Command1"_s), Qt::LeftButton);
        EXPECT_EQ(watching.takeText(), text);
        QFile::remove(file(u"Corvane/顧客.mdb"_s));
    }
    EXPECT_THAT(watching.pointers, ElementsAre(Qt::ArrowCursor, Qt::ArrowCursor));
}

TEST_F(Saiteki, WithoutFilesThereIsNothingToStart)
{
    core::saiteki screen(shared, flow);
    EXPECT_FALSE(screen.findChild<QPushButton*>(u"Command1"_s)->isEnabled());
}
