#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QString>
#include <QStringView>
#include <optional>

// Code page 932 (Windows-31J), the encoding of Japanese text files and of limits given in bytes.
namespace text {

// The length in bytes; a character that the code page lacks counts as one ("?").
qsizetype cp932Length(QStringView text);

// Where the first character stands that the code page lacks (in UTF-16 units), if there is one.
std::optional<qsizetype> firstOutsideCp932(QStringView text);

// The bytes; a character that the code page lacks becomes "?".
QByteArray toCp932(QStringView text);

// The text; bytes that mean nothing become U+FFFD.
QString fromCp932(QByteArrayView bytes);

} // namespace text
