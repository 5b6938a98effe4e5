#pragma once

#include <QList>
#include <QString>
#include <QStringList>

#include <memory>
#include <optional>

struct sqlite3;
struct sqlite3_stmt;

namespace bench {

// How rows are read by hand: a statement that gives them or, with `ofRow`, one that gives the
// addresses of their rows, for each of which `ofRow` is run.
struct HandWritten {
    QString statement;
    QString ofRow = {};
};

// A data file in the hands of the bare engine: hand-written statements, nothing of the storage
// surface but the SQL functions that its indexes are made with. Ends the program when a step fails.
class BareFile {
public:
    // An empty password opens an unencrypted file.
    BareFile(const QString& path, const QString& password);

    // Runs a SELECT and copies every value of every row into a QString; gives the number of rows.
    qint64 readAll(const QString& statement) const;
    // Reads the rows in the same manner and gives the number in their first column. nullopt when
    // the engine refuses the statement, or has not done with it after so many milliseconds.
    std::optional<QList<qint64>> read(const HandWritten& rows, double atMost) const;
    // How the engine would go about a statement; empty when it refuses it.
    QString plan(const QString& statement) const;
    // The first number that a statement gives.
    qint64 readNumber(const QString& statement) const;
    // The texts in the first column.
    QStringList texts(const QString& statement) const;

private:
    using Prepared = std::unique_ptr<sqlite3_stmt, int (*)(sqlite3_stmt*)>;
    Prepared prepare(const QString& statement) const;
    struct Closer {
        void operator()(sqlite3* handle) const;
    };
    std::unique_ptr<sqlite3, Closer> m_handle;
};

// Writes an unencrypted copy of a data file.
void writePlainCopy(const QString& path, const QString& password, const QString& copy);

// Ends the program with a message on the standard error.
[[noreturn]] void giveUp(const QString& what);

} // namespace bench
