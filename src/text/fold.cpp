#include "text/fold.h"

#include "text/fold_table.h"
#include "text/utf16.h"

#include <QHash>
#include <algorithm>
#include <cstdint>
#include <cstring>
#include <unicode/uchar.h>

namespace text {
namespace {

constexpr int kFoldVersion = 1;
constexpr std::size_t kBlock = 8; // ASCII characters that are folded at a time

// Writes folds behind a buffer's text. The room asked for at the start is enough as long as no fold
// is longer than `room` units for its character; longer ones, which are rare, make more.
class FoldWriter {
public:
    FoldWriter(std::u16string& out, std::size_t room) : m_out(out), m_length(out.size())
    {
        m_out.resize(m_length + room + 1); // write() touches the unit behind a fold of one
        m_end = m_out.data() + m_length;
    }

    ~FoldWriter() { m_out.resize(static_cast<std::size_t>(m_end - m_out.data())); }
    FoldWriter(const FoldWriter&) = delete;
    FoldWriter& operator=(const FoldWriter&) = delete;

    void write(char16_t unit, std::size_t room)
    {
        const auto entry = m_table.entry(unit);
        const auto second = entry >> 16;
        if (second == FoldTable::kLong) {
            writeLong(m_table.longFold(entry), room);
            return;
        }
        // Every other kana is voiced: both units are written in any case, so that nothing has to be
        // guessed about the second.
        m_end[0] = static_cast<char16_t>(entry);
        m_end[1] = static_cast<char16_t>(second);
        m_end += second == 0 ? 1 : 2;
    }

    // A block of ASCII characters, of which only the small letters fold.
    void writeAscii(const char* block)
    {
        for (std::size_t i = 0; i < kBlock; ++i) {
            const auto c = static_cast<unsigned char>(block[i]);
            const bool isSmall = static_cast<unsigned char>(c - 'a') < 26;
            m_end[i] = static_cast<char16_t>(c - (isSmall ? 'a' - 'A' : 0));
        }
        m_end += kBlock;
    }

    void writeSupplementary(char32_t codePoint, std::size_t room)
    {
        if (const auto fold = m_table.supplementary(codePoint); !fold.empty()) {
            writeLong(fold, room);
            return;
        }
        *m_end++ = static_cast<char16_t>(0xD7C0 + (codePoint >> 10));
        *m_end++ = static_cast<char16_t>(0xDC00 + (codePoint & 0x3FF));
    }

private:
    void writeLong(std::u16string_view fold, std::size_t room)
    {
        if (fold.size() > room) {
            const auto written = m_end - m_out.data();
            m_out.resize(m_out.size() + fold.size() - room);
            m_end = m_out.data() + written;
        }
        m_end = std::copy(fold.begin(), fold.end(), m_end);
    }

    const FoldTable& m_table = FoldTable::instance();
    std::u16string& m_out;
    std::size_t m_length;
    char16_t* m_end = nullptr;
};

bool isAsciiBlock(const char* block)
{
    std::uint64_t bits = 0;
    std::memcpy(&bits, block, kBlock);
    return (bits & 0x8080808080808080u) == 0;
}

struct Decoded {
    char32_t codePoint;
    std::size_t bytes;
};

unsigned char byte(std::string_view utf8, std::size_t at)
{
    return static_cast<unsigned char>(utf8[at]);
}

bool isContinuation(unsigned char next)
{
    return (next & 0xC0) == 0x80;
}

// The first character of a text that does not begin with an ASCII one. An ill-formed sequence gives
// U+FFFD for its first byte alone, as QString reads it.
Decoded decode(std::string_view utf8)
{
    constexpr Decoded illFormed{kReplacementCharacter, 1};
    const unsigned char lead = byte(utf8, 0);
    const std::size_t bytes = lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
    if (lead < 0xC2 || lead > 0xF4 || utf8.size() < bytes)
        return illFormed;
    char32_t codePoint = lead & (0x7Fu >> bytes);
    for (std::size_t i = 1; i < bytes; ++i) {
        const unsigned char next = byte(utf8, i);
        if (!isContinuation(next))
            return illFormed;
        codePoint = codePoint << 6 | (next & 0x3Fu);
    }
    constexpr char32_t kSmallest[] = {0, 0, 0x80, 0x800, 0x10000};
    if (codePoint < kSmallest[bytes] || codePoint > 0x10FFFF || isSurrogate(codePoint))
        return illFormed;
    return {codePoint, bytes};
}

void appendFoldedUnits(std::u16string_view text, std::u16string& out)
{
    constexpr std::size_t kRoom = 2; // units of output for each unit of input
    FoldWriter writer(out, text.size() * kRoom);
    for (std::size_t i = 0; i < text.size();) {
        const char32_t c = takeCodePoint(text, i);
        if (c > 0xFFFF)
            writer.writeSupplementary(c, 2 * kRoom);
        else
            writer.write(static_cast<char16_t>(c), kRoom);
    }
}

} // namespace

int foldVersion()
{
    return kFoldVersion;
}

QString fold(QStringView text)
{
    thread_local std::u16string buffer;
    buffer.clear();
    appendFolded(text, buffer);
    return toQString(buffer);
}

void appendFolded(QStringView text, std::u16string& out)
{
    appendFoldedUnits(utf16View(text), out);
}

void appendFolded(std::string_view utf8, std::u16string& out)
{
    // A character of n bytes is given room for n units.
    FoldWriter writer(out, utf8.size());
    while (!utf8.empty()) {
        const unsigned char lead = byte(utf8, 0);
        if (lead < 0x80) {
            if (utf8.size() >= kBlock && isAsciiBlock(utf8.data())) {
                writer.writeAscii(utf8.data());
                utf8.remove_prefix(kBlock);
                continue;
            }
            writer.write(lead, 1);
            utf8.remove_prefix(1);
            continue;
        }
        // Kana and kanji, which most of a text is made of.
        if (lead > 0xE0 && lead < 0xF0 && lead != 0xED && utf8.size() >= 3
            && isContinuation(byte(utf8, 1)) && isContinuation(byte(utf8, 2))) {
            const unsigned unit =
                (lead & 0xFu) << 12 | (byte(utf8, 1) & 0x3Fu) << 6 | (byte(utf8, 2) & 0x3Fu);
            writer.write(static_cast<char16_t>(unit), 3);
            utf8.remove_prefix(3);
            continue;
        }
        const Decoded decoded = decode(utf8);
        if (decoded.codePoint > 0xFFFF)
            writer.writeSupplementary(decoded.codePoint, decoded.bytes);
        else
            writer.write(static_cast<char16_t>(decoded.codePoint), decoded.bytes);
        utf8.remove_prefix(decoded.bytes);
    }
}

void appendFoldedUtf8(std::string_view utf8, std::string& out)
{
    thread_local std::u16string buffer;
    buffer.clear();
    appendFolded(utf8, buffer);
    appendUtf8(buffer, out);
}

void appendUtf8(std::u16string_view utf16, std::string& out)
{
    const std::size_t before = out.size();
    constexpr std::size_t kMostBytesPerUnit = 3;
    out.resize(before + utf16.size() * kMostBytesPerUnit);
    char* end = out.data() + before;
    const auto put = [&end](char32_t bits) { *end++ = static_cast<char>(bits); };
    const auto putTrail = [put](char32_t bits) { put(0x80 | (bits & 0x3F)); };
    for (std::size_t i = 0; i < utf16.size();) {
        const char32_t c = takeCodePoint(utf16, i);
        if (c < 0x80) {
            put(c);
            continue;
        }
        if (c < 0x800) {
            put(0xC0 | c >> 6);
        } else if (c < 0x10000) {
            put(0xE0 | c >> 12);
            putTrail(c >> 6);
        } else {
            put(0xF0 | c >> 18);
            putTrail(c >> 12);
            putTrail(c >> 6);
        }
        putTrail(c);
    }
    out.resize(static_cast<std::size_t>(end - out.data()));
}

bool isMark(char32_t folded)
{
    if (folded == 0x3099 || folded == 0x309A)
        return true; // voiced and semi-voiced mark
    if (folded < 0x300 || (folded >= 0x3041 && folded <= 0xA66E))
        return false;
    if (folded >= 0x1160 && folded <= 0x11FF)
        return true; // Hangul vowels and finals
    return u_getCombiningClass(static_cast<UChar32>(folded)) != 0;
}

QString foldName(QStringView name)
{
    // The same names come again and again.
    constexpr qsizetype MostNames = 4096;
    constexpr qsizetype LongestName = 64;
    thread_local QHash<QString, QString> known;
    const QString key = name.toString();
    const auto found = known.constFind(key);
    if (found != known.constEnd())
        return *found;
    const auto composed = key.normalized(QString::NormalizationForm_KC);
    QString folded = composed.toCaseFolded().normalized(QString::NormalizationForm_KC);
    if (key.size() <= LongestName && known.size() < MostNames)
        known.insert(key, folded);
    return folded;
}

} // namespace text
