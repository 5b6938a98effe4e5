#pragma once

#include "storage/base/value.h"

#include <QStringView>

#include <memory>

namespace storage {

class Connection;

enum class CursorType { ForwardOnly = 0, Keyset = 1, Dynamic = 2, Static = 3 };
enum class LockType { ReadOnly = 1, Pessimistic = 2, Optimistic = 3 };

// The rows of a statement or of a table, one current row at a time. A step that fails returns
// false, changes nothing and is recorded in the connection's errors; after a failed move there is
// no current row, so that a walk over all rows ends.
//
// Rows are read in blocks, and nothing is held open between two of them: a recordset that stays
// open keeps nobody from writing. Without a page size they are read forward; with one, a window of
// `cacheSize` rows (the page size unless told otherwise) is read at a time, so that any page of a
// long list costs the rows of that page.
//
// Which rows there are is settled when a result of more than a few dozen rows is opened, and for a
// list whose filter has to search, when its first page is read: a walk meets each row once,
// whatever it writes itself, rows that were deleted meanwhile are passed over, and those that came
// later are not met. What a row holds is read with its block.
class Recordset {
public:
    Recordset();
    ~Recordset(); // closes; a row that was not updated is dropped
    Recordset(const Recordset&) = delete;
    Recordset& operator=(const Recordset&) = delete;

    // Opens on a SELECT statement or on a table's name and stands on the first row, if any; what
    // was open before is closed. With LockType::Optimistic the rows can be changed when they come
    // from one table. A table opened by name for changes is not read before a row is asked for.
    bool open(const QString& source, Connection& connection,
              CursorType cursor = CursorType::ForwardOnly, LockType lock = LockType::ReadOnly);
    // The same with a value for each "?" of the statement, as Connection::execute() takes them.
    bool open(const QString& source, const QList<Value>& values, Connection& connection,
              CursorType cursor = CursorType::ForwardOnly, LockType lock = LockType::ReadOnly);
    void close(); // the page and cache sizes stay
    bool isOpen() const;

    // True at the end, after a failed move, and while closed.
    bool eof() const;
    // The last move came to a row that lies where the file is damaged. It has a position like the
    // others, and those behind it may be readable; its failure is recorded once for all of them.
    bool isUnreadable() const;
    // Steps to the next row; false at the end (eof() is then true) and on failure. A row that was
    // changed but not updated goes back to what it was; from a new row the next one is the end.
    bool moveNext();
    bool moveFirst();

    int fieldCount() const;
    QString fieldName(int index) const;
    // The index of a field by its name, looked up as statements look names up (width and case do
    // not matter), or by "table.column" where a result has one bare name twice; -1 when there is
    // none.
    int fieldIndex(QStringView name) const;
    // The current row's value; Null (and an error, for a name) when there is no such field or row.
    Value value(int index) const;
    Value value(QStringView name) const;
    QString text(QStringView name) const { return value(name).toText(); }

    // Changing: addNew() stands on a fresh row with all fields Null, setValue() changes the row in
    // memory, update() writes it and reads it again, so that an auto-number, the time stamp and
    // converted values can be read from their fields. A value that does not fit its column is
    // refused by setValue() with Type. update() and deleteRow() of an existing row fail with Gone
    // when its 更新日時 is no longer what was read, or the row is no longer there. A new 更新日時
    // is written at least one millisecond after the old one.
    bool addNew();
    bool setValue(QStringView name, const Value& value);
    bool update();
    void cancelUpdate();
    // Afterwards there is no current row until moveNext(), which goes to the one behind it.
    bool deleteRow();

    // How many rows the statement gives: those that were found, where all were, else counted by the
    // engine; -1 on failure.
    qint64 recordCount();

    // Pages, from 1. Set the page size before open() so that only that window is read.
    void setPageSize(int rows);
    int pageSize() const;
    qint64 pageCount();          // 0 without rows or page size, -1 on failure
    qint64 absolutePage() const; // 0 without a row or page size
    // False without an error when the result has no such page; eof() is then true.
    bool setAbsolutePage(qint64 page);
    // Rows from 1; used with a cache size to read any stretch of a long result.
    void setCacheSize(int rows);
    // The position of the row with this key in the order of the rows, 0 when it is not among them,
    // -1 on failure. `keyColumn`: a field that is the key column of one of the statement's tables.
    // The current row stays.
    qint64 positionOf(QStringView keyColumn, const Value& key);
    qint64 absolutePosition() const; // 0 without a row
    // As setAbsolutePage, for a row.
    bool setAbsolutePosition(qint64 row);

private:
    struct Private;
    std::unique_ptr<Private> d;
};

} // namespace storage
