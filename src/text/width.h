#pragma once

#include <QString>
#include <QStringView>

// Half-width and full-width spellings.
namespace text {

// Letters, digits, signs, blanks and half-width katakana as full-width characters: "3.1" gives
// "３．１". Other characters stay.
QString toFullWidth(QStringView text);

// Hiragana and katakana, their marks and punctuation as half-width katakana, the ideographic blank
// as a plain one, as readings are kept: "がっこう" gives "ｶﾞｯｺｳ". Other characters stay.
QString toHalfWidthKatakana(QStringView text);

} // namespace text
