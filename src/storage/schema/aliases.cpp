#include "storage/schema/aliases.h"

#include <array>

using namespace Qt::StringLiterals;

namespace storage::schema {
namespace {

// The lists sort repairs by their maker under this shorter name.
constexpr std::array kRepairs{Alias{u"ﾒｰｶｰ", u"メーカー名"}};

} // namespace

std::span<const Alias> aliasesOf(const QString& table)
{
    return table == u"修理"_s ? std::span<const Alias>(kRepairs) : std::span<const Alias>();
}

} // namespace storage::schema
