#include "storage/sql/written.h"

#include "storage/schema/definitions.h"
#include "storage/sql/compile.h"

#include <map>

using namespace Qt::StringLiterals;

namespace storage::sql::test {
namespace {

QString shown(const Parameter& parameter)
{
    const auto* value = std::get_if<Value>(&parameter);
    if (!value)
        return u"K"_s;
    if (value->type() == ValueType::Text)
        return u'\'' + value->toText() + u'\'';
    if (value->type() == ValueType::DateTime)
        return u'#' + value->toText() + u'#';
    return value->toText();
}

QString shown(const Emitted& emitted)
{
    QString text = emitted.text;
    for (qsizetype i = 0; i < emitted.parameters.size(); ++i)
        text.replace(PaperDialect().parameter(i + 1), shown(emitted.parameters[i]));
    return text;
}

QString shown(const Error& error)
{
    return u"! "_s + QString::number(error.position) + u' ' + error.message;
}

schema::Definition definitionOf(const QString& database)
{
    const bool old = database.endsWith(u"300");
    const auto version = old ? schema::Version::V300 : schema::Version::V311;
    if (database.startsWith(u"main"))
        return schema::mainDatabase(version);
    return database.startsWith(u"customer") ? schema::customerFile(version)
                                            : schema::repairFile(version);
}

} // namespace

QString PaperDialect::parameter(qsizetype number) const
{
    return u"\u00ab"_s + QString::number(number) + u"\u00bb"_s;
}

QString PaperDialect::name(const QString& identifier) const
{
    return u'[' + identifier + u']';
}

QString PaperDialect::fold(const QString& expression) const
{
    return u"fold("_s + expression + u')';
}

QString PaperDialect::key(const QString& expression) const
{
    return u"key("_s + expression + u')';
}

QString PaperDialect::like(const QStringList& parts, const QString& pattern) const
{
    return u"like("_s + parts.join(u" & "_s) + u", "_s + pattern + u')';
}

QString PaperDialect::join(const QStringList& parts) const
{
    return u"join("_s + parts.join(u", "_s) + u')';
}

QString PaperDialect::between(const QString& tested, const QString& bound,
                              const QString& other) const
{
    return tested + u" BETWEEN "_s + bound + u" ~ "_s + other;
}

QString PaperDialect::fitted(const QString& expression, const schema::Column& column,
                             const QString& rowLabel, const QString& row) const
{
    const QString place = rowLabel.isEmpty() ? rowLabel : u" @ "_s + rowLabel + u' ' + row;
    return u"fitted("_s + expression + u", "_s + columnDefinition(column, false) + place + u')';
}

QString PaperDialect::nextStamp(const QString& old, const QString& written) const
{
    return u"later("_s + old + u", "_s + written + u')';
}

QString PaperDialect::rowAddress(const schema::Table& /*table*/, const QString& /*alias*/) const
{
    return u"@row"_s;
}

QString PaperDialect::isAmong(const QString& address, const QString& list) const
{
    return address + u" among "_s + list;
}

QString PaperDialect::window(qint64 limit, qint64 offset) const
{
    return u"LIMIT "_s + QString::number(limit) + u" OFFSET "_s + QString::number(offset);
}

QString PaperDialect::columnDefinition(const schema::Column& column, bool /*isKey*/) const
{
    static const QStringList types{u"AUTO"_s, u"LONG"_s, u"REAL"_s, u"TEXT"_s, u"DATETIME"_s};
    const QString length =
        column.maxLength > 0 ? u'(' + QString::number(column.maxLength) + u')' : QString();
    return name(column.name) + u' ' + types[static_cast<int>(column.type)] + length;
}

const schema::Catalog& catalogOf(const QString& database)
{
    static std::map<QString, schema::Catalog> catalogs;
    const auto known = catalogs.find(database);
    if (known != catalogs.end())
        return known->second;
    schema::Catalog& catalog = catalogs[database];
    for (const schema::Table& table : definitionOf(database).tables)
        catalog.add(table);
    return catalog;
}

QString written(const QString& statement, const schema::Catalog& catalog)
{
    const auto result = compile(statement, catalog, PaperDialect());
    if (const auto* error = std::get_if<Error>(&result))
        return shown(*error);
    return shown(std::get<Compiled>(result).statement);
}

QString writtenCount(const QString& statement, const schema::Catalog& catalog)
{
    const auto result = compile(statement, catalog, PaperDialect());
    if (const auto* error = std::get_if<Error>(&result))
        return shown(*error);
    return shown(std::get<Compiled>(result).count);
}

} // namespace storage::sql::test
