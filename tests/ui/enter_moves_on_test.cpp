#include "ui/enter_moves_on.h"

#include "ui/date_picker.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialog>
#include <QInputMethodEvent>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>
#include <QVBoxLayout>

#include <gtest/gtest.h>

using namespace Qt::Literals::StringLiterals;

namespace {

// A form like the edit screens: fields of every kind, a save button that is a dialog's default one.
class EnterMovesOnTest : public testing::Test {
protected:
    EnterMovesOnTest()
    {
        combo.setEditable(true);
        for (QWidget* const each : fields)
            line.addWidget(each);
        line.addWidget(&save);
        save.setDefault(true);
        for (std::size_t i = 1; i < fields.size(); ++i)
            QWidget::setTabOrder(fields[i - 1], fields[i]);
        QWidget::setTabOrder(fields.back(), &save);
        mover = new ui::EnterMovesOn(&form, &save);
        QObject::connect(&save, &QPushButton::clicked, &form, [this] { ++saves; });
        form.show();
        QApplication::setActiveWindow(&form);
    }

    void compose(QWidget& field, const QString& preedit, const QString& commit = {})
    {
        QInputMethodEvent event(preedit, {});
        event.setCommitString(commit);
        QCoreApplication::sendEvent(&field, &event);
    }

    QDialog form;
    QVBoxLayout line{&form};
    QLineEdit name;
    QPlainTextEdit notes;
    QComboBox combo;
    ui::DatePicker date;
    ui::TimePicker time;
    QCheckBox print;
    QPushButton save{u"追　加"_s};
    std::vector<QWidget*> fields{&name, &notes, &combo, &date, &time, &print};
    ui::EnterMovesOn* mover = nullptr;
    int saves = 0;
};

TEST_F(EnterMovesOnTest, WalksAllKindsOfFieldsAndPressesTheButtonAfterTheLast)
{
    name.setFocus();
    for (std::size_t i = 0; i < fields.size(); ++i) {
        ASSERT_EQ(QApplication::focusWidget(), fields[i]) << "field " << i;
        EXPECT_EQ(saves, 0) << "field " << i;
        QTest::keyClick(fields[i], i % 2 == 0 ? Qt::Key_Return : Qt::Key_Enter);
    }
    EXPECT_EQ(saves, 1);
    EXPECT_TRUE(notes.toPlainText().isEmpty()) << "Enter is no line break";
    EXPECT_TRUE(form.isVisible());
}

TEST_F(EnterMovesOnTest, SkipsFieldsThatCannotBeEntered)
{
    notes.setEnabled(false);
    combo.hide();
    date.setFocusPolicy(Qt::ClickFocus);
    name.setFocus();
    QTest::keyClick(&name, Qt::Key_Return);
    EXPECT_EQ(QApplication::focusWidget(), &time);
}

TEST_F(EnterMovesOnTest, LeavesTheEnterThatConfirmsAConversionAlone)
{
    for (QWidget* const field : std::initializer_list<QWidget*>{&name, &notes, &combo}) {
        field->setFocus();
        compose(*field, u"かんじ"_s);
        QTest::keyClick(field, Qt::Key_Return);
        EXPECT_EQ(QApplication::focusWidget(), field);
        EXPECT_EQ(saves, 0);
        EXPECT_TRUE(form.isVisible());
        compose(*field, {}, u"漢字"_s);
        EXPECT_EQ(QApplication::focusWidget(), field);
        QTest::keyClick(field, Qt::Key_Return);
        EXPECT_NE(QApplication::focusWidget(), field);
    }
    EXPECT_EQ(notes.toPlainText(), u"漢字"_s);
}

TEST_F(EnterMovesOnTest, AConversionThatIsBrokenOffBlocksNothing)
{
    name.setFocus();
    compose(name, u"かん"_s);
    notes.setFocus();
    QTest::keyClick(&notes, Qt::Key_Return);
    EXPECT_EQ(QApplication::focusWidget(), &combo);
}

TEST_F(EnterMovesOnTest, KeepsLineBreaksWhereTheyBelong)
{
    mover->keepLineBreaksIn(&notes);
    notes.setFocus();
    QTest::keyClick(&notes, Qt::Key_Return);
    EXPECT_EQ(notes.toPlainText(), u"\n"_s);
    QTest::keyClick(&notes, Qt::Key_Return, Qt::ControlModifier);
    EXPECT_EQ(QApplication::focusWidget(), &combo);
}

TEST_F(EnterMovesOnTest, AFullWidthSpaceTogglesACheckBox)
{
    print.setFocus();
    QKeyEvent space(QEvent::KeyPress, Qt::Key_unknown, Qt::NoModifier, u"　"_s);
    QCoreApplication::sendEvent(&print, &space);
    EXPECT_TRUE(print.isChecked());
    compose(print, {}, u"　"_s);
    EXPECT_FALSE(print.isChecked());
    QTest::keyClick(&print, Qt::Key_Space);
    EXPECT_TRUE(print.isChecked());
}

TEST_F(EnterMovesOnTest, AHeldKeySavesOnce)
{
    print.setFocus();
    for (const bool repeated : {false, true, true}) {
        QKeyEvent enter(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, u"\r"_s, repeated);
        QCoreApplication::sendEvent(QApplication::focusWidget(), &enter);
    }
    EXPECT_EQ(saves, 1);
}

} // namespace
