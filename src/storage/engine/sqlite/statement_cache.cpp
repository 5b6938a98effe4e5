#include "storage/engine/sqlite/statement_cache.h"

#include <sqlite3.h>

#include <algorithm>

namespace storage::engine::sqlite {

namespace {

constexpr std::size_t MostKept = 32;

} // namespace

Statement StatementCache::take(const QString& text)
{
    const auto found = std::ranges::find(m_kept, text, &Kept::text);
    if (found == m_kept.end())
        return {};
    Statement statement = std::move(found->statement);
    m_kept.erase(found);
    return statement;
}

void StatementCache::keep(const QString& text, Statement statement)
{
    // Neither a lock nor a value stays with it.
    sqlite3_reset(statement.get());
    sqlite3_clear_bindings(statement.get());
    m_kept.push_front({text, std::move(statement)});
    if (m_kept.size() > MostKept)
        m_kept.pop_back();
}

} // namespace storage::engine::sqlite
