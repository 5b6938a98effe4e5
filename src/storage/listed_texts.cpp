#include "storage/listed_texts.h"

#include "storage/engine/engine.h"
#include "storage/sql/listed_texts.h"

namespace storage {

using engine::Cursor;

std::optional<Error> ListedTexts::add(engine::Session& session, const QString& table,
                                      const QString& column, const Value& text)
{
    const QString written = text.toText();
    const QStringList entry{table, column, written};
    if (written.isEmpty() || m_known.contains(entry))
        return {};
    auto error = session.run(sql::listText(table, column, written, session.dialect()), nullptr);
    if (!error)
        m_known.insert(entry);
    return error;
}

std::optional<Error> ListedTexts::add(engine::Session& session, const schema::Table& table,
                                      const QList<std::pair<QString, Value>>& values)
{
    for (const schema::Column& column : table.columns()) {
        if (!column.isListed)
            continue;
        for (const auto& [name, value] : values) {
            if (name != column.name)
                continue;
            if (auto error = add(session, table.name(), name, value))
                return error;
        }
    }
    return {};
}

std::optional<Error> ListedTexts::run(engine::Session& session, const sql::Compiled& statement,
                                      qint64* affected)
{
    Error error;
    // Read to its end before the list is written to.
    QSet<QStringList> brought;
    {
        const auto cursor = session.prepare(statement.statement, &error);
        if (!cursor)
            return error;
        *affected = 0;
        Cursor::Step step = cursor->step();
        for (; step == Cursor::Step::Row; step = cursor->step()) {
            ++*affected;
            for (int i = 0; i < statement.listed.size(); ++i) {
                const Value text = cursor->value(i, schema::ColumnType::Text);
                brought.insert({statement.writtenTable, statement.listed[i], text.toText()});
            }
        }
        if (step == Cursor::Step::Failed)
            return cursor->error();
    }
    for (const QStringList& entry : std::as_const(brought)) {
        if (auto failure = add(session, entry[0], entry[1], Value(entry[2])))
            return failure;
    }
    return {};
}

std::optional<Error> ListedTexts::read(engine::Session& session, const schema::Table& table,
                                       const schema::Column& column, QStringList* texts)
{
    const sql::Dialect& dialect = session.dialect();
    Error error;
    const auto cursor =
        session.prepare(column.isListed ? sql::listedTexts(table.name(), column.name, dialect)
                                        : sql::distinctTexts(table.name(), column.name, dialect),
                        &error);
    if (!cursor)
        return error;
    Cursor::Step step = cursor->step();
    for (; step == Cursor::Step::Row; step = cursor->step())
        texts->append(cursor->value(0, schema::ColumnType::Text).toText());
    if (step == Cursor::Step::Failed)
        return cursor->error();
    return {};
}

} // namespace storage
