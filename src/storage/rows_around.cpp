#include "storage/rows_around.h"

#include <algorithm>

namespace storage {

namespace {

using engine::Cursor;

// Adds the whole numbers in a statement's first columns; false when it failed.
bool readNumbers(engine::Session& session, const sql::Emitted& statement, qsizetype columns,
                 std::vector<qint64>* numbers)
{
    Error error;
    const auto cursor = session.prepare(statement, &error);
    if (!cursor)
        return false;
    Cursor::Step step = cursor->step();
    for (; step == Cursor::Step::Row; step = cursor->step()) {
        for (int column = 0; column < columns; ++column)
            numbers->push_back(cursor->integer(column));
    }
    return step == Cursor::Step::Done;
}

} // namespace

std::optional<RowsAround> rowsAround(engine::Session& session, const sql::Finding::Place& place,
                                     qint64 address, qint64 window)
{
    const sql::Dialect& dialect = session.dialect();
    std::vector<qint64> isNull;
    if (!readNumbers(session, sql::nullTerms(place, address, dialect), place.terms.size(), &isNull))
        return std::nullopt;
    if (isNull.empty())
        return RowsAround();
    const std::vector<bool> nulls(isNull.begin(), isNull.end());
    std::vector<qint64> counts; // of those before it, and of those like it
    if (!readNumbers(session, sql::countBefore(place, address, nulls, dialect), 2, &counts)
        || counts.back() != 1)
        return std::nullopt;

    const auto beside = [&](sql::Side side) -> std::optional<std::vector<qint64>> {
        std::vector<qint64> found;
        for (sql::Emitted rows : sql::beside(place, address, nulls, side, dialect)) {
            const qint64 wanted = window - static_cast<qint64>(found.size());
            if (wanted <= 0)
                break;
            rows.text += u' ' + dialect.window(wanted, 0);
            if (!readNumbers(session, rows, 1, &found))
                return std::nullopt;
        }
        return found;
    };
    auto before = beside(sql::Side::Before);
    const auto behind = beside(sql::Side::Behind);
    if (!before || !behind)
        return std::nullopt;
    RowsAround around{true, counts.front(), 0, std::move(*before), false};
    const auto near = static_cast<qint64>(around.addresses.size());
    // Another copy may have written since they were counted; fewer than asked for are all of them.
    if (near < window || around.position < near)
        around.position = near;
    around.first = around.position - near;
    std::ranges::reverse(around.addresses);
    around.addresses.push_back(address);
    around.addresses.insert(around.addresses.end(), behind->begin(), behind->end());
    around.reachesEnd = static_cast<qint64>(behind->size()) < window;
    return around;
}

} // namespace storage
