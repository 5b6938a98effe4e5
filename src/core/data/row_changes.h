#pragma once

#include "core/data/data_file.h"

#include <QString>

#include <functional>
#include <optional>

// How rows are changed: in one transaction, after the record check, and never half.
namespace core {

// What became of a save. The user has been told of all but Saved.
enum class SaveResult {
    Saved,
    Refused,  // a rule about what was entered; the form stays open
    NoParent, // the record that it belongs to is gone; the form stays open
    Declined, // changed elsewhere, and the user does not want to overwrite it; the form closes
    Gone,     // deleted elsewhere; the form closes
    Failed    // the engine refused; nothing was written, the form stays open
};

// What became of a delete. The user has been told of all but Deleted and Kept.
enum class DeleteResult {
    Deleted,
    Kept,     // the user said No
    Declined, // changed elsewhere, and the user does not want to delete it
    Gone,     // deleted elsewhere
    Failed    // the engine refused; nothing was deleted
};

// The steps of a change inside its transaction; false undoes all of them.
using ChangeSteps = std::function<bool()>;

// Appends a row that belongs to no other.
SaveResult saveNew(DataFile& file, const ChangeSteps& steps);
// Appends under a parent that has to be there still: tells the user when it is not.
SaveResult saveUnder(DataFile& file, const QString& parentQuery, const ChangeSteps& steps);
// Changes a row (found by a query) that was shown with this 更新日時. The user is asked when it was
// changed meanwhile, outside the transaction, so that nobody else waits for the answer.
SaveResult saveChecked(DataFile& file, const QString& query, const QString& stampShown,
                       const ChangeSteps& steps);
// The same for deleting, without the question whether to delete.
DeleteResult deleteChecked(DataFile& file, const QString& query, const QString& stampShown,
                           const ChangeSteps& steps);
// Asks 削除しますか？ (style 52).
bool confirmDelete(DataFile& file);

// Whether a query finds a row, and with a stamp: one that has this 更新日時; nullopt when the
// engine cannot say.
std::optional<bool> rowStands(DataFile& file, const QString& query, const QString* stamp = nullptr);
// Those of the values that differ from what was shown (the same columns in the same order): a field
// that was not edited is not rewritten.
FieldValues editedOf(const FieldValues& values, const FieldValues& shown);
// Writes fields and then 更新日時 (the present moment) into the row that a query
// finds. False when there is no such row or the engine refused.
bool writeRow(DataFile& file, const QString& query, const FieldValues& fields);
// Stamps 最近更新日時 and 更新日時 of a row; a row that is not there is no failure.
bool touchRow(DataFile& file, const QString& query);
// A number that a query gives in a field; 0 when there is none, nothing when reading failed.
std::optional<qint64> readNumber(DataFile& file, const QString& query, const QString& field);

} // namespace core
