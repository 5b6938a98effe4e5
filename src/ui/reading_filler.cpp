#include "ui/reading_filler.h"

#include <QInputMethodEvent>
#include <QLineEdit>

#include <algorithm>
#include <utility>

namespace ui {
namespace {

bool isKana(QChar character)
{
    const char16_t unit = character.unicode();
    const bool fullWidth = (unit >= 0x3041 && unit <= 0x309C) || (unit >= 0x30A1 && unit <= 0x30FE);
    return fullWidth || (unit >= 0xFF66 && unit <= 0xFF9F);
}

// A sign or a digit stands in a reading as it is; a letter is the beginning of a kana.
bool isSign(QChar character)
{
    const char16_t unit = character.unicode();
    return !character.isLetter()
        && (unit < 0x80 || unit == 0x3000 || (unit >= 0xFF01 && unit <= 0xFF5E));
}

// Kana, and signs among them.
bool isReading(QStringView text)
{
    return std::any_of(text.begin(), text.end(), isKana)
        && std::all_of(text.begin(), text.end(),
                       [](QChar character) { return isKana(character) || isSign(character); });
}

// The reading of a conversion in progress. A trailing n waits for its vowel and becomes ん when
// none comes; empty text when the reading cannot be told.
QString readingOf(const QString& composing)
{
    const bool hasN = composing.endsWith(u'n') || composing.endsWith(u'ｎ');
    const QStringView kana = hasN ? QStringView(composing).chopped(1) : QStringView(composing);
    if (!kana.isEmpty() && !isReading(kana))
        return {};
    return hasN ? kana.toString() + u'ん' : kana.toString();
}

} // namespace

ReadingFiller::ReadingFiller(QLineEdit* name, QLineEdit* reading)
    : QObject(name), m_name(name), m_reading(reading)
{
    m_known.reset(m_name->text());
    m_name->installEventFilter(this);
    // Comes before textChanged(), and for the user's own changes alone.
    connect(m_name, &QLineEdit::textEdited, this, &ReadingFiller::nameEdited);
    connect(m_name, &QLineEdit::textChanged, this, &ReadingFiller::nameChanged);
}

bool ReadingFiller::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == m_name && event->type() == QEvent::InputMethod)
        compose(*static_cast<QInputMethodEvent*>(event));
    else if (watched == m_name && event->type() == QEvent::KeyPress)
        m_converted.reset(); // a commit that the field did not take
    return false;
}

// Looks at a step of a conversion before the field does.
void ReadingFiller::compose(const QInputMethodEvent& event)
{
    m_converted.reset();
    if (!event.commitString().isEmpty() && !m_composed.isEmpty())
        m_converted = m_composed;
    const QString& composing = event.preeditString();
    if (!event.commitString().isEmpty() || composing.isEmpty())
        m_composed.clear();
    if (const QString reading = readingOf(composing); !reading.isEmpty())
        m_composed = reading;
}

void ReadingFiller::nameEdited(const QString& text)
{
    m_isEdited = true;
    m_known.edited(text, m_name->cursorPosition(), std::exchange(m_converted, std::nullopt));
    fill();
}

// A name that the program puts in has the reading that it brings along.
void ReadingFiller::nameChanged(const QString& text)
{
    if (std::exchange(m_isEdited, false))
        return;
    m_known.reset(text);
    if (text.isEmpty())
        fill();
    else
        m_filled.clear();
}

void ReadingFiller::fill()
{
    if (m_reading->text().isEmpty())
        m_filled.clear();
    const QString known = m_known.known();
    if (m_reading->text() != m_filled || known == m_filled)
        return;
    m_reading->setText(known);
    m_filled = m_reading->text(); // it may be limited in length
}

} // namespace ui
