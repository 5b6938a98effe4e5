#pragma once

#include "ui/part_typing.h"

#include <QDateTimeEdit>

#include <optional>

namespace core {
class Messages;
}

namespace ui {

// What the pickers of dates and of times have alike, on Qt's own field for each (`Edit`), whose
// typing it replaces: text is typed part by part or as a whole, in any form that is read, and
// judged when the field is left. Defined in typed_edit.cpp for the two of them.
template <typename Edit> class TypedEdit : public Edit {
public:
    // When the field is left with a text that cannot be read, that is told, the former value comes
    // back and the field takes the focus again.
    void checkOnLeaving(core::Messages& messages) { m_messages = &messages; }
    // The same at once, as when a save is pressed. False when the text could not be read.
    bool judge();

    // Shows a stored text that cannot be read in the label `stored…` beside the field, until
    // something is entered; the empty text hides it.
    void showStored(const QString& text);
    // That text; empty when there is none, or something was entered since.
    QString storedText() const { return m_stored; }

    void stepBy(int steps) override;

protected:
    TypedEdit(const QList<int>& widths, QWidget* parent);

    virtual std::optional<QDateTime> read(const QString& text) const = 0;
    virtual QString write(const QDateTime& value) const = 0;
    virtual QDateTime stepped(int part, int steps) const = 0;
    // What is told of a text that cannot be read: what it is not, and how to type it.
    virtual QString refusal() const = 0;
    // F4 and Alt+Down.
    virtual void dropDown() {}

    QValidator::State validate(QString& text, int& cursor) const override;
    void fixup(QString& text) const override;
    QDateTime dateTimeFromText(const QString& text) const override;
    QString textFromDateTime(const QDateTime& value) const override;
    QAbstractSpinBox::StepEnabled stepEnabled() const override;

    bool event(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    bool focusNextPrevChild(bool next) override;

    void entered() { showStored({}); }

private:
    bool isReadable() const { return read(this->lineEdit()->text()).has_value(); }
    bool moves(const QKeyEvent& event);
    bool type(const QString& typed);
    void paste();
    void settle();
    template <typename Step> void edit(const Step& step);

    PartTyping m_typing;
    core::Messages* m_messages = nullptr;
    QString m_stored;
    QDateTime m_former;   // the value before what is being typed
    bool m_edits = false; // the value follows the typing
};

} // namespace ui
