#include "storage/schema/table_builder.h"

#include <algorithm>

namespace storage::schema {

using namespace Qt::StringLiterals;

TableBuilder::TableBuilder(QString name, Version version)
    : m_name(std::move(name)), m_version(version)
{
}

TableBuilder& TableBuilder::append(const QString& names, const Column& like)
{
    if (m_added && m_version == Version::V300)
        return *this;
    const QStringList each = names.split(u' ', Qt::SkipEmptyParts);
    for (const QString& name : each) {
        m_columns.append(like);
        m_columns.last().name = name;
    }
    return *this;
}

TableBuilder& TableBuilder::autoNumber(const QString& name)
{
    m_key = name;
    return append(name, {.type = ColumnType::AutoNumber});
}

TableBuilder& TableBuilder::rowNumber(const QString& name)
{
    m_key = name;
    return append(name, {.type = ColumnType::Long});
}

TableBuilder& TableBuilder::longs(const QString& names)
{
    return append(names, {.type = ColumnType::Long});
}

TableBuilder& TableBuilder::reals(const QString& names)
{
    return append(names, {.type = ColumnType::Real});
}

TableBuilder& TableBuilder::texts(const QString& names, int maxLength)
{
    return append(names, {.type = ColumnType::Text, .maxLength = maxLength});
}

TableBuilder& TableBuilder::days(const QString& names, int maxLength)
{
    return append(names, {.type = ColumnType::Text, .maxLength = maxLength, .isDay = true});
}

TableBuilder& TableBuilder::listedTexts(const QString& names)
{
    return append(names, {.type = ColumnType::Text, .isListed = true});
}

TableBuilder& TableBuilder::moments(const QString& names)
{
    return append(names, {.type = ColumnType::DateTime});
}

TableBuilder& TableBuilder::added()
{
    m_added = true;
    return *this;
}

IndexPart plain(QString column)
{
    return {std::move(column), IndexForm::Plain};
}

IndexPart fold(QString column)
{
    return {std::move(column), IndexForm::Fold};
}

IndexPart key(QString column)
{
    return {std::move(column), IndexForm::Key};
}

Index index(const QString& table, const QList<IndexPart>& parts)
{
    QString name = u'_' + table;
    for (const IndexPart& part : parts) {
        name += u'_' + part.column;
        if (part.form == IndexForm::Fold)
            name += u"(fold)"_s;
        else if (part.form == IndexForm::Key)
            name += u"(key)"_s;
    }
    return {name, table, parts};
}

Index pairIndex(const QString& table, const QString& number, const QString& mark)
{
    return index(table, {plain(number), plain(mark)});
}

Index sortIndex(const QString& table, const QString& column, const QString& number)
{
    return index(table, {key(column), plain(number)});
}

Index dayIndex(const QString& table, const QString& column, const QString& number)
{
    return index(table, {fold(column), plain(number)});
}

QList<Index> possibleIndexes(const QList<Index>& indexes, const QList<Table>& tables)
{
    const auto hasColumns = [&tables](const Index& candidate) {
        const auto table = std::ranges::find(tables, candidate.table, &Table::name);
        return table != tables.end()
            && std::ranges::all_of(candidate.parts, [&table](const IndexPart& part) {
                   return table->indexOf(part.column) >= 0;
               });
    };
    QList<Index> possible;
    std::ranges::copy_if(indexes, std::back_inserter(possible), hasColumns);
    return possible;
}

Value firstMoment()
{
    return Value::fromDateTimeText(u"2000/01/01 00:00:00.000"_s);
}

} // namespace storage::schema
