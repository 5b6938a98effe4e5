#pragma once

#include "records/screens/drafts.h"
#include "records/screens/edit_form.h"

#include <QApplication>
#include <QCheckBox>
#include <QInputMethodEvent>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>

#include <memory>

// A test on an edit screen over the scratch file of `FileTest`, driven through its controls.
template <typename FileTest> class FormTest : public FileTest {
protected:
    // Shows the screen and counts what it writes.
    template <typename Form> Form& show(std::unique_ptr<Form> opened)
    {
        Form& shown = *opened;
        form = std::move(opened);
        writes = std::make_unique<QSignalSpy>(form.get(), &records::EditForm::written);
        form->show();
        QApplication::setActiveWindow(form.get());
        return shown;
    }
    void TearDown() override
    {
        writes.reset();
        form.reset();
        FileTest::TearDown();
    }

    template <typename Widget> Widget& control(const QString& name)
    {
        auto* const found = form->findChild<Widget*>(name);
        if (!found)
            qFatal("no control %s", qUtf8Printable(name));
        return *found;
    }
    void press(const char* button) { control<QPushButton>(QString::fromLatin1(button)).click(); }
    void tick(const char* box) { control<QCheckBox>(QString::fromLatin1(box)).setChecked(true); }

    // Typed through the input method, as all Japanese text is.
    static void type(QWidget& field, const QString& text)
    {
        field.setFocus();
        QInputMethodEvent event({}, {});
        event.setCommitString(text);
        QCoreApplication::sendEvent(&field, &event);
    }
    // Enter while a kana conversion is going on, and the commit that it makes.
    static void confirmConversion(QWidget& field, const QString& text)
    {
        field.setFocus();
        QInputMethodEvent composing(text, {});
        QCoreApplication::sendEvent(&field, &composing);
        QTest::keyClick(&field, Qt::Key_Return);
        type(field, text);
    }

    records::Drafts drafts;
    std::unique_ptr<records::EditForm> form;
    std::unique_ptr<QSignalSpy> writes;
};
