#pragma once

#include "storage/schema/definitions.h"

#include <QString>
#include <QStringList>

// How the definitions are written down: a table is its columns in their order, named in
// blank-separated runs of one type; an index is its table and its parts.
namespace storage::schema {

class TableBuilder {
public:
    TableBuilder(QString name, Version version);

    // The column that addresses a row: given out by the engine, or the number of a one-row table.
    TableBuilder& autoNumber(const QString& name);
    TableBuilder& rowNumber(const QString& name);
    TableBuilder& longs(const QString& names);
    TableBuilder& reals(const QString& names);
    TableBuilder& texts(const QString& names, int maxLength = 0);
    TableBuilder& days(const QString& names, int maxLength = 0); // texts "yyyy/mm/dd(aaa)"
    TableBuilder& listedTexts(const QString& names);
    TableBuilder& moments(const QString& names);
    // The columns from here on came with version 3.1.1; an older table lacks them.
    TableBuilder& added();

    Table build() const { return Table(m_name, m_columns, m_key); }

private:
    TableBuilder& append(const QString& names, const Column& like);

    QString m_name;
    QString m_key;
    QList<Column> m_columns;
    Version m_version;
    bool m_added = false;
};

IndexPart plain(QString column);
IndexPart fold(QString column);
IndexPart key(QString column);

// Names the index after its table and parts.
Index index(const QString& table, const QList<IndexPart>& parts);
// The pair of number and origin mark by which a table's rows are referred to.
Index pairIndex(const QString& table, const QString& number, const QString& mark);
// A list's order: the column, then the record's number.
Index sortIndex(const QString& table, const QString& column, const QString& number);
// The same of a column of days; serves equality as well.
Index dayIndex(const QString& table, const QString& column, const QString& number);

// Leaves out the indexes of which a column is missing in the tables.
QList<Index> possibleIndexes(const QList<Index>& indexes, const QList<Table>& tables);

// The time of the first rows' 更新日時.
Value firstMoment();

} // namespace storage::schema
