#include "storage/engine/sqlite/cursor.h"

#include "storage/engine/sqlite/busy_wait.h"
#include "storage/engine/sqlite/error.h"
#include "storage/engine/sqlite/functions.h"
#include "storage/engine/sqlite/statement_cache.h"

#include <sqlite3.h>

#include <algorithm>
#include <limits>

namespace storage::engine::sqlite {

namespace {

// A row that is looked at in a join and passed over costs about as many steps.
constexpr qint64 StepsOfARow = 32;
constexpr qint64 MostRowsLimited = std::numeric_limits<int>::max() / StepsOfARow;

int bindBytes(sqlite3_stmt* statement, int index, const QByteArray& bytes)
{
    return sqlite3_bind_blob64(statement, index, bytes.constData(),
                               static_cast<sqlite3_uint64>(bytes.size()), SQLITE_TRANSIENT);
}

// With its length, so that a NUL inside a text does not end it.
int bindText(sqlite3_stmt* statement, int index, const QString& text)
{
    const QByteArray utf8 = text.toUtf8();
    return sqlite3_bind_text64(statement, index, utf8.constData(),
                               static_cast<sqlite3_uint64>(utf8.size()), SQLITE_TRANSIENT,
                               SQLITE_UTF8);
}

int bindValue(sqlite3_stmt* statement, int index, const Value& value)
{
    switch (value.type()) {
    case ValueType::Null:
        return sqlite3_bind_null(statement, index);
    case ValueType::Integer:
        return sqlite3_bind_int64(statement, index, value.toInteger());
    case ValueType::Real:
        return sqlite3_bind_double(statement, index, value.toReal());
    case ValueType::Text:
    case ValueType::DateTime:
        break;
    }
    return bindText(statement, index, value.toText());
}

std::string_view textAt(sqlite3_stmt* statement, int column)
{
    const void* bytes = sqlite3_column_text(statement, column);
    return {static_cast<const char*>(bytes),
            static_cast<std::size_t>(sqlite3_column_bytes(statement, column))};
}

} // namespace

void StatementDeleter::operator()(sqlite3_stmt* statement) const
{
    sqlite3_finalize(statement);
}

Statement prepareText(sqlite3* handle, const QString& text)
{
    const QByteArray utf8 = text.toUtf8();
    const EndOfWait end; // the tables may have to be read first
    sqlite3_stmt* raw = nullptr;
    if (sqlite3_prepare_v2(handle, utf8.constData(), static_cast<int>(utf8.size()), &raw, nullptr)
        != SQLITE_OK)
        return {};
    return Statement(raw);
}

bool bindAll(sqlite3_stmt* statement, const QList<sql::Parameter>& parameters)
{
    int index = 0;
    for (const sql::Parameter& parameter : parameters) {
        ++index;
        int code = SQLITE_MISUSE; // a slot that nobody has filled
        if (const auto* value = std::get_if<Value>(&parameter))
            code = bindValue(statement, index, *value);
        else if (const auto* bytes = std::get_if<QByteArray>(&parameter))
            code = bindBytes(statement, index, *bytes);
        if (code != SQLITE_OK)
            return false;
    }
    return true;
}

Statement prepare(sqlite3* handle, const sql::Emitted& statement)
{
    Statement prepared = prepareText(handle, statement.text);
    return prepared && bindAll(prepared.get(), statement.parameters) ? std::move(prepared)
                                                                     : Statement();
}

SqliteCursor::SqliteCursor(sqlite3* handle, Statement statement)
    : SqliteCursor(handle, std::move(statement), {}, nullptr)
{
}

SqliteCursor::SqliteCursor(sqlite3* handle, Statement statement, QString text,
                           StatementCache* cache)
    : m_handle(handle),
      m_statement(std::move(statement)),
      m_text(std::move(text)),
      m_cache(cache),
      m_columnCount(sqlite3_column_count(m_statement.get()))
{
}

SqliteCursor::~SqliteCursor()
{
    if (m_cache)
        m_cache->keep(m_text, std::move(m_statement));
}

// The engine counts the steps of its machine for as long as a statement is prepared.
void SqliteCursor::limitWork(qint64 rows)
{
    sqlite3_stmt_status(m_statement.get(), SQLITE_STMTSTATUS_VM_STEP, 1);
    m_work = static_cast<int>(std::min(rows, MostRowsLimited) * StepsOfARow);
}

int SqliteCursor::stepLimited() const
{
    sqlite3_progress_handler(
        m_handle, m_work, [](void*) { return 1; }, nullptr);
    const int code = sqlite::step(m_statement.get());
    sqlite3_progress_handler(m_handle, 0, nullptr, nullptr);
    return code;
}

Cursor::Step SqliteCursor::step()
{
    const int code = m_work > 0 ? stepLimited() : sqlite::step(m_statement.get());
    if (code == SQLITE_INTERRUPT && m_work > 0) {
        sqlite3_reset(m_statement.get());
        return Step::Stopped;
    }
    switch (code) {
    case SQLITE_ROW:
        return Step::Row;
    case SQLITE_DONE:
        // A statement left at its end would keep its read lock and start anew when stepped again.
        sqlite3_reset(m_statement.get());
        return Step::Done;
    default:
        m_error = lastError(m_handle);
        if (QString own = ownMessage(m_handle); !own.isEmpty()) {
            m_error.message = std::move(own);
            m_error.details.clear();
        }
        sqlite3_reset(m_statement.get());
        return Step::Failed;
    }
}

qint64 SqliteCursor::integer(int column) const
{
    // Asked first for what it is most times: this is done for each row of a long walk.
    const qint64 number = sqlite3_column_int64(m_statement.get(), column);
    return number == 0 && sqlite3_column_type(m_statement.get(), column) == SQLITE_NULL
        ? sql::NoAddress
        : number;
}

Value SqliteCursor::value(int column, schema::ColumnType type) const
{
    sqlite3_stmt* statement = m_statement.get();
    switch (sqlite3_column_type(statement, column)) {
    case SQLITE_INTEGER:
        return Value(qint64{sqlite3_column_int64(statement, column)});
    case SQLITE_FLOAT:
        return Value(sqlite3_column_double(statement, column));
    case SQLITE_NULL:
        return {};
    default:
        break;
    }
    const std::string_view bytes = textAt(statement, column);
    QString text = QString::fromUtf8(bytes.data(), static_cast<qsizetype>(bytes.size()));
    if (type == schema::ColumnType::DateTime)
        return Value::fromDateTimeText(std::move(text));
    return Value(std::move(text));
}

void SqliteCursor::takeRow(int first, int columns, RowBuffer* rows) const
{
    sqlite3_stmt* statement = m_statement.get();
    for (int column = first; column < first + columns; ++column) {
        switch (sqlite3_column_type(statement, column)) {
        case SQLITE_INTEGER:
            rows->addInteger(sqlite3_column_int64(statement, column));
            break;
        case SQLITE_FLOAT:
            rows->addReal(sqlite3_column_double(statement, column));
            break;
        case SQLITE_NULL:
            rows->addNull();
            break;
        default:
            rows->addText(textAt(statement, column));
        }
    }
}

} // namespace storage::engine::sqlite
