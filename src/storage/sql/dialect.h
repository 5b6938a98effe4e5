#pragma once

#include "storage/schema/catalog.h"

#include <QString>
#include <QStringList>

namespace storage::sql {

// How one engine spells what the emitter needs. All arguments and results are finished expressions
// in the engine's language, which may stand in any order and more than once: parameters are
// numbered.
class Dialect {
public:
    virtual ~Dialect() = default;

    // A parameter by its number, from 1.
    virtual QString parameter(qsizetype number) const
    {
        return QChar(u'?') + QString::number(number);
    }
    virtual QString name(const QString& identifier) const = 0; // quoted
    // What stands for a table in FROM; `alias` is empty where the statement gives it no other name.
    virtual QString source(const schema::Table& table, const QString& alias) const
    {
        const QString own = name(table.name());
        return alias.isEmpty() ? own : own + QStringLiteral(" AS ") + name(alias);
    }
    // The folded text and the sort key of an expression.
    virtual QString fold(const QString& expression) const = 0;
    virtual QString key(const QString& expression) const = 0;
    // Whether keys are bytes that text/collate.h makes as well, so that a range of them can be
    // told.
    virtual bool keysAreBytes() const { return true; }
    // One term of an ORDER BY. Null comes before all values, and behind them when descending: an
    // engine that places it elsewhere says so here.
    virtual QString ordered(const QString& expression, bool descending) const
    {
        return descending ? expression + QStringLiteral(" DESC") : expression;
    }
    // A result's column in one part of a union, for an engine that wants the same type in all of
    // them even where a part gives Null or a literal.
    virtual QString typed(const QString& expression, schema::ColumnType /*type*/) const
    {
        return expression;
    }
    // The pattern as it is bound where like() takes it; `pattern` is one that text/like.h takes.
    virtual QString likePattern(const QString& pattern) const { return pattern; }
    // Like over the texts of `parts` joined one after the other (Null as empty text); one part
    // alone gives Null for Null.
    virtual QString like(const QStringList& parts, const QString& pattern) const = 0;
    // Texts joined, Null as empty text.
    virtual QString join(const QStringList& parts) const = 0;
    // The condition that `tested` lies between two bounds, whichever is the lower one; Null when a
    // bound is Null.
    virtual QString between(const QString& tested, const QString& bound,
                            const QString& other) const = 0;
    // The value as the column keeps it (column_value.h). Where it cannot be kept the statement
    // fails with Type, as misfitMessage() says it; the row is called by `rowLabel` and the number
    // `row`, or not at all when both are empty.
    virtual QString fitted(const QString& expression, const schema::Column& column,
                           const QString& rowLabel, const QString& row) const = 0;
    // The later of `written` and one millisecond after `old`, both date-time texts.
    virtual QString nextStamp(const QString& old, const QString& written) const = 0;
    // The address of a row of the table (or of its alias in a statement).
    virtual QString rowAddress(const schema::Table& table, const QString& alias) const = 0;
    // Whether an address is in a list, which is bound as a text: "[1,2,3]".
    virtual QString isAmong(const QString& address, const QString& list) const = 0;
    // What brings rows that a list leads to (FROM (VALUES …) AS _at LEFT JOIN …) into its order.
    virtual QString inListOrder() const { return QStringLiteral(" ORDER BY _at.column1"); }
    // The expression in a spelling that no index is read for.
    virtual QString unindexed(const QString& expression) const { return expression; }
    // What makes a statement that writes rows give these columns of them back.
    virtual QString returning(const QStringList& columns) const
    {
        return QStringLiteral(" RETURNING ") + columns.join(QStringLiteral(", "));
    }
    // "limit n offset m".
    virtual QString window(qint64 limit, qint64 offset) const = 0;
    // What makes a table, up to its columns.
    virtual QString createTable(const schema::Table& table) const
    {
        return QStringLiteral("CREATE TABLE ") + name(table.name());
    }
    // A column as it stands in CREATE TABLE and ALTER TABLE ADD COLUMN.
    virtual QString columnDefinition(const schema::Column& column, bool isKey) const = 0;
};

} // namespace storage::sql
