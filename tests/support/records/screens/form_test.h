#pragma once

#include "core/data/shared.h"
#include "records/data/draft_store.h"
#include "records/screens/edit_form.h"
#include "support/fake_file_chooser.h"
#include "support/recording_opener.h"
#include "support/user_settings.h"

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

    records::Desk desk() { return {this->dataFile(), shared, opener, files, drafts, userSettings}; }
    // Opens a form for a new record, or on a record as a list shows it that was filled now.
    template <typename Form> Form& add(const QList<core::RecordKey>& parents, QDate day = {})
    {
        return show(std::make_unique<Form>(
            desk(),
            records::Opening{records::Opening::Mode::Add, QStringLiteral("追加"), parents, {}, day},
            nullptr));
    }
    template <typename Form>
    Form& edit(const records::RecordTable& table, const core::RecordKey& key)
    {
        const auto record = records::readRecord(this->dataFile(), table, key);
        EXPECT_TRUE(record);
        return show(std::make_unique<Form>(
            desk(),
            records::Opening{records::Opening::Mode::Change, QStringLiteral("編集"), {}, record},
            nullptr));
    }

    core::Shared shared{this->messages, this->clock};
    RecordingOpener opener;
    FakeFileChooser files;
    FakeUserSettings userSettings;
    records::Drafts drafts;
    std::unique_ptr<records::EditForm> form;
    std::unique_ptr<QSignalSpy> writes;
};
