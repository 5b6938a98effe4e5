#pragma once

#include <QString>
#include <QStringView>
#include <string>
#include <string_view>

// Folded text is what the system compares: two spellings of one reading (hiragana, katakana, half
// or full width, upper or lower case) fold to the same text. Every character is mapped on its own,
// so fold(a + b) == fold(a) + fold(b) for any two texts; folding twice changes nothing more. Voiced
// kana become the plain kana and a combining mark (U+3099, U+309A). Unpaired surrogates and
// ill-formed UTF-8 bytes become U+FFFD, one for each; nothing here fails or throws.
namespace text {

// Changes whenever the mapping does; kept in data files, whose indexes hold folded text.
int foldVersion();

// The folded text.
QString fold(QStringView text);

// Appends the folded form of a UTF-8 text to a buffer that the caller reuses from row to row.
void appendFolded(std::string_view utf8, std::u16string& out);

// The same for UTF-16.
void appendFolded(QStringView text, std::u16string& out);

// Appends the folded form as UTF-8, whose byte order is the order of code points.
void appendFoldedUtf8(std::string_view utf8, std::string& out);

// Appends well-formed UTF-16 (such as folded text) as UTF-8.
void appendUtf8(std::u16string_view utf16, std::string& out);

// True when the character, in folded text, belongs to the one before it: voiced and semi-voiced
// marks, accents and other combining marks, vowels and finals of Hangul.
bool isMark(char32_t folded);

// Under this form table and column names are looked up: compatibility composition and case folding.
// Unlike fold() it keeps hiragana and katakana apart.
QString foldName(QStringView name);

} // namespace text
