#include "app/program/program.h"

#include "core/screens/info.h"
#include "core/screens/msgboxf.h"
#include "core/screens/version.h"
#include "support/core/data/core_test.h"
#include "support/recording_opener.h"
#include "support/user_settings.h"
#include "ui/caption_label.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAbstractScrollArea>
#include <QAccessible>
#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QKeySequence>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QStackedWidget>
#include <QTabWidget>
#include <QTest>

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;

namespace {

QString heard(QWidget& widget)
{
    const QAccessibleInterface* const told = QAccessible::queryAccessibleInterface(&widget);
    return told ? told->text(QAccessible::Name) : QString();
}

QString named(const QWidget& widget)
{
    return QLatin1String(widget.metaObject()->className()) + u' ' + widget.objectName();
}

// The page of a tab control that a widget stands on; null for none.
const QWidget* pageOf(const QWidget* widget)
{
    while (widget && !qobject_cast<const QStackedWidget*>(widget->parentWidget()))
        widget = widget->parentWidget();
    return widget;
}

// A text that may hold an Alt letter, and the page on which it is seen.
using Caption = std::pair<QString, const QWidget*>;

template <typename Widget> QList<Widget*> partsOf(const QWidget& window)
{
    QList<Widget*> parts = window.findChildren<Widget*>();
    parts.removeIf([&window](const Widget* part) { return part->window() != &window; });
    return parts;
}

QList<Caption> captionsOf(const QWidget& window)
{
    QList<Caption> captions;
    for (const auto* const label : partsOf<QLabel>(window)) {
        if (label->buddy())
            captions.append({label->text(), pageOf(label)});
    }
    for (const auto* const button : partsOf<QAbstractButton>(window))
        captions.append({button->text(), pageOf(button)});
    for (const auto* const tabs : partsOf<QTabWidget>(window)) {
        for (int i = 0; i < tabs->count(); ++i)
            captions.append({tabs->tabText(i), pageOf(tabs)});
    }
    for (const auto* const bar : partsOf<QMenuBar>(window)) {
        for (const QAction* const menu : bar->actions())
            captions.append({menu->text(), nullptr});
    }
    return captions;
}

// What somebody who cannot see the window would miss in it.
QStringList missedIn(QWidget& window)
{
    QStringList missed;
    for (auto* const label : partsOf<QLabel>(window)) {
        const bool cut =
            qobject_cast<ui::CaptionLabel*>(label); // says all of what it shows a part of
        const QString text = label->text().remove(u'&');
        if (!cut && !text.isEmpty() && !heard(*label).remove(u'&').contains(text))
            missed += u"text hidden: "_s + named(*label);
    }
    for (auto* const widget : partsOf<QWidget>(window)) {
        const bool isControl = qobject_cast<QAbstractButton*>(widget)
            || qobject_cast<QLineEdit*>(widget) || qobject_cast<QComboBox*>(widget)
            || qobject_cast<QAbstractSpinBox*>(widget) || qobject_cast<QAbstractItemView*>(widget);
        const bool isPart = widget->objectName().startsWith(u"qt_"_s)
            || qobject_cast<QAbstractSpinBox*>(widget->parentWidget())
            || qobject_cast<QComboBox*>(widget->parentWidget());
        if (isControl && !isPart && widget->focusPolicy() != Qt::NoFocus
            && heard(*widget).isEmpty())
            missed += u"no name: "_s + named(*widget);
    }
    const QList<Caption> captions = captionsOf(window);
    for (auto one = captions.cbegin(); one != captions.cend(); ++one) {
        const QKeySequence letter = QKeySequence::mnemonic(one->first);
        for (auto other = captions.cbegin(); other != one && !letter.isEmpty(); ++other) {
            const bool together = !one->second || !other->second || one->second == other->second;
            if (together && QKeySequence::mnemonic(other->first) == letter)
                missed += u"Alt letter twice: "_s + one->first + u", "_s + other->first;
        }
    }
    for (QString& each : missed)
        each.prepend(window.objectName() + u": "_s);
    return missed;
}

// All windows as a screen reader and the Alt key meet them.
class WindowsHeardTest : public CoreTest {
protected:
    void SetUp() override
    {
        openFolder();
        program = std::make_unique<Program>(shared, opener, userSettings);
    }
    void TearDown() override
    {
        program.reset();
        QApplication::setQuitOnLastWindowClosed(true);
        CoreTest::TearDown();
    }
    QStringList missedInAll()
    {
        QStringList missed;
        for (QWidget* const window : QApplication::topLevelWidgets()) {
            if (window->isVisible() && !seen.contains(window->objectName())) {
                missed += missedIn(*window);
                seen.append(window->objectName());
            }
        }
        return missed;
    }

    RecordingOpener opener;
    FakeUserSettings userSettings;
    std::unique_ptr<Program> program;
    QStringList seen;
};

TEST_F(WindowsHeardTest, NoTextIsHiddenNoControlWithoutNameNoLetterTwice)
{
    program->start();
    QStringList missed = missedInAll();
    core::version version(messages, opener);
    core::info notice({u"今月の顧客 3 件"_s});
    core::msgboxf question(shared, u"終了しますか？"_s);
    for (QWidget* const window : {static_cast<QWidget*>(&version), static_cast<QWidget*>(&notice),
                                  static_cast<QWidget*>(&question)}) {
        window->show();
        missed += missedInAll();
        window->close();
    }
    for (const core::Screen screen :
         {core::Screen::Menu, core::Screen::Login, core::Screen::Admin}) {
        program->show(screen);
        missed += missedInAll();
    }
    program->showChooser(core::DataKind::Customer);
    missed += missedInAll();

    const auto opened = program->open(core::DataKind::Customer,
                                      core::dataFile(folder(), core::DataKind::Customer,
                                                     add(core::DataKind::Customer, u"本店"_s).name),
                                      storage::Mode::ReadWrite);
    ASSERT_TRUE(opened);
    QWidget& main = *opened->mainScreen;
    missed += missedInAll();
    for (const char* const action : {"MenuUserListKyakuAdd", "MenuYoteiAdd", "MenuKeys"}) {
        main.findChild<QAction*>(QLatin1String(action))->trigger();
        missed += missedInAll();
        QApplication::activeModalWidget()->close();
    }
    // Those that want a record stand hidden until then.
    for (QWidget* const window : main.findChildren<QWidget*>()) {
        if (window->isWindow() && !window->objectName().isEmpty()
            && !seen.contains(window->objectName())) {
            missed += missedIn(*window);
            seen.append(window->objectName());
        }
    }
    EXPECT_THAT(missed, testing::IsEmpty()) << missed.join(u'\n').toStdString();
    EXPECT_THAT(seen,
                testing::IsSupersetOf({u"menu"_s, u"kokyaku"_s, u"upkokyaku"_s, u"johokokyaku"_s,
                                       u"dopen"_s, u"login"_s}));
}

} // namespace
