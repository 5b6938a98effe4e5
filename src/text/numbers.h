#pragma once

#include <QString>
#include <QStringView>

#include <optional>

// Numbers as people type and paste them.
namespace text {

enum class NumberForm {
    Whole,  // fits a 32-bit whole number
    Decimal // at most 15 digits, with or without a decimal point
};

// A number in plain half-width digits: sign, thousands commas in groups of three, a decimal point
// and full-width characters are understood. "１，２００" gives "1200", "+5" gives "5", and as a
// whole number "5.0" gives "5". Nothing for text that is no number of the form: "", "12a", "1.5" as
// a whole number, one that is too large.
std::optional<QString> plainNumber(QStringView text, NumberForm form);

} // namespace text
