#pragma once

#include "storage/connection.h"
#include "storage/field_names.h"
#include "storage/recordset.h"
#include "storage/row_reader.h"

#include <optional>

namespace storage {

// Where a recordset stands.
enum class Stand {
    Unread,  // opened on a table's name, nothing read yet
    Row,     // on the reader's row
    NewRow,  // on a row that addNew() made and update() has not written yet
    Written, // on the row that update() has appended
    Deleted, // where a row was
    End
};

// What is open. recordset.cpp reads with it, recordset_changes.cpp changes rows.
struct Recordset::Private final : ConnectionUser {
    int pageSize = 0;
    int cacheSize = 0;

    Connection* connection = nullptr; // null while closed
    QString source;
    sql::Compiled compiled;
    FieldNames fields;
    schema::Table table; // whose rows can be changed; without a name when they cannot
    // By field: the table's column behind it, -1 for none. Only when rows can be changed.
    std::vector<int> tableColumns;
    std::unique_ptr<RowReader> reader;
    Stand stand = Stand::End;

    // By field: what setValue() gave the row since it was stood on.
    std::vector<std::optional<Value>> changes;
    bool hasChanges = false;
    bool hasAppended = false; // rows that the reader does not count
    // Of a row that this recordset appended: its values, then its address.
    std::vector<Value> newRow;

    Private() = default;
    ~Private() override { close(); }

    void connectionClosing() override;
    void close();
    bool fail(ErrorKind kind, const QString& message) const;
    bool fail(Error error) const;

    int window() const { return cacheSize > 0 ? cacheSize : pageSize; }
    void readIfUnread();
    bool settle(RowReader::Move move);
    bool moveTo(qint64 position);
    Value storedValue(int field) const;
    void forgetChanges();

    bool canChange() const;
    void findTableColumns();
    const schema::Column* columnOf(int field) const; // null when none stands behind it
    std::optional<Value> readStamp() const;
    Value address() const { return storedValue(static_cast<int>(fields.count())); }
    QList<std::pair<QString, Value>> changedValues() const;
    // The current row's values with the changes in them, then its address (Null for a new row).
    std::vector<Value> changedRow() const;
    bool append();
    bool change();
    bool remove();
    sql::RowWrite rowWrite() const;
    bool write(const sql::RowWrite& written, const sql::Emitted& statement,
               std::vector<Value>* row);
};

} // namespace storage
