#pragma once

#include "storage/base/error.h"
#include "storage/base/value.h"
#include "storage/engine/row_buffer.h"
#include "storage/schema/catalog.h"
#include "storage/schema/definitions.h"
#include "storage/sql/compile.h"
#include "storage/sql/dialect.h"
#include "storage/sql/finding.h"

#include <memory>
#include <optional>

// What an engine gives for data that is open. Failures come back as an Error in engine-neutral
// kinds, nullopt is success.
namespace storage::engine {

// The rows of one prepared statement, read forward.
class Cursor {
public:
    enum class Step { Row, Done, Failed, Stopped };

    virtual ~Cursor() = default;
    virtual Step step() = 0;
    // The statement stops (Step::Stopped) once it has looked at about this many rows, those that it
    // passes over among them.
    virtual void limitWork(qint64 rows) = 0;
    virtual int columnCount() const = 0;
    // A whole number of the current row, an address mostly; sql::NoAddress for Null.
    virtual qint64 integer(int column) const = 0;
    // The current row's value; the column type tells date-times from texts.
    virtual Value value(int column, schema::ColumnType type) const = 0;
    // Adds `columns` values of the current row, from the column `first` on, to the buffer.
    virtual void takeRow(int first, int columns, RowBuffer* rows) const = 0;
    // Why the last step failed.
    virtual Error error() const = 0;
};

// How an engine would read a statement's rows.
enum class Way {
    Sorts,       // it collects them all and sorts them
    WalksGroups, // an index gives the order but for rows that are alike in the first terms
    WalksAll,    // an index gives the order, the condition is looked at on the way
    WalksSome,   // an index gives the order and leads to the rows of the condition
};

// What keeps a file in order, apart from the statements that run on it.
class Upkeep {
public:
    virtual ~Upkeep() = default;

    // Makes all tables, indexes and first rows of a new file.
    virtual std::optional<Error> create(const schema::Definition& definition) = 0;
    // Makes those indexes of the definition that are missing and whose columns are all there; those
    // over folds and keys only while the file's text versions are this program's. For a file of
    // today's format.
    virtual std::optional<Error> completeIndexes(const schema::Definition& definition) = 0;

    // True for a file of the format before today's. It is read and written as it is until
    // convert() brings it to today's, as the only copy that has the file open; all of that or
    // nothing.
    virtual bool hasFormerFormat() const = 0;
    virtual std::optional<Error> convert(const schema::Definition& definition) = 0;

    // True when the file's indexes were made by other versions of fold and collator than this
    // program's, or are left out for that reason.
    virtual bool hasForeignTextIndexes() const = 0;
    // As the only copy that has the file open: makes those indexes anew. Otherwise drops them, so
    // that every copy sorts without them and no copy reads what another version wrote.
    virtual std::optional<Error> renewTextIndexes(bool onlyCopy) = 0;
};

class Session {
public:
    virtual ~Session() = default;

    virtual const sql::Dialect& dialect() const = 0;
    // A statement whose rows are read as far as they are wanted; null when it fails. One that
    // writes rows and gives some of their columns back has written them all when it is Done.
    virtual std::unique_ptr<Cursor> prepare(const sql::Emitted& statement, Error* error) = 0;
    // How the rows of a statement with an order would be read; Sorts when it cannot be told.
    virtual Way wayOf(const sql::Emitted& statement) = 0;
    // Runs a statement to its end; `affected`, unless it is null, receives how many rows it wrote.
    virtual std::optional<Error> run(const sql::Emitted& statement, qint64* affected) = 0;

    // `depth` is 0 for the outermost transaction, which takes the write lock at once, and counts up
    // for savepoints. A commit that fails leaves that level open.
    //
    // A statement that fails inside a transaction undoes itself alone: all that was written before
    // it stands, the transaction goes on and can be committed. (The rules skip a step that fails
    // and go on; an engine that gives a whole transaction up at the first failure sets a savepoint
    // of its own before each statement.) Only where the disk fails may the engine have to undo the
    // whole transaction: then every statement fails with State until the outermost level is rolled
    // back, so that none of the later steps stands without the earlier ones.
    virtual std::optional<Error> begin(int depth) = 0;
    virtual std::optional<Error> commit(int depth) = 0;
    virtual std::optional<Error> rollBack(int depth) = 0;

    // The tables of the file, those whose names begin with "_" left out.
    virtual std::optional<Error> readCatalog(schema::Catalog* catalog) = 0;
    virtual Upkeep& upkeep() = 0;
};

} // namespace storage::engine
