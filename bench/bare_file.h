#pragma once

#include <QString>

#include <memory>

struct sqlite3;

namespace bench {

// A data file in the hands of the bare engine: hand-written statements, nothing of the storage
// surface but the SQL functions that its indexes are made with. Ends the program when a step fails.
class BareFile {
public:
    // An empty password opens an unencrypted file.
    BareFile(const QString& path, const QString& password);

    // Runs a SELECT and copies every value of every row into a QString; gives the number of rows.
    qint64 readAll(const QString& statement) const;

private:
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
