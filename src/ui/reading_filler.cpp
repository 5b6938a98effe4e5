#include "ui/reading_filler.h"

#include "text/width.h"

#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QLineEdit>

#include <algorithm>

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

// What a text that was not composed from kana adds: itself, unless its reading cannot be known.
QString plainPart(const QString& text)
{
    const bool readable = std::all_of(text.begin(), text.end(), [](QChar character) {
        return isKana(character) || character.unicode() < 0x80 || character == QChar(0x3000)
            || (character.unicode() >= 0xFF01 && character.unicode() <= 0xFF5E);
    });
    return readable ? text : QString();
}

} // namespace

ReadingFiller::ReadingFiller(QLineEdit* name, QLineEdit* reading)
    : QObject(name), m_name(name), m_reading(reading)
{
    m_name->installEventFilter(this);
    connect(m_name, &QLineEdit::textChanged, this, &ReadingFiller::nameChanged);
}

bool ReadingFiller::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == m_name && event->type() == QEvent::InputMethod) {
        compose(*static_cast<QInputMethodEvent*>(event));
    } else if (watched == m_name && event->type() == QEvent::KeyPress) {
        const auto* const key = static_cast<QKeyEvent*>(event);
        const bool types = !key->text().isEmpty() && key->text().front().isPrint()
            && !(key->modifiers() & (Qt::ControlModifier | Qt::AltModifier));
        if (types && !m_name->isReadOnly())
            append(plainPart(key->text()));
    }
    return false;
}

void ReadingFiller::compose(const QInputMethodEvent& event)
{
    if (!event.commitString().isEmpty()) {
        append(m_composed.isEmpty() ? plainPart(event.commitString()) : m_composed);
        m_composed.clear();
    }
    const QString& composing = event.preeditString();
    if (const QString reading = readingOf(composing); !reading.isEmpty())
        m_composed = reading;
    else if (composing.isEmpty())
        m_composed.clear();
}

void ReadingFiller::append(const QString& typed)
{
    if (m_reading->text().isEmpty())
        m_filled.clear();
    if (typed.isEmpty() || m_reading->text() != m_filled)
        return;
    m_filled += text::toHalfWidthKatakana(typed);
    m_reading->setText(m_filled);
    m_filled = m_reading->text(); // it may be limited in length
}

void ReadingFiller::nameChanged(const QString& text)
{
    if (text.isEmpty() && !m_filled.isEmpty() && m_reading->text() == m_filled) {
        m_reading->clear();
        m_filled.clear();
    }
}

} // namespace ui
