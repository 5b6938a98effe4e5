#include "ui/part_typing.h"

#include <QLineEdit>

#include <algorithm>

namespace ui {
namespace {

bool isDigitSign(QChar sign)
{
    return sign >= u'0' && sign <= u'9';
}

} // namespace

// The runs of digits; none when there are not as many as the field has parts.
QList<PartTyping::Span> PartTyping::parts() const
{
    const QString text = m_edit.text();
    QList<Span> found;
    for (int i = 0; i < text.size(); ++i) {
        if (!isDigitSign(text.at(i)))
            continue;
        if (i == 0 || !isDigitSign(text.at(i - 1)))
            found.append({i, 0});
        ++found.last().length;
    }
    return found.size() == m_widths.size() ? found : QList<Span>();
}

void PartTyping::select(int part)
{
    const QList<Span> spans = parts();
    m_typed.clear();
    m_part = spans.isEmpty() ? -1 : std::clamp<int>(part, 0, static_cast<int>(spans.size()) - 1);
    if (m_part < 0)
        m_edit.selectAll();
    else
        m_edit.setSelection(spans.at(m_part).start, spans.at(m_part).length);
}

// Whether what is typed next goes into the part: it is selected, or was typed into just now.
bool PartTyping::isAtPart() const
{
    const QList<Span> spans = parts();
    if (m_part < 0 || spans.isEmpty())
        return false;
    const Span& part = spans.at(m_part);
    if (m_typed.isEmpty())
        return m_edit.selectionStart() == part.start && m_edit.selectionLength() == part.length;
    return !m_edit.hasSelectedText() && m_edit.cursorPosition() == part.start + part.length
        && m_edit.text().sliced(part.start, part.length) == m_typed;
}

int PartTyping::current() const
{
    if (isAtPart())
        return m_part;
    const QList<Span> spans = parts();
    const int place = m_edit.hasSelectedText() ? m_edit.selectionStart() : m_edit.cursorPosition();
    for (int i = 0; i < spans.size(); ++i) {
        if (place <= spans.at(i).start + spans.at(i).length)
            return i;
    }
    return static_cast<int>(spans.size()) - 1;
}

void PartTyping::replaceAll(const QString& text)
{
    m_part = -1;
    m_typed.clear();
    m_edit.selectAll();
    m_edit.insert(text);
    m_free = m_edit.text();
}

void PartTyping::type(const QString& typed, bool untouched)
{
    // The value may have come from elsewhere while the cursor stood in the text.
    if (untouched && !isAtPart() && !m_edit.hasSelectedText() && m_edit.text() != m_free)
        select(current());
    for (const QChar sign : typed)
        typeSign(sign);
}

void PartTyping::typeSign(QChar sign)
{
    if (!isAtPart()) {
        m_part = -1;
        m_typed.clear();
        m_edit.insert(sign);
        m_free = m_edit.text();
    } else if (!isDigitSign(sign) && m_typed.isEmpty()) {
        select(m_part + 1);
    } else if (!isDigitSign(sign) || m_typed.size() == m_widths.at(m_part)) {
        replaceAll(m_typed + sign);
    } else {
        const Span part = parts().at(m_part);
        m_edit.setSelection(part.start, part.length);
        m_typed += sign;
        m_edit.insert(m_typed);
    }
}

void PartTyping::paste(const QString& text)
{
    const bool digits = std::ranges::all_of(text, isDigitSign);
    if (digits && isAtPart() && text.size() <= m_widths.at(m_part))
        type(text, false);
    else
        replaceAll(text);
}

} // namespace ui
