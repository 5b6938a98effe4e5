#pragma once

#include <QString>

#include <span>

namespace storage::schema {

// A further name of a column that folding does not explain.
struct Alias {
    const char16_t* name;
    const char16_t* column;
};

// The further names of a table's columns, by the table's canonical name.
std::span<const Alias> aliasesOf(const QString& table);

} // namespace storage::schema
