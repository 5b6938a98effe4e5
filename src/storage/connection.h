#pragma once

#include "storage/base/error.h"
#include "storage/base/value.h"
#include "storage/engine/location.h"

#include <QList>
#include <QString>
#include <QStringList>

#include <memory>
#include <optional>

namespace storage {

namespace engine {
class Session;
}
namespace schema {
class Catalog;
struct Definition;
} // namespace schema
namespace sql {
struct Compiled;
}

// How a data file is shared with other copies of the program.
enum class Mode { ReadWrite = 3, ShareExclusive = 12 };

// What reads from a connection and has to know what happens to it (the recordsets).
class ConnectionUser {
public:
    virtual ~ConnectionUser() = default;
    // The connection closes: nothing of it may be held any longer.
    virtual void connectionClosing() = 0;
};

// One open data file. Nothing throws: a step that fails changes nothing, returns false and is
// recorded in errors().
class Connection {
public:
    Connection();
    ~Connection(); // closes; an open transaction is rolled back
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;

    // Opens an existing data file and holds its lock shared (ReadWrite) or exclusive
    // (ShareExclusive) until close(). Never creates a file. Fails with Missing, InUse, Unreadable,
    // ReadOnly, Busy, Full, Other, or State when a file is open already.
    bool open(const Location& file, const QString& password, Mode mode = Mode::ReadWrite);
    // Makes a new, encrypted data file of the definition and opens it exclusively. Fails with
    // Exists when it or its "-journal" is there; a file that could not be finished is removed
    // again.
    bool create(const Location& file, const QString& password,
                const schema::Definition& definition);
    // Recordsets that are open on it close, an open transaction is rolled back.
    void close();
    bool isOpen() const;
    QString path() const; // the name that open() was given
    Mode mode() const;

    // Runs one statement. `affected` receives the number of rows written, 0 for a statement that
    // writes none. Rows that a SELECT gives are dropped.
    bool execute(const QString& statement, qint64* affected = nullptr);
    // The same with a value for each "?" in it, in order; fails with State when they are not as
    // many. A value is taken for what it is: one that is compared must be of the other side's type,
    // one that is written is brought to its column's.
    bool execute(const QString& statement, const QList<Value>& values, qint64* affected = nullptr);

    // Transactions nest: the outermost takes the write lock at once (waiting up to ten seconds,
    // then Busy), the inner ones are savepoints. A commit that fails rolls its level back.
    bool begin();
    bool commit();
    bool rollBack();
    int transactionDepth() const;

    // Brings the open file to what this program makes of the definition; called after an upgrade. A
    // file of the former format is converted when no other copy has it open, else it is used as it
    // is. Indexes that a file of today's format lacks are made, as far as their columns are there.
    // On failure the file is as it was and may be used. Only InUse closes it: while its lock was
    // being raised another copy came first.
    bool bringUpToDate(const schema::Definition& definition);

    // All different texts of a column in their order, as they are stored; Null and the empty text
    // are left out. Of a column whose texts the file lists (schema::Column::isListed), this costs a
    // look at the list, in which a text stays when its last row goes. Others are read from all
    // rows. Empty on failure; Name when there is no such column.
    QStringList distinctTexts(const QString& table, const QString& column);

    // The tables and columns of the open file as statements see them (names beginning with "_" are
    // not among them); reread after a statement that changes them.
    const schema::Catalog& catalog() const;

    // What has failed since the last clearErrors(), oldest first.
    const QList<Error>& errors() const { return m_errors; }
    // The last recorded error; an empty one when there is none.
    Error lastError() const;
    void clearErrors() { m_errors.clear(); }
    // Records a failure; used by Recordset and Transaction. Returns false, for `return fail(...)`.
    bool fail(Error error);

    // For the storage room alone.
    // The engine's side; null while closed.
    engine::Session* session() const;
    // Compiles a statement for the open file, with the values for its "?"; records why it is
    // refused.
    bool compile(const QString& statement, const QList<Value>& values, sql::Compiled* compiled);
    bool compile(const QString& statement, sql::Compiled* compiled);
    // Who reads from the connection.
    void addUser(ConnectionUser* user);
    void removeUser(ConnectionUser* user);
    // Takes what a row's values, by canonical column name, bring to the lists of its table's texts;
    // to be called in the transaction that writes the row.
    bool listTexts(const QString& table, const QList<std::pair<QString, Value>>& values);

private:
    struct Private;
    bool adopt(std::unique_ptr<Private> opened);
    bool check(std::optional<Error> error); // records it, if there is one
    bool rereadCatalog();
    bool fill(const QString& statement, const QList<Value>& values, sql::Compiled* compiled);
    bool runWrite(const sql::Compiled& compiled, const QString& statement, qint64* written);

    std::unique_ptr<Private> d;
    QList<ConnectionUser*> m_users;
    QList<Error> m_errors;
};

} // namespace storage
