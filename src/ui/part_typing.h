#pragma once

#include <QList>
#include <QString>

class QLineEdit;

namespace ui {

// How the text of a date or time field is typed over. A click or an arrow key chooses a part of it
// (the year of 2027/12/31, say) and digits take that part's place. More digits than the part holds,
// or a sign behind them, make a date of its own of what was typed, in place of the whole text.
class PartTyping {
public:
    // `widths`: the most digits of each part, whose number tells a text that has all parts.
    PartTyping(QLineEdit& edit, const QList<int>& widths) : m_edit(edit), m_widths(widths) {}

    // Selects a part, the first or the last where there is none of this number; the whole text
    // where it does not have its parts.
    void select(int part);
    // The part that is selected or typed into, or where the cursor stands; -1 in a text without.
    int current() const;
    // Digits and signs, in half width, as they come from the keyboard. `untouched`: the text is as
    // the field writes its value.
    void type(const QString& typed, bool untouched);
    // Puts a text in as if it had been typed in one go.
    void paste(const QString& text);

private:
    struct Span {
        int start = 0;
        int length = 0;
    };
    QList<Span> parts() const;
    bool isAtPart() const;
    void typeSign(QChar sign);
    void replaceAll(const QString& text);

    QLineEdit& m_edit;
    const QList<int> m_widths;
    int m_part = -1;
    QString m_typed; // into the part
    QString m_free;  // what typing has made of the text without parts
};

} // namespace ui
