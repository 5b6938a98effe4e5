#include "storage/recordset.h"

#include "storage/recordset_private.h"
#include "storage/schema/catalog.h"

namespace storage {

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype LongestTableName = 64;

} // namespace

Recordset::Recordset() : d(std::make_unique<Private>()) {}

Recordset::~Recordset() = default;

bool Recordset::open(const QString& source, Connection& connection, CursorType cursor,
                     LockType lock)
{
    return open(source, QList<Value>(), connection, cursor, lock);
}

bool Recordset::open(const QString& source, const QList<Value>& values, Connection& connection,
                     CursorType /*cursor*/, LockType lock)
{
    close();
    const QStringView trimmed = QStringView(source).trimmed();
    const bool mayBeName = trimmed.size() <= LongestTableName && !trimmed.contains(u' ');
    const schema::Table* named = mayBeName ? connection.catalog().find(trimmed) : nullptr;
    const QString statement = named ? u"SELECT * FROM ["_s + named->name() + u']' : source;
    sql::Compiled compiled;
    if (!connection.compile(statement, values, &compiled))
        return false;
    if (compiled.kind != sql::StatementKind::Rows) {
        return connection.fail(
            {ErrorKind::State, u"行を返さない文は開けません。"_s, -1, statement});
    }
    const schema::Table* table = compiled.updatableTable.isEmpty()
        ? nullptr
        : connection.catalog().find(compiled.updatableTable);
    d->fields = FieldNames(compiled.columns, table);
    d->table = table && lock != LockType::ReadOnly ? *table : schema::Table();
    d->compiled = std::move(compiled);
    d->findTableColumns();
    d->source = statement;
    d->connection = &connection;
    d->reader = std::make_unique<RowReader>(connection, d->compiled, statement, d->window());
    d->changes.assign(static_cast<std::size_t>(d->fields.count()), std::nullopt);
    connection.addUser(d.get());

    d->stand = Stand::Unread;
    if (named && !d->table.name().isEmpty())
        return true;
    const RowReader::Move move = d->reader->moveTo(0);
    d->settle(move);
    const bool failed = move == RowReader::Move::Failed && !d->reader->isUnreadable();
    if (failed)
        close();
    return !failed;
}

void Recordset::close()
{
    d->close();
}

bool Recordset::isOpen() const
{
    return d->connection != nullptr;
}

bool Recordset::eof() const
{
    d->readIfUnread();
    return d->stand == Stand::End;
}

bool Recordset::isUnreadable() const
{
    return isOpen() && d->stand == Stand::End && d->reader->isUnreadable();
}

bool Recordset::moveNext()
{
    if (!isOpen())
        return false;
    d->readIfUnread();
    d->forgetChanges();
    switch (d->stand) {
    case Stand::Row:
    case Stand::Deleted:
        return d->settle(d->reader->moveNext());
    default:
        d->stand = Stand::End;
        return false;
    }
}

bool Recordset::moveFirst()
{
    return isOpen() && d->moveTo(0);
}

int Recordset::fieldCount() const
{
    return static_cast<int>(d->fields.count());
}

QString Recordset::fieldName(int index) const
{
    return index >= 0 && index < fieldCount() ? d->fields.name(index) : QString();
}

int Recordset::fieldIndex(QStringView name) const
{
    return d->fields.find(name);
}

Value Recordset::value(int index) const
{
    if (index < 0 || index >= fieldCount())
        return {};
    if (d->stand == Stand::Row && !d->hasChanges) // nearly always
        return d->reader->value(index);
    d->readIfUnread();
    if (d->hasChanges) {
        if (const auto& changed = d->changes[static_cast<std::size_t>(index)])
            return *changed;
    }
    return d->storedValue(index);
}

Value Recordset::value(QStringView name) const
{
    const int index = fieldIndex(name);
    if (index >= 0 && !eof() && d->stand != Stand::Deleted)
        return value(index);
    if (isOpen() && index < 0) {
        d->fail(ErrorKind::Name, u"フィールド「"_s + name.toString() + u"」が見つかりません。"_s);
    } else if (isOpen()) {
        d->fail(ErrorKind::State, u"現在の行がありません。"_s);
    }
    return {};
}

qint64 Recordset::recordCount()
{
    if (!isOpen())
        return -1;
    const qint64 known = d->hasAppended ? -1 : d->reader->count();
    if (known >= 0)
        return known;
    Error error;
    const auto cursor = d->connection->session()->prepare(d->compiled.count, &error);
    if (cursor && cursor->step() == engine::Cursor::Step::Row)
        return cursor->value(0, schema::ColumnType::Long).toInteger();
    d->fail(cursor ? cursor->error() : error);
    return -1;
}

void Recordset::setPageSize(int rows)
{
    d->pageSize = std::max(rows, 0);
    setCacheSize(d->cacheSize);
}

int Recordset::pageSize() const
{
    return d->pageSize;
}

qint64 Recordset::pageCount()
{
    if (d->pageSize == 0)
        return 0;
    const qint64 rows = recordCount();
    return rows < 0 ? -1 : (rows + d->pageSize - 1) / d->pageSize;
}

qint64 Recordset::absolutePage() const
{
    const qint64 row = absolutePosition();
    return d->pageSize > 0 && row > 0 ? (row - 1) / d->pageSize + 1 : 0;
}

bool Recordset::setAbsolutePage(qint64 page)
{
    if (isOpen() && (d->pageSize == 0 || page < 1))
        return d->fail(ErrorKind::State, u"ページ番号が正しくありません。"_s);
    return isOpen() && d->moveTo((page - 1) * d->pageSize);
}

void Recordset::setCacheSize(int rows)
{
    d->cacheSize = std::max(rows, 0);
    if (d->reader && d->window() > 0)
        d->reader->setWindow(d->window());
}

qint64 Recordset::positionOf(QStringView keyColumn, const Value& key)
{
    if (!isOpen())
        return -1;
    const sql::Finding* const finding = d->reader->finding();
    const int field = fieldIndex(keyColumn);
    if (!finding || field < 0) {
        d->fail(ErrorKind::Name, u"「"_s + keyColumn.toString() + u"」では行を探せません。"_s);
        return -1;
    }
    const sql::ResultColumn& column = d->compiled.columns.at(field);
    for (qsizetype source = 0; source < finding->sources.size(); ++source) {
        const sql::Finding::Source& each = finding->sources.at(source);
        if (each.name != column.table || each.key != column.name)
            continue;
        const std::optional<qint64> found = d->reader->find(source, key.toInteger());
        return found ? *found + 1 : -1;
    }
    d->fail(ErrorKind::Name, u"「"_s + keyColumn.toString() + u"」では行を探せません。"_s);
    return -1;
}

qint64 Recordset::absolutePosition() const
{
    d->readIfUnread();
    return d->stand == Stand::Row ? d->reader->position() + 1 : 0;
}

bool Recordset::setAbsolutePosition(qint64 row)
{
    if (isOpen() && row < 1)
        return d->fail(ErrorKind::State, u"行番号が正しくありません。"_s);
    return isOpen() && d->moveTo(row - 1);
}

// Private: opening and reading.

void Recordset::Private::connectionClosing()
{
    connection = nullptr; // and so it is not told of what follows
    close();
}

void Recordset::Private::close()
{
    if (connection)
        connection->removeUser(this);
    connection = nullptr;
    reader.reset();
    stand = Stand::End;
    fields = {};
    table = {};
    newRow.clear();
    changes.clear();
    hasChanges = false;
    hasAppended = false;
}

bool Recordset::Private::fail(ErrorKind kind, const QString& message) const
{
    return fail(Error{kind, message});
}

bool Recordset::Private::fail(Error error) const
{
    if (error.statement.isEmpty())
        error.statement = source;
    return connection->fail(std::move(error));
}

void Recordset::Private::readIfUnread()
{
    if (stand == Stand::Unread)
        settle(reader->moveTo(0));
}

bool Recordset::Private::settle(RowReader::Move move)
{
    stand = move == RowReader::Move::Row ? Stand::Row : Stand::End;
    return stand == Stand::Row;
}

bool Recordset::Private::moveTo(qint64 position)
{
    forgetChanges();
    return settle(reader->moveTo(position));
}

Value Recordset::Private::storedValue(int field) const
{
    switch (stand) {
    case Stand::Row:
        return reader->value(field);
    case Stand::NewRow:
    case Stand::Written:
        return newRow[static_cast<std::size_t>(field)];
    default:
        return {};
    }
}

void Recordset::Private::forgetChanges()
{
    if (!hasChanges)
        return;
    std::ranges::fill(changes, std::nullopt);
    hasChanges = false;
}

} // namespace storage
