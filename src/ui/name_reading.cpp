#include "ui/name_reading.h"

#include "text/width.h"

#include <algorithm>

namespace ui {
namespace {

constexpr qsizetype MostSeen = 500;

bool isItsOwnReading(QChar character)
{
    const char16_t unit = character.unicode();
    return (unit >= 0x3041 && unit <= 0x309C) || (unit >= 0x30A1 && unit <= 0x30FE)
        || (unit >= 0xFF66 && unit <= 0xFF9F) || unit < 0x80 || unit == 0x3000
        || (unit >= 0xFF01 && unit <= 0xFF5E);
}

// What a text that was not converted adds: itself, unless its reading cannot be known.
std::optional<QString> plainReading(const QString& text)
{
    if (!std::all_of(text.begin(), text.end(), isItsOwnReading))
        return std::nullopt;
    return text::toHalfWidthKatakana(text);
}

} // namespace

void NameReading::reset(const QString& name)
{
    m_pieces.clear();
    m_seen.clear();
    if (!name.isEmpty())
        m_pieces.append({name, std::nullopt});
}

QString NameReading::name() const
{
    QString whole;
    for (const Piece& piece : m_pieces)
        whole += piece.name;
    return whole;
}

void NameReading::edited(const QString& name, qsizetype cursor, const std::optional<QString>& kana)
{
    const QString before = this->name();
    m_seen.insert(before, m_pieces);
    if (m_seen.size() > MostSeen)
        m_seen.clear();
    replace(before, name, cursor, kana);
    const auto seen = m_seen.constFind(name);
    const bool isKnown =
        std::ranges::all_of(m_pieces, &std::optional<QString>::has_value, &Piece::kana);
    if (seen != m_seen.cend() && (!kana || !isKnown))
        m_pieces = *seen;
}

void NameReading::replace(const QString& before, const QString& name, qsizetype cursor,
                          const std::optional<QString>& kana)
{
    // What stands behind the cursor was not touched, nor what is the same from the beginning on.
    qsizetype rest = name.size() - cursor;
    if (rest > before.size() || !before.endsWith(QStringView(name).last(rest)))
        rest = 0;
    const qsizetype most = std::min(before.size(), name.size()) - rest;
    qsizetype start = 0;
    while (start < most && before[start] == name[start])
        ++start;
    const QString inserted = name.mid(start, name.size() - rest - start);
    splitAt(start);
    splitAt(before.size() - rest);
    qsizetype place = 0;
    qsizetype index = 0;
    while (index < m_pieces.size() && place < start)
        place += m_pieces[index++].name.size();
    while (index < m_pieces.size() && place < before.size() - rest) {
        place += m_pieces[index].name.size();
        m_pieces.removeAt(index);
    }
    if (!inserted.isEmpty()) {
        m_pieces.insert(
            index, {inserted, kana ? text::toHalfWidthKatakana(*kana) : plainReading(inserted)});
    }
}

void NameReading::splitAt(qsizetype place)
{
    qsizetype start = 0;
    for (qsizetype i = 0; i < m_pieces.size(); ++i) {
        const qsizetype end = start + m_pieces[i].name.size();
        if (place > start && place < end)
            splitPiece(i, place - start);
        start = end;
    }
}

// Kana at either end of a converted piece stand in its reading as they are; of its core nobody
// knows which kana belong to which character.
void NameReading::splitPiece(qsizetype index, qsizetype place)
{
    const Piece whole = m_pieces[index];
    Piece left{whole.name.left(place), std::nullopt};
    Piece right{whole.name.mid(place), std::nullopt};
    const std::optional<QString> leftKana = plainReading(left.name);
    const std::optional<QString> rightKana = plainReading(right.name);
    if (whole.kana && rightKana && whole.kana->endsWith(*rightKana)) {
        right.kana = rightKana;
        left.kana = whole.kana->chopped(rightKana->size());
    } else if (whole.kana && leftKana && whole.kana->startsWith(*leftKana)) {
        left.kana = leftKana;
        right.kana = whole.kana->mid(leftKana->size());
    }
    m_pieces[index] = left;
    m_pieces.insert(index + 1, right);
}

QString NameReading::known() const
{
    QString reading;
    for (const Piece& piece : m_pieces) {
        if (!piece.kana)
            break;
        reading += *piece.kana;
    }
    return reading;
}

} // namespace ui
