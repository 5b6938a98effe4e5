#pragma once

#include <QHash>
#include <QList>
#include <QString>
#include <QStringView>

namespace storage::schema {

enum class ColumnType { AutoNumber, Long, Real, Text, DateTime };

struct Column {
    QString name = {}; // canonical spelling
    ColumnType type = ColumnType::Text;
    int maxLength = 0; // of a text, in characters; 0 = no limit
    // A text that holds "yyyy/mm/dd(aaa)": its order is that of the folded text, so that one index
    // serves equality and order. Another text in it takes the place that its folded text has.
    bool isDay = false;
    // A text of which the file keeps a list of all different ones (Connection::distinctTexts()).
    bool isListed = false;

    bool operator==(const Column& other) const = default;
};

// A table as statements see it. Names are looked up by compatibility composition and case folding,
// then by the table's alias list.
class Table {
public:
    Table() = default;
    Table(QString name, QList<Column> columns, QString keyColumn);

    const QString& name() const { return m_name; }
    const QList<Column>& columns() const { return m_columns; }
    // The column that addresses a row (its auto-number, or the number of a one-row table); empty
    // when the table has none and the engine's own row address serves.
    const QString& keyColumn() const { return m_keyColumn; }
    // Index into columns(), -1 when there is no such column.
    int indexOf(QStringView name) const;
    // True when two columns fold alike, so that one of them could not be reached.
    bool namesCollide() const { return m_namesCollide; }

private:
    QString m_name;
    QList<Column> m_columns;
    QString m_keyColumn;
    QHash<QString, int> m_byFoldedName;
    bool m_namesCollide = false;
};

// The tables of one open file.
class Catalog {
public:
    Catalog() = default;
    // Adds a table; false when a name in it, or its own, folds like one that is there.
    bool add(Table table);
    const QList<Table>& tables() const { return m_tables; }
    // Null when there is no such table.
    const Table* find(QStringView name) const;

private:
    QList<Table> m_tables;
    QHash<QString, int> m_byFoldedName;
};

} // namespace storage::schema
