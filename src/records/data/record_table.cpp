#include "records/data/record_table.h"

#include "core/data/clock.h"
#include "core/data/failure.h"
#include "core/data/messages.h"
#include "records/data/record_check.h"
#include "records/data/row_changes.h"
#include "storage/recordset.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace records {

namespace {

const QString GoneOfAll = u" 件のデータは削除されている為、更新できません。"_s;

Record recordOf(const RecordTable& table, const storage::Recordset& row)
{
    Record record{{row.value(table.updateIdColumn).toInteger(),
                   row.value(table.markColumn).toInteger(), row.value(table.idColumn).toInteger(),
                   row.text(u"更新日時")},
                  {}};
    for (int field = 0; field < row.fieldCount(); ++field)
        record.fields.append({row.fieldName(field), row.value(field)});
    return record;
}

// What the record keeps of a parent that is there; nullopt when it is gone (`gone`) or cannot be
// read.
std::optional<FieldValues> keptOf(Database& data, const ParentLink& link,
                                  const core::RecordKey& parent, bool* gone)
{
    storage::Recordset row;
    if (!row.open(link.query.with(parent), data.connection))
        return std::nullopt;
    *gone = row.eof();
    if (*gone)
        return std::nullopt;
    FieldValues kept;
    if (!link.markColumn.isEmpty())
        kept.append({link.markColumn, parent.mark});
    kept.append({link.idColumn, parent.id});
    for (const auto& [column, ofParent] : link.inherited)
        kept.append({column, row.value(ofParent)});
    return kept;
}

bool touch(Database& data, const RecordTable& table, const Record& record)
{
    return std::ranges::all_of(table.touched, [&](const TouchedRow& row) {
        return touchRow(
            data, row.query + record.text(row.column) + row.clause + record.text(row.otherColumn));
    });
}

// A change of one record under one write lock: the row is read once, compared with what was shown,
// and written. Gives how the row stood; `failed` when it could not be read or written.
using RowSteps = std::function<bool(storage::Recordset& row)>;

RecordState runOnRow(Database& data, const QString& query, const QString* stampShown, bool* done,
                     const RowSteps& steps)
{
    RecordState state = RecordState::Unchanged;
    *done = runSteps(data, [&] {
        storage::Recordset row;
        if (!row.open(query, data.connection, storage::CursorType::Dynamic,
                      storage::LockType::Optimistic))
            return false;
        const bool meansAny = !stampShown && !row.eof(); // the user said yes to any later state
        state =
            meansAny ? RecordState::Unchanged : stateOf(row, stampShown ? *stampShown : QString());
        return state == RecordState::Unchanged && steps(row);
    });
    return state;
}

// A question is only asked once no lock is held; whoever then says yes means any later state too.
struct Ran {
    CheckResult check = CheckResult::GoOn;
    bool done = false;
};

Ran runChecked(Database& data, const QString& query, const QString& stampShown,
               QStringView failedText, const RowSteps& steps,
               core::DefaultButton button = core::DefaultButton::First)
{
    Ran ran;
    const QString* stamp = &stampShown;
    for (;;) {
        const RecordState state = runOnRow(data, query, stamp, &ran.done, steps);
        if (state == RecordState::Unchanged)
            break;
        ran.check = askAbout(data.messages, state, button);
        if (ran.check != CheckResult::GoOn)
            return ran;
        stamp = nullptr;
    }
    if (!ran.done)
        core::tellFailure(data.messages, failedText, data.connection);
    return ran;
}

SaveResult saveResultOf(const Ran& ran)
{
    if (ran.check == CheckResult::Declined)
        return SaveResult::Declined;
    if (ran.check == CheckResult::Gone)
        return SaveResult::Gone;
    return ran.done ? SaveResult::Saved : SaveResult::Failed;
}

DeleteResult deleteResultOf(const Ran& ran)
{
    if (ran.check == CheckResult::Declined)
        return DeleteResult::Declined;
    if (ran.check == CheckResult::Gone)
        return DeleteResult::Gone;
    return ran.done ? DeleteResult::Deleted : DeleteResult::Failed;
}

bool setAll(storage::Recordset& row, const FieldValues& fields)
{
    return std::ranges::all_of(
        fields, [&row](const auto& field) { return row.setValue(field.first, field.second); });
}

const NumberColumn* numberColumn(const RecordTable& table, const QString& column)
{
    const auto found = std::ranges::find(table.numbers, column, &NumberColumn::column);
    return found == table.numbers.cend() ? nullptr : &*found;
}

// Numbers as they are kept; the other values as they are.
FieldValues keptForm(const RecordTable& table, FieldValues values)
{
    for (auto& [column, value] : values) {
        if (const NumberColumn* const number = numberColumn(table, column))
            value = text::plainNumber(value.toText(), number->form).value_or(value.toText());
    }
    return values;
}

// The database as one save sees it: all that it stamps gets one moment, read under its lock.
struct OneSave {
    explicit OneSave(const Database& data)
        : moment(data.clock), at{data.messages, moment, data.connection}
    {
    }

    core::StandingClock moment;
    Database at;
};

// Tells the user what is wrong with the values, if anything is.
bool isRefused(Database& data, const RecordTable& table, const FieldValues& entered,
               const FieldValues& edited)
{
    const std::optional<Refusal> refusal = refusalOf(table, entered, edited);
    if (refusal) {
        data.messages.show(refusal->style, refusal->message,
                           QString::fromUtf16(core::AppTitleText));
    }
    return refusal.has_value();
}

FieldValues derivedOf(Database& data, const RecordTable& table, const FieldValues& row)
{
    return table.derived ? table.derived(row, data.clock.now()) : FieldValues{};
}

} // namespace

storage::Value Record::value(QStringView column) const
{
    const auto found = std::ranges::find(
        fields, column, [](const auto& field) { return QStringView(field.first); });
    Q_ASSERT(found != fields.cend());
    return found == fields.cend() ? storage::Value() : found->second;
}

Refusing blankRefused(const QStringList& columns, const QString& message)
{
    return [columns, message](const FieldValues& entered) -> std::optional<Refusal> {
        for (const QString& column : columns) {
            if (fieldText(entered, column).trimmed().isEmpty()) // the ideographic blank too
                return Refusal{message, column};
        }
        return std::nullopt;
    };
}

FieldValues changedNow(const FieldValues& /*row*/, const QDateTime& now)
{
    return {{u"最近更新日時"_s, now}};
}

std::optional<Record> readRecord(Database& data, const RecordTable& table, const QString& query)
{
    storage::Recordset row;
    if (!row.open(query, data.connection) || row.eof())
        return std::nullopt;
    return recordOf(table, row);
}

std::optional<Record> readRecord(Database& data, const RecordTable& table,
                                 const core::RecordKey& key)
{
    return readRecord(data, table, table.rowQuery.with(key));
}

std::optional<Record> readOrTell(Database& data, const RecordTable& table,
                                 const core::RecordKey& key)
{
    return readOrTell(data, [&] { return readRecord(data, table, key); });
}

std::optional<Refusal> refusalOf(const RecordTable& table, const FieldValues& entered,
                                 const FieldValues& edited)
{
    if (const std::optional<Refusal> refusal =
            table.refusal ? table.refusal(entered) : std::nullopt)
        return refusal;
    for (const auto& [column, value] : edited) {
        const NumberColumn* const number = numberColumn(table, column);
        if (number && !text::plainNumber(value.toText(), number->form)) {
            return Refusal{u"数字のみ入力して下さい。"_s, column, core::MessageStyle::Exclamation};
        }
    }
    return std::nullopt;
}

SaveResult addRecord(Database& data, const RecordTable& table,
                     const QList<core::RecordKey>& parents, const FieldValues& entered,
                     Record* added, const FieldValues& shown)
{
    if (isRefused(data, table, entered, editedOf(entered, shown)))
        return SaveResult::Refused;
    Q_ASSERT(parents.size() == table.parents.size());
    bool parentGone = false;
    Record record;
    const bool saved = runSteps(data, [&] {
        OneSave save(data);
        // A record without parents is this system's own: its mark is 0.
        FieldValues values;
        if (table.parents.isEmpty())
            values.append({table.markColumn, 0});
        for (qsizetype i = 0; i < table.parents.size(); ++i) {
            const auto kept = keptOf(data, table.parents.at(i), parents.at(i), &parentGone);
            if (!kept)
                return false;
            values += *kept;
        }
        values += keptForm(table, entered);
        values += derivedOf(save.at, table, values);
        return appendNumbered(save.at, table.name, table.numbering, table.idColumn, values,
                              [&](const auto& row) { record = recordOf(table, row); })
            && touch(save.at, table, record);
    });
    if (saved) {
        if (added)
            *added = record;
        return SaveResult::Saved;
    }
    if (parentGone) {
        tellParentGone(data.messages);
        return SaveResult::NoParent;
    }
    core::tellFailure(data.messages, core::SaveFailedText, data.connection);
    return SaveResult::Failed;
}

SaveResult changeRecord(Database& data, const RecordTable& table, const core::RecordKey& key,
                        const FieldValues& entered, const FieldValues& shown, Record* changed)
{
    const FieldValues edited = editedOf(entered, shown);
    if (isRefused(data, table, entered, edited))
        return SaveResult::Refused;
    const FieldValues written = keptForm(table, edited);
    return saveResultOf(runChecked(
        data, table.rowQuery.with(key), key.stamp, core::SaveFailedText,
        [&](storage::Recordset& row) {
            OneSave save(data);
            if (!setAll(row, written)
                || !putFields(save.at, row, derivedOf(save.at, table, recordOf(table, row).fields))
                || !row.update())
                return false;
            const Record after = recordOf(table, row);
            if (changed)
                *changed = after;
            return touch(save.at, table, after);
        }));
}

SaveResult writeFields(Database& data, const RecordTable& table, const core::RecordKey& key,
                       const FieldValues& fields, Record* changed)
{
    return saveResultOf(runChecked(data, table.rowQuery.with(key), key.stamp, core::SaveFailedText,
                                   [&](storage::Recordset& row) {
                                       if (!putFields(data, row, fields) || !row.update())
                                           return false;
                                       if (changed)
                                           *changed = recordOf(table, row);
                                       return true;
                                   }));
}

SaveResult writeFieldsOfAll(Database& data, const RecordTable& table,
                            const QList<core::RecordKey>& keys, const FieldValues& fields)
{
    bool anyState = false;
    for (;;) {
        bool changed = false;
        int gone = 0;
        const bool done = runSteps(data, [&] {
            for (const core::RecordKey& key : keys) {
                storage::Recordset row;
                if (!row.open(table.rowQuery.with(key), data.connection,
                              storage::CursorType::Dynamic, storage::LockType::Optimistic))
                    return false;
                const RecordState state = stateOf(row, key.stamp);
                gone += state == RecordState::Gone ? 1 : 0;
                changed = changed || state == RecordState::Changed;
                if (changed && !anyState)
                    return false; // is asked about first
                if (state != RecordState::Gone && !(putFields(data, row, fields) && row.update()))
                    return false;
            }
            return true;
        });
        if (!done && changed && !anyState) {
            const CheckResult check = askAbout(data.messages, RecordState::Changed);
            if (check != CheckResult::GoOn)
                return SaveResult::Declined;
            anyState = true;
            continue;
        }
        if (!done)
            core::tellFailure(data.messages, core::SaveFailedText, data.connection);
        else if (gone > 0)
            data.messages.warn(QString::number(gone) + GoneOfAll);
        return done ? SaveResult::Saved : SaveResult::Failed;
    }
}

DeleteResult removeRecord(Database& data, const RecordTable& table, const core::RecordKey& key,
                          const QString& question)
{
    if (!data.messages.confirm(question, core::DefaultButton::No))
        return DeleteResult::Kept;
    const KeyedText& query = table.deleteQuery.text.isEmpty() ? table.rowQuery : table.deleteQuery;
    return deleteResultOf(runChecked(
        data, query.with(key), key.stamp, core::DeleteFailedText,
        [&](storage::Recordset& row) {
            const Record before = recordOf(table, row);
            OneSave save(data);
            return runCascade(data, table.cascade, key) && touch(save.at, table, before);
        },
        core::DefaultButton::No));
}

} // namespace records
