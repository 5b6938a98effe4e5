#pragma once

#include "storage/engine/engine.h"
#include "storage/found_rows.h"
#include "storage/sql/finding.h"

#include <optional>

namespace storage {

// Finds the rows of a SELECT by their addresses, as few as will do:
// - where the condition's own index gives few rows, these are taken and sorted;
// - else the rows are looked at in their order and filtered on the way, under a limit of work;
// - where that finds too little, all rows that the condition lets through are found as they lie,
//   and the list's order is walked once to put them in their places. (Where no index gives the
//   order, they are sorted.)
// What was found so is kept: all pages and the number of rows are known from then on.
class RowFinder {
public:
    // Both outlive it.
    RowFinder(engine::Session& session, const sql::Finding& finding);

    // Finds the rows of a stretch, or as many of them as there are. False when the engine failed
    // (see error()); what was found before then stays.
    bool find(qint64 position, qint64 count);
    // Whether the first rows are better read at once, and within which limit of work (in rows; 0:
    // without one): by the statement as it is written, or by Finding::rowsOnTheWay.
    struct Direct {
        enum Kind { No, AsWritten, OnTheWay } kind = No;
        qint64 workLimit = 0;
    };
    Direct direct(qint64 count);
    // Finds all rows.
    bool findAll();
    // Finds the row whose address in a source is this; its position, -1 when it is not among the
    // rows, nothing when the engine failed. With it are found the rows of the window that it
    // stands in, which will be asked for next.
    std::optional<qint64> findRow(qsizetype source, qint64 address, qint64 window);

    // What is found now: a stretch at least as long as was asked for, or all.
    const FoundRows& rows() const { return m_rows; }
    // All rows are known.
    bool isComplete() const { return m_complete; }
    // The number of all rows, -1 as long as it is not known.
    qint64 total() const { return m_total; }
    const Error& error() const { return m_error; }
    // Takes a row out that is deleted; those behind it move up.
    void remove(qint64 position);

private:
    enum class Outcome { Done, Stopped, Failed };
    // `take` says what becomes of each row (its addresses); false when no further one is wanted.
    template <typename Taker>
    Outcome walk(const sql::Emitted& statement, qsizetype width, qint64 workLimit,
                 const Taker& take);
    bool isLedTo();
    bool goesBeyond(qint64 rows);
    std::optional<qint64> countFiltered(qint64 atMost);
    bool isFew();
    bool findsFew();
    qint64 mostSorted();
    bool isFarOnTheWay(qint64 position, qint64 count);
    qint64 tableRows();
    // The statement that is read in order without sorting; null when there is none.
    const sql::Emitted* wayInOrder();
    bool filtersOnTheWay() const;
    Outcome findOnTheWay(qint64 position, qint64 count);
    bool keepAll(const sql::Emitted& statement);
    std::optional<qint64> findByCounting(qint64 address, qint64 window);
    bool sortFound(const AddressSet& found, qsizetype source);
    bool walkInOrder(AddressSet found, std::optional<qsizetype> source, qint64 end);
    bool findUpTo(qint64 end);
    bool finish();

    engine::Session& m_session;
    const sql::Finding& m_finding;
    FoundRows m_rows;
    bool m_complete = false;
    qint64 m_total = -1;
    std::optional<bool> m_isFew;
    qint64 m_filtered =
        -1; // rows that the condition's own index gives, as far as they were counted
    bool m_triedWays = false;
    const sql::Emitted* m_inOrder = nullptr;
    engine::Way m_way = engine::Way::Sorts; // of m_inOrder
    qint64 m_tableRows = -1;
    bool m_turnedFar = false;
    Error m_error;
};

} // namespace storage
