#pragma once

#include <QApplication>
#include <QComboBox>
#include <QInputMethodEvent>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTest>

#include <gtest/gtest.h>

// What an input method sends: the text that is being converted and the text that is done.
inline void compose(QWidget& field, const QString& converting, const QString& done = {})
{
    QInputMethodEvent event(converting, {});
    event.setCommitString(done);
    QCoreApplication::sendEvent(&field, &event);
}

inline QString typedIn(const QWidget& field)
{
    if (const auto* const box = qobject_cast<const QComboBox*>(&field))
        return box->currentText();
    const auto* const text = qobject_cast<const QPlainTextEdit*>(&field);
    return text ? text->toPlainText() : static_cast<const QLineEdit&>(field).text();
}

// The fields of a form that take any text, not those inside a date picker or a combo box.
inline QList<QWidget*> textFields(const QWidget& form)
{
    QList<QWidget*> fields;
    for (QWidget* const each : form.findChildren<QWidget*>()) {
        const auto* const box = qobject_cast<QComboBox*>(each);
        const auto* const line = qobject_cast<QLineEdit*>(each);
        const bool own = line && each->objectName() != QStringLiteral("qt_spinbox_lineedit")
            && !qobject_cast<QComboBox*>(each->parentWidget());
        if (own || (box && box->isEditable()) || qobject_cast<QPlainTextEdit*>(each))
            fields.append(each);
    }
    return fields;
}

// In every text field of a visible form: the Enter that confirms a conversion, and the text that
// comes of it, leave the form, its focus and the line as they are. Gives the number of fields.
inline int expectConversionsStayInTheirFields(QWidget& form)
{
    QApplication::setActiveWindow(&form);
    const QList<QWidget*> fields = textFields(form);
    for (QWidget* const field : fields) {
        SCOPED_TRACE(field->objectName().toStdString());
        field->setFocus();
        const qsizetype lines = typedIn(*field).count(u'\n');
        compose(*field, QStringLiteral("かんじ"));
        for (const Qt::Key enter : {Qt::Key_Return, Qt::Key_Enter})
            QTest::keyClick(QApplication::focusWidget(), enter);
        compose(*field, {}, QStringLiteral("漢字"));
        EXPECT_EQ(QApplication::focusWidget(), field);
        EXPECT_TRUE(form.isVisible());
        EXPECT_TRUE(typedIn(*field).contains(QStringLiteral("漢字")));
        EXPECT_EQ(typedIn(*field).count(u'\n'), lines);
    }
    return static_cast<int>(fields.size());
}
