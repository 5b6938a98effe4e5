#pragma once

#include "core/data/messages.h"
#include "core/data/record_key.h"
#include "records/data/database.h"
#include "records/data/fields.h"
#include "records/data/keyed_text.h"
#include "records/data/numbering.h"
#include "text/numbers.h"

#include <QDateTime>
#include <QString>
#include <QStringList>

#include <functional>
#include <optional>

// Records of a table: a kind of record is a row of data, and what can be done with one stands here
// once: read, add, change, remove, each in one transaction, after the record check, and never half.
namespace records {

// What becomes of a save. The user has been told of all but Saved.
enum class SaveResult {
    Saved,
    Refused,  // a rule about what was entered; the form stays open
    NoParent, // the record that it belongs to is gone; the form stays open
    Declined, // changed elsewhere, and the user does not want to overwrite it; the form closes
    Gone,     // deleted elsewhere; the form closes
    Failed    // the engine refused; nothing was written, the form stays open
};

// What becomes of a delete. The user has been told of all but Deleted and Kept.
enum class DeleteResult {
    Deleted,
    Kept,     // the user said No
    Declined, // changed elsewhere, and the user does not want to delete it
    Gone,     // deleted elsewhere
    Failed    // the engine refused; nothing was deleted
};

// A record as it was read: its present key and all columns of its row.
struct Record {
    core::RecordKey key;
    FieldValues fields;

    // By the columns' names as the tables define them.
    storage::Value value(QStringView column) const;
    QString text(QStringView column) const { return value(column).toText(); }
    qint64 number(QStringView column) const { return value(column).toInteger(); }
};

// A record that another one belongs to, found by its ID and mark.
struct ParentLink {
    KeyedText query;
    QString idColumn;        // of the child: gets the parent's ID
    QString markColumn = {}; // gets its mark; empty: the child keeps no mark of this parent
    // Further columns of the child, and the parent's columns that they are taken from.
    QList<std::pair<QString, QString>> inherited = {};
};

// Another row that counts as changed with the record (最近更新日時): query + one column of the
// record + clause + another one. A row that is not there is no failure.
struct TouchedRow {
    QString query;
    QString column;
    QString clause;
    QString otherColumn;
};

// What a rule has against the values entered.
struct Refusal {
    QString message;
    QString column; // where it is to be mended
    core::MessageStyle style = core::MessageStyle::Critical;
};

// A column that takes numbers only. They are kept in plain half-width digits.
struct NumberColumn {
    QString column;
    text::NumberForm form = text::NumberForm::Whole;
};

using Refusing = std::function<std::optional<Refusal>(const FieldValues& entered)>;
// Refuses values where one of the columns is empty or holds nothing but blanks.
Refusing blankRefused(const QStringList& columns, const QString& message);

// 最近更新日時 alone, for RecordTable::derived.
FieldValues changedNow(const FieldValues& row, const QDateTime& now);

struct RecordTable {
    QString name; // as it is opened to append
    Numbering numbering;
    QString updateIdColumn;
    QString markColumn;
    QString idColumn;
    KeyedText rowQuery;         // reads the row
    KeyedText deleteQuery = {}; // the same before it is deleted; empty: rowQuery
    QList<ParentLink> parents = {};
    QList<TouchedRow> touched = {};
    Cascade cascade = {};

    QList<NumberColumn> numbers = {};
    // Whether what was entered may be saved; may be empty: everything may.
    Refusing refusal = {};
    // What is written besides: 最近更新日時, and whatever follows from the row as it will stand;
    // may be empty.
    std::function<FieldValues(const FieldValues& row, const QDateTime& now)> derived = {};
};

// The record with its present key; nullopt when it is gone or cannot be read.
std::optional<Record> readRecord(Database& data, const RecordTable& table,
                                 const core::RecordKey& key);
// A record by a statement that gives its row.
std::optional<Record> readRecord(Database& data, const RecordTable& table, const QString& query);
// The same; the user is told why nothing was found.
std::optional<Record> readOrTell(Database& data, const RecordTable& table,
                                 const core::RecordKey& key);

// What the table's rules have against the values; numbers are judged where they were edited.
std::optional<Refusal> refusalOf(const RecordTable& table, const FieldValues& entered,
                                 const FieldValues& edited);

// Appends a record under its parents, whose IDs and marks stand in `parents` in the order of the
// table's. The first parent that is gone is told. `added` receives the record as it was written.
// `shown`: what the user found in the fields, as those of a copy; it is written, but not judged.
SaveResult addRecord(Database& data, const RecordTable& table,
                     const QList<core::RecordKey>& parents, const FieldValues& entered,
                     Record* added = nullptr, const FieldValues& shown = {});
// Changes a record that was shown with this key. Of `entered` only what differs from `shown` is
// written, with what is derived from the row as it will then stand. The user is asked when it was
// changed meanwhile, outside the transaction, so that nobody else waits for the answer.
SaveResult changeRecord(Database& data, const RecordTable& table, const core::RecordKey& key,
                        const FieldValues& entered, const FieldValues& shown,
                        Record* changed = nullptr);
// Writes these fields alone, without what the rules derive; the record check is made.
SaveResult writeFields(Database& data, const RecordTable& table, const core::RecordKey& key,
                       const FieldValues& fields, Record* changed = nullptr);
// The same for several records of a table at once, all or none. The user is asked once when some
// were changed meanwhile, and told once how many are gone; the others are written then.
SaveResult writeFieldsOfAll(Database& data, const RecordTable& table,
                            const QList<core::RecordKey>& keys, const FieldValues& fields);
// Asks `question` and deletes a record that was shown with this key, with all that hangs on it. In
// its questions いいえ is the default button.
DeleteResult removeRecord(Database& data, const RecordTable& table, const core::RecordKey& key,
                          const QString& question = QStringLiteral("削除しますか？"));

} // namespace records
