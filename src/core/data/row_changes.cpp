#include "core/data/row_changes.h"

#include "core/data/clock.h"
#include "core/data/failure.h"
#include "core/data/messages.h"
#include "core/data/record_check.h"
#include "storage/recordset.h"
#include "storage/transaction.h"

using namespace Qt::StringLiterals;

namespace core {

namespace {

bool runSteps(DataFile& file, const ChangeSteps& steps)
{
    storage::Transaction transaction(file.connection);
    return transaction.isActive() && steps() && transaction.commit();
}

// Runs the steps if the row is as it was shown, all under one write lock; nullopt when it is not.
std::optional<bool> runIfUnchanged(DataFile& file, const QString& query, const QString& stamp,
                                   const ChangeSteps& steps)
{
    storage::Transaction transaction(file.connection);
    if (!transaction.isActive())
        return false;
    const std::optional<bool> unchanged = rowStands(file, query, &stamp);
    if (unchanged && !*unchanged)
        return std::nullopt;
    return unchanged && steps() && transaction.commit();
}

// A question is only asked once no lock is held; whoever then says yes means any later state too.
CheckResult runChecked(DataFile& file, const QString& query, const QString& stamp,
                       const ChangeSteps& steps, QStringView failedText)
{
    std::optional<bool> done = runIfUnchanged(file, query, stamp, steps);
    if (!done) {
        const CheckResult check = CheckRecord(file.connection, file.messages, query, stamp);
        if (check != CheckResult::GoOn)
            return check;
        done = runSteps(file, steps);
    }
    if (*done)
        return CheckResult::GoOn;
    tellFailure(file.messages, failedText, file.connection);
    return CheckResult::Failed;
}

} // namespace

SaveResult saveNew(DataFile& file, const ChangeSteps& steps)
{
    if (runSteps(file, steps))
        return SaveResult::Saved;
    tellFailure(file.messages, SaveFailedText, file.connection);
    return SaveResult::Failed;
}

SaveResult saveUnder(DataFile& file, const QString& parentQuery, const ChangeSteps& steps)
{
    bool parentGone = false;
    const bool saved = runSteps(file, [&] {
        const std::optional<bool> found = rowStands(file, parentQuery);
        parentGone = found && !*found;
        return found && *found && steps();
    });
    if (saved)
        return SaveResult::Saved;
    if (parentGone) {
        CheckParent(file.connection, file.messages, parentQuery);
        return SaveResult::NoParent;
    }
    tellFailure(file.messages, SaveFailedText, file.connection);
    return SaveResult::Failed;
}

SaveResult saveChecked(DataFile& file, const QString& query, const QString& stampShown,
                       const ChangeSteps& steps)
{
    switch (runChecked(file, query, stampShown, steps, SaveFailedText)) {
    case CheckResult::GoOn:
        return SaveResult::Saved;
    case CheckResult::Declined:
        return SaveResult::Declined;
    case CheckResult::Gone:
        return SaveResult::Gone;
    case CheckResult::Failed:
        break;
    }
    return SaveResult::Failed;
}

DeleteResult deleteChecked(DataFile& file, const QString& query, const QString& stampShown,
                           const ChangeSteps& steps)
{
    switch (runChecked(file, query, stampShown, steps, DeleteFailedText)) {
    case CheckResult::GoOn:
        return DeleteResult::Deleted;
    case CheckResult::Declined:
        return DeleteResult::Declined;
    case CheckResult::Gone:
        return DeleteResult::Gone;
    case CheckResult::Failed:
        break;
    }
    return DeleteResult::Failed;
}

bool confirmDelete(DataFile& file)
{
    return file.messages.confirm(u"削除しますか？"_s);
}

std::optional<bool> rowStands(DataFile& file, const QString& query, const QString* stamp)
{
    storage::Recordset row;
    if (!row.open(query, file.connection))
        return std::nullopt;
    return !row.eof() && (!stamp || row.text(u"更新日時") == *stamp);
}

FieldValues editedOf(const FieldValues& values, const FieldValues& shown)
{
    FieldValues edited;
    for (qsizetype i = 0; i < values.size(); ++i) {
        if (values.at(i) != shown.value(i))
            edited.append(values.at(i));
    }
    return edited;
}

bool writeRow(DataFile& file, const QString& query, const FieldValues& fields)
{
    storage::Recordset row;
    if (!row.open(query, file.connection, storage::CursorType::Dynamic,
                  storage::LockType::Optimistic)) {
        return false;
    }
    if (row.eof()) {
        return file.connection.fail(
            {storage::ErrorKind::Gone, u"データが見つかりません。"_s, -1, query});
    }
    for (const auto& [column, value] : fields) {
        if (!row.setValue(column, value))
            return false;
    }
    return row.setValue(u"更新日時", storage::Value(file.clock.now())) && row.update();
}

bool touchRow(DataFile& file, const QString& query)
{
    const std::optional<bool> found = rowStands(file, query);
    if (!found || !*found)
        return found.has_value();
    return writeRow(file, query, {{u"最近更新日時"_s, storage::Value(file.clock.now())}});
}

std::optional<qint64> readNumber(DataFile& file, const QString& query, const QString& field)
{
    storage::Recordset row;
    if (!row.open(query, file.connection))
        return std::nullopt;
    return row.eof() ? 0 : row.value(field).toInteger();
}

} // namespace core
