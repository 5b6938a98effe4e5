#pragma once

#include <QString>
#include <QStringView>
#include <cstddef>
#include <string>
#include <string_view>

// Code points in UTF-16.
namespace text {

// Stands for what is no character.
constexpr char32_t kReplacementCharacter = 0xFFFD;

inline std::u16string_view utf16View(QStringView text)
{
    return {text.utf16(), static_cast<std::size_t>(text.size())};
}

constexpr bool isLeadSurrogate(char32_t c)
{
    return (c & 0xFFFFFC00) == 0xD800;
}

constexpr bool isTrailSurrogate(char32_t c)
{
    return (c & 0xFFFFFC00) == 0xDC00;
}

constexpr bool isSurrogate(char32_t c)
{
    return (c & 0xFFFFF800) == 0xD800;
}

// QString::fromUtf16 and fromUcs4 would take a first U+FEFF or U+FFFE for a byte order mark.
inline QString toQString(std::u16string_view text)
{
    return QStringView(text).toString();
}

inline QString toQString(char32_t c)
{
    return QStringView(QChar::fromUcs4(c)).toString();
}

// The code point at `at`, which moves behind it; an unpaired surrogate is given as it is.
inline char32_t takeCodePoint(std::u16string_view text, std::size_t& at)
{
    const char32_t first = text[at++];
    if (!isLeadSurrogate(first) || at == text.size() || !isTrailSurrogate(text[at]))
        return first;
    return 0x10000 + ((first & 0x3FF) << 10) + (text[at++] & 0x3FFu);
}

inline char32_t codePointAt(std::u16string_view text, std::size_t at)
{
    return takeCodePoint(text, at);
}

inline void appendCodePoint(char32_t c, std::u16string& out)
{
    if (c <= 0xFFFF) {
        out += static_cast<char16_t>(c);
    } else {
        out += static_cast<char16_t>(0xD7C0 + (c >> 10));
        out += static_cast<char16_t>(0xDC00 + (c & 0x3FF));
    }
}

} // namespace text
