#include "ui/message_boxes.h"
#include "ui/twips.h"
#include "ui/wait_cursor.h"
#include "ui/window_placement.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDialog>
#include <QInputDialog>
#include <QInputMethodEvent>
#include <QLineEdit>
#include <QMessageBox>
#include <QPointer>
#include <QTest>
#include <QTextEdit>
#include <QTimer>

#include <gtest/gtest.h>

using namespace Qt::Literals::StringLiterals;
using core::Answer;
using core::MessageStyle;

namespace {

// Runs `act` on the modal window that comes next; the test fails when none comes.
template <typename Window, typename Act> class OnModal {
public:
    explicit OnModal(Act act)
    {
        QTimer::singleShot(0, &m_guard, [this, act] {
            auto* const window = qobject_cast<Window*>(QApplication::activeModalWidget());
            ASSERT_NE(window, nullptr);
            m_came = true;
            act(*window);
        });
    }
    ~OnModal() { EXPECT_TRUE(m_came); }

private:
    QObject m_guard;
    bool m_came = false;
};

template <typename Window, typename Act> OnModal<Window, Act> onModal(Act act)
{
    return OnModal<Window, Act>(act);
}

QStringList buttonTexts(const QMessageBox& box)
{
    QStringList texts;
    for (const QAbstractButton* const button : box.buttons())
        texts.append(button->text());
    texts.sort();
    return texts;
}

// An assistive tool can press a button of a window behind the box.
TEST(MessageBoxes, OutliveTheWindowThatTheyStandOver)
{
    QPointer<QDialog> form = new QDialog;
    form->setAttribute(Qt::WA_DeleteOnClose);
    form->show();
    QDialog inFront; // another window may have become the active one
    inFront.show();
    QApplication::setActiveWindow(&inFront);
    ui::MessageBoxes messages;
    const auto closing = onModal<QMessageBox>([form](QMessageBox& box) {
        form->reject();
        QCoreApplication::processEvents();
        QTimer::singleShot(20, &box, [&box] { box.button(QMessageBox::Yes)->click(); });
    });
    EXPECT_TRUE(messages.confirm(u"削除しますか？"_s));
    EXPECT_FALSE(form.isNull());
    QTest::qWait(0);
    EXPECT_TRUE(form.isNull()) << "it goes when the box has gone";
}

TEST(MessageBoxes, HaveTheStylesIconAndButtons)
{
    struct Case {
        MessageStyle style;
        QMessageBox::Icon icon;
        QStringList buttons;
        Answer onEnter;
        Answer onEscape;
    };
    const QStringList yesNo{u"いいえ(&N)"_s, u"はい(&Y)"_s};
    const Case cases[] = {
        {MessageStyle::Critical, QMessageBox::Critical, {u"OK"_s}, Answer::Ok, Answer::Ok},
        {MessageStyle::CriticalOkCancel,
         QMessageBox::Critical,
         {u"OK"_s, u"キャンセル"_s},
         Answer::Ok,
         Answer::Cancel},
        {MessageStyle::Exclamation, QMessageBox::Warning, {u"OK"_s}, Answer::Ok, Answer::Ok},
        {MessageStyle::ExclamationYesNo, QMessageBox::Warning, yesNo, Answer::Yes, Answer::No},
        {MessageStyle::Information, QMessageBox::Information, {u"OK"_s}, Answer::Ok, Answer::Ok},
        {MessageStyle::InformationYesNo, QMessageBox::Information, yesNo, Answer::Yes, Answer::No},
        {MessageStyle::InformationYesNoCancel, QMessageBox::Information,
         yesNo + QStringList{u"キャンセル"_s}, Answer::Yes, Answer::Cancel},
    };
    ui::MessageBoxes messages;
    for (const Case& each : cases) {
        for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Escape}) {
            const auto answer = onModal<QMessageBox>([&](QMessageBox& box) {
                EXPECT_EQ(box.icon(), each.icon);
                EXPECT_EQ(box.text(), u"『 <b>甲</b> 』"_s);
                EXPECT_EQ(box.textFormat(), Qt::PlainText);
                EXPECT_EQ(box.windowTitle(), u"コルヴァン３"_s);
                EXPECT_EQ(buttonTexts(box), each.buttons);
                QTest::keyClick(&box, key);
            });
            EXPECT_EQ(messages.show(each.style, u"『 <b>甲</b> 』"_s, u"コルヴァン３"_s),
                      key == Qt::Key_Return ? each.onEnter : each.onEscape)
                << "style " << static_cast<int>(each.style);
        }
    }
}

TEST(MessageBoxes, WhereSomethingIsDeletedEnterDoesNot)
{
    ui::MessageBoxes messages;
    const auto entering =
        onModal<QMessageBox>([](QMessageBox& box) { QTest::keyClick(&box, Qt::Key_Return); });
    EXPECT_FALSE(messages.confirm(u"削除しますか？"_s, core::DefaultButton::No));
}

// The end of the program closes a box without any button: no consent to anything.
TEST(MessageBoxes, TheEndOfTheProgramAnswersNo)
{
    ui::MessageBoxes messages;
    for (const auto& [style, answer] :
         {std::pair(MessageStyle::ExclamationYesNo, Answer::No),
          std::pair(MessageStyle::CriticalOkCancel, Answer::Cancel)}) {
        std::optional<Answer> given;
        QTimer::singleShot(0, qApp, [&, style = style] {
            QTimer::singleShot(0, qApp, [] { QCoreApplication::exit(); });
            given = messages.show(style, u"削除しますか？"_s, u"コルヴァン３"_s);
        });
        QApplication::exec();
        EXPECT_EQ(given, answer);
    }
}

// Enter and Escape close it as if there were no details; what folds them is named here too.
TEST(MessageBoxes, FoldTheEnginesWordsAway)
{
    ui::MessageBoxes messages;
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Escape}) {
        const auto answer = onModal<QMessageBox>([&](QMessageBox& box) {
            EXPECT_EQ(box.text(), u"保存できませんでした。"_s);
            EXPECT_EQ(box.detailedText(), u"disk I/O error (778)"_s);
            auto* const words = box.findChild<QTextEdit*>();
            EXPECT_FALSE(words->isVisible());
            QAbstractButton* const fold = box.buttons().last();
            for (const auto& [name, shown] :
                 {std::pair(u"詳細を表示(&D)"_s, true), std::pair(u"詳細を隠す(&D)"_s, false),
                  std::pair(u"詳細を表示(&D)"_s, true)}) {
                EXPECT_EQ(buttonTexts(box), (QStringList{u"OK"_s, name}));
                fold->click();
                QCoreApplication::processEvents();
                EXPECT_EQ(words->isVisible(), shown);
            }
            box.button(QMessageBox::Ok)->setFocus();
            QTest::keyClick(&box, key);
        });
        EXPECT_EQ(messages.show(MessageStyle::Critical, u"保存できませんでした。"_s,
                                u"コルヴァン３"_s, u"disk I/O error (778)"_s),
                  Answer::Ok);
    }
}

TEST(MessageBoxes, AskForATextThatMayBeSecret)
{
    ui::MessageBoxes messages;
    const auto type = [](const QString& text, QLineEdit::EchoMode mode) {
        return [text, mode](QInputDialog& dialog) {
            auto* const field = dialog.findChild<QLineEdit*>();
            EXPECT_EQ(field->echoMode(), mode);
            QApplication::setActiveWindow(&dialog);
            // Enter that confirms a conversion answers nothing yet.
            QInputMethodEvent composing(u"かな"_s, {});
            QCoreApplication::sendEvent(field, &composing);
            QTest::keyClick(field, Qt::Key_Return);
            EXPECT_TRUE(dialog.isVisible());
            QInputMethodEvent given;
            QCoreApplication::sendEvent(field, &given);
            field->setText(text);
            QTest::keyClick(field, text.isEmpty() ? Qt::Key_Escape : Qt::Key_Return);
        };
    };
    {
        const auto answer = onModal<QInputDialog>(type(u"ひみつ"_s, QLineEdit::Password));
        EXPECT_EQ(messages.askText(u"ﾊﾟｽﾜｰﾄﾞ"_s, u"コルヴァン３"_s, true), u"ひみつ"_s);
    }
    const auto answer = onModal<QInputDialog>(type(QString(), QLineEdit::Normal));
    EXPECT_EQ(messages.askText(u"データ名"_s, u"コルヴァン３"_s, false), std::nullopt);
}

TEST(WaitCursor, IsShownForALongWaitAlone)
{
    EXPECT_EQ(storage::waitWatcher(), nullptr);
    {
        ui::WaitCursor cursor;
        ASSERT_EQ(storage::waitWatcher(), &cursor);
        QGuiApplication::setOverrideCursor(Qt::PointingHandCursor); // somebody else's
        cursor.waitEnded({});
        EXPECT_EQ(QGuiApplication::overrideCursor()->shape(), Qt::PointingHandCursor);
        cursor.waitGoesOn();
        EXPECT_EQ(QGuiApplication::overrideCursor()->shape(), Qt::WaitCursor);
        cursor.waitEnded({});
        EXPECT_EQ(QGuiApplication::overrideCursor()->shape(), Qt::PointingHandCursor);
        QGuiApplication::restoreOverrideCursor();
        EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
    }
    EXPECT_EQ(storage::waitWatcher(), nullptr);
}

TEST(WindowPlaces, ComeBackOntoTheScreen)
{
    const QRect screen(0, 0, 1366, 768);
    EXPECT_EQ(ui::fitInto(screen, {100, 50, 300, 200}), QRect(100, 50, 300, 200));
    EXPECT_EQ(ui::fitInto(screen, {3000, -40, 300, 200}), QRect(1066, 0, 300, 200));
    EXPECT_EQ(ui::fitInto(screen, {-5, 700, 2000, 2000}), screen);
}

TEST(Twips, AreFifteenToAPixel)
{
    EXPECT_EQ(ui::pixelsFromTwips(9150), 610);
    EXPECT_EQ(ui::pixelsFromTwips(2085), 139);
    EXPECT_EQ(ui::pixelsFromTwips(-8), -1);
    EXPECT_EQ(ui::twipsFromPixels(ui::pixelsFromTwips(9150)), 9150);
}

} // namespace
