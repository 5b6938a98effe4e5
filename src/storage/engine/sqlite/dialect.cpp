#include "storage/engine/sqlite/dialect.h"

#include "storage/base/quoted.h"

namespace storage::engine::sqlite {

using namespace Qt::StringLiterals;

namespace {

const QString DateTimeType = u"TEXT_DATETIME"_s; // TEXT in it gives the column text affinity

QString call(const QString& function, const QStringList& arguments)
{
    return function + u'(' + arguments.join(u", "_s) + u')';
}

QString text(const QString& content)
{
    return u'\'' + quoted(content) + u'\'';
}

QString check(const QString& quotedName, const QString& condition)
{
    return u" CONSTRAINT "_s + quotedName + u" CHECK ("_s + condition + u')';
}

} // namespace

QString SqliteDialect::name(const QString& identifier) const
{
    QString quoted;
    quoted.reserve(identifier.size() + 2);
    quoted += u'"';
    quoted += identifier;
    if (identifier.contains(u'"'))
        quoted.replace(1, identifier.size(), QString(identifier).replace(u'"', u"\"\""_s));
    quoted += u'"';
    return quoted;
}

QString SqliteDialect::fold(const QString& expression) const
{
    return call(u"corvane_fold"_s, {expression});
}

QString SqliteDialect::key(const QString& expression) const
{
    return call(u"corvane_key"_s, {expression});
}

QString SqliteDialect::like(const QStringList& parts, const QString& pattern) const
{
    return call(u"corvane_like"_s, QStringList{pattern} + parts);
}

QString SqliteDialect::join(const QStringList& parts) const
{
    return call(u"corvane_join"_s, parts);
}

// Both functions give Null for a Null among their arguments.
QString SqliteDialect::between(const QString& tested, const QString& bound,
                               const QString& other) const
{
    return tested + u" BETWEEN "_s + call(u"min"_s, {bound, other}) + u" AND "_s
        + call(u"max"_s, {bound, other});
}

QString SqliteDialect::fitted(const QString& expression, const schema::Column& column,
                              const QString& rowLabel, const QString& row) const
{
    return call(u"corvane_fitted"_s,
                {expression, QString::number(static_cast<int>(column.type)),
                 QString::number(column.maxLength), text(column.name), text(rowLabel),
                 row.isEmpty() ? u"NULL"_s : row});
}

QString SqliteDialect::nextStamp(const QString& old, const QString& written) const
{
    return call(u"corvane_stamp"_s, {old, written});
}

QString SqliteDialect::rowAddress(const schema::Table& /*table*/, const QString& alias) const
{
    return alias.isEmpty() ? u"_rowid_"_s : alias + u"._rowid_"_s;
}

QString SqliteDialect::isAmong(const QString& address, const QString& list) const
{
    return address + u" IN (SELECT value FROM json_each("_s + list + u"))"_s;
}

QString SqliteDialect::unindexed(const QString& expression) const
{
    return u'+' + expression;
}

QString SqliteDialect::window(qint64 limit, qint64 offset) const
{
    return u"LIMIT "_s + QString::number(limit) + u" OFFSET "_s + QString::number(offset);
}

QString SqliteDialect::columnDefinition(const schema::Column& column, bool isKey) const
{
    const QString quoted = name(column.name);
    switch (column.type) {
    case schema::ColumnType::AutoNumber:
        return quoted + u" INTEGER PRIMARY KEY AUTOINCREMENT"_s;
    case schema::ColumnType::Long:
        if (isKey)
            return quoted + u" INTEGER PRIMARY KEY"_s;
        return quoted + u" INTEGER"_s
            + check(quoted,
                    quoted + u" IS NULL OR typeof("_s + quoted + u") = 'integer' AND "_s + quoted
                        + u" BETWEEN -2147483648 AND 2147483647"_s);
    case schema::ColumnType::Real:
        return quoted + u" REAL"_s
            + check(quoted, u"typeof("_s + quoted + u") IN ('real', 'null')"_s);
    case schema::ColumnType::DateTime:
        return quoted + u' ' + DateTimeType;
    case schema::ColumnType::Text:
        break;
    }
    if (column.maxLength <= 0)
        return quoted + u" TEXT"_s;
    const QString length = QString::number(column.maxLength);
    return quoted + u" TEXT("_s + length + u')'
        + check(quoted, u"length("_s + quoted + u") <= "_s + length);
}

schema::Column columnFromDeclaration(const QString& name, const QString& declaredType,
                                     bool isAutoNumber)
{
    if (isAutoNumber)
        return {name, schema::ColumnType::AutoNumber, 0};
    if (declaredType == u"INTEGER")
        return {name, schema::ColumnType::Long, 0};
    if (declaredType == u"REAL")
        return {name, schema::ColumnType::Real, 0};
    if (declaredType == DateTimeType)
        return {name, schema::ColumnType::DateTime, 0};
    const qsizetype open = declaredType.indexOf(u'(');
    const int length = open < 0 ? 0 : QStringView(declaredType).sliced(open + 1).chopped(1).toInt();
    return {name, schema::ColumnType::Text, length};
}

} // namespace storage::engine::sqlite
