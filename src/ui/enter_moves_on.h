#pragma once

#include <QObject>
#include <QPointer>
#include <QSet>

class QAbstractButton;
class QKeyEvent;
class QWidget;

namespace ui {

// Enter in a field of a form moves on to the next field in the tab order, and in the last field
// presses the form's button; Enter on any button presses it. The key is looked at where the widget
// itself would get it, after the input method, and never while a kana conversion is going on.
//
// A full-width space toggles a check box like a plain one.
class EnterMovesOn : public QObject {
    Q_OBJECT

public:
    // Watches all fields that the form has now; `button` may be null.
    EnterMovesOn(QWidget* form, QAbstractButton* button);

    // A text of several lines in which Enter stays a line break; Ctrl+Enter moves on.
    void keepLineBreaksIn(QWidget* field) { m_lineBreaks.insert(field); }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool takeKey(QWidget* field, QKeyEvent* event);
    void moveOn(QWidget* field);
    QWidget* nextField(QWidget* field) const;

    QWidget* m_form;
    QPointer<QAbstractButton> m_button;
    QSet<QWidget*> m_lineBreaks;
    QPointer<QObject> m_composing; // the field in which a conversion is going on
};

} // namespace ui
