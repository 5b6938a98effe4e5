#include "storage/recordset_private.h"
#include "storage/schema/column_value.h"
#include "storage/transaction.h"

#include <algorithm>

namespace storage {

using namespace Qt::StringLiterals;

namespace {

const QString StampColumn = u"更新日時"_s;

Error goneError()
{
    return {ErrorKind::Gone, u"データは他で変更または削除されています。"_s};
}

} // namespace

bool Recordset::addNew()
{
    if (!d->canChange())
        return false;
    d->forgetChanges();
    d->newRow.assign(static_cast<std::size_t>(d->fields.count()), Value());
    d->stand = Stand::NewRow;
    return true;
}

bool Recordset::setValue(QStringView name, const Value& value)
{
    if (!d->canChange())
        return false;
    d->readIfUnread();
    if (d->stand == Stand::End || d->stand == Stand::Deleted)
        return d->fail(ErrorKind::State, u"現在の行がありません。"_s);
    const int field = fieldIndex(name);
    const schema::Column* column = d->columnOf(field);
    if (!column) {
        return d->fail(ErrorKind::Name,
                       u"フィールド「"_s + name.toString() + u"」が見つかりません。"_s);
    }
    const std::optional<Value> fitting = fitColumn(value, *column);
    const bool renumbers =
        column->type == schema::ColumnType::AutoNumber && d->stand != Stand::NewRow;
    if (!fitting || renumbers) {
        return d->fail(ErrorKind::Type, u"「"_s + column->name + u"」に入れられない値です。"_s);
    }
    d->changes[static_cast<std::size_t>(field)] = *fitting;
    d->hasChanges = true;
    return true;
}

bool Recordset::update()
{
    if (!d->canChange())
        return false;
    if (d->stand == Stand::NewRow)
        return d->append();
    return !d->hasChanges || d->change();
}

void Recordset::cancelUpdate()
{
    d->forgetChanges();
    if (d->stand != Stand::NewRow)
        return;
    if (d->reader->hasRow())
        d->stand = Stand::Row;
    else
        d->stand = d->reader->position() < 0 ? Stand::Unread : Stand::End;
}

bool Recordset::deleteRow()
{
    if (!d->canChange())
        return false;
    d->readIfUnread();
    if (d->stand != Stand::Row && d->stand != Stand::Written)
        return d->fail(ErrorKind::State, u"現在の行がありません。"_s);
    return d->remove();
}

bool Recordset::Private::canChange() const
{
    return connection
        && (!table.name().isEmpty() || fail(ErrorKind::State, u"この行は変更できません。"_s));
}

void Recordset::Private::findTableColumns()
{
    tableColumns.clear();
    if (table.name().isEmpty())
        return;
    for (const sql::ResultColumn& column : std::as_const(compiled.columns))
        tableColumns.push_back(column.table.isEmpty() ? -1 : table.indexOf(column.name));
}

const schema::Column* Recordset::Private::columnOf(int field) const
{
    const int column = field < 0 ? -1 : tableColumns[static_cast<std::size_t>(field)];
    return column < 0 ? nullptr : &table.columns().at(column);
}

// Nothing when the rows bear no stamp, or none was read.
std::optional<Value> Recordset::Private::readStamp() const
{
    const int column = table.indexOf(StampColumn);
    const auto field = std::ranges::find(tableColumns, column);
    if (column < 0 || field == tableColumns.end())
        return {};
    return storedValue(static_cast<int>(field - tableColumns.begin()));
}

QList<std::pair<QString, Value>> Recordset::Private::changedValues() const
{
    QList<std::pair<QString, Value>> values;
    for (int field = 0; field < fields.count(); ++field) {
        if (const auto& changed = changes[static_cast<std::size_t>(field)])
            values.append({columnOf(field)->name, *changed});
    }
    return values;
}

std::vector<Value> Recordset::Private::changedRow() const
{
    std::vector<Value> row;
    for (int field = 0; field < fields.count(); ++field) {
        const auto& changed = changes[static_cast<std::size_t>(field)];
        row.push_back(changed ? *changed : storedValue(field));
    }
    row.push_back(stand == Stand::NewRow ? Value() : address());
    return row;
}

// What is written of the current row, and what of it is read again.
sql::RowWrite Recordset::Private::rowWrite() const
{
    sql::RowWrite row{table.name(), changedValues(), {}};
    for (int field = 0; field < fields.count(); ++field) {
        if (const schema::Column* column = columnOf(field))
            row.returned.append(column->name);
    }
    return row;
}

bool Recordset::Private::append()
{
    std::vector<Value> row = changedRow();
    const auto& dialect = connection->session()->dialect();
    const sql::RowWrite written = rowWrite();
    if (!write(written, sql::insertRow(written, table, dialect), &row))
        return false;
    newRow = std::move(row);
    forgetChanges();
    stand = Stand::Written;
    hasAppended = true;
    return true;
}

bool Recordset::Private::change()
{
    std::vector<Value> row = changedRow();
    const auto& dialect = connection->session()->dialect();
    const sql::RowWrite written = rowWrite();
    if (!write(written, sql::updateRow(written, table, row.back(), readStamp(), dialect), &row))
        return false;
    if (stand == Stand::Row)
        reader->replaceRow(row);
    else
        newRow = std::move(row);
    forgetChanges();
    return true;
}

bool Recordset::Private::remove()
{
    engine::Session& session = *connection->session();
    qint64 affected = 0;
    if (const auto error = session.run(
            sql::deleteRow(table, address(), readStamp(), session.dialect()), &affected))
        return fail(*error);
    if (affected == 0)
        return fail(goneError());
    forgetChanges();
    if (stand == Stand::Row)
        reader->removeRow();
    stand = stand == Stand::Row ? Stand::Deleted : Stand::End;
    return true;
}

// Runs a statement that writes one row, and puts the row as it is in the file then in the place of
// what was written: with its auto-number, its stamp and its address. Fields that no column stands
// behind keep their values. Gone when no row was written.
bool Recordset::Private::write(const sql::RowWrite& written, const sql::Emitted& statement,
                               std::vector<Value>* row)
{
    // The row and what it brings to the lists of texts are one step, and one step to wait for.
    const bool lists = std::ranges::any_of(table.columns(), &schema::Column::isListed);
    std::optional<Transaction> own;
    if ((lists || connection->transactionDepth() == 0) && !own.emplace(*connection).isActive())
        return false;
    using Step = engine::Cursor::Step;
    {
        Error error;
        const auto cursor = connection->session()->prepare(statement, &error);
        if (!cursor)
            return fail(error);
        Step step = cursor->step();
        if (step == Step::Row) {
            int column = 0;
            for (int field = 0; field < fields.count(); ++field) {
                if (columnOf(field)) {
                    (*row)[static_cast<std::size_t>(field)] =
                        cursor->value(column++, compiled.columns.at(field).type);
                }
            }
            row->back() = Value(cursor->integer(column));
            step = cursor->step();
        } else if (step == Step::Done) {
            return fail(goneError());
        }
        if (step == Step::Failed)
            return fail(cursor->error());
    }
    return connection->listTexts(table.name(), written.values) && (!own || own->commit());
}

} // namespace storage
