#pragma once

#include "storage/schema/catalog.h"
#include "storage/sql/compile.h"

#include <QHash>
#include <QString>
#include <QStringView>

namespace storage {

// The fields of a result, found by name as statements find columns; part of Recordset.
class FieldNames {
public:
    FieldNames() = default;
    // The table gives its aliases to a result that comes from it alone; null otherwise.
    FieldNames(const QList<sql::ResultColumn>& columns, const schema::Table* table);

    qsizetype count() const { return m_columns.size(); }
    const QString& name(int index) const { return m_columns.at(index).name; }
    // By name or by "table.column", -1 when there is none. Of several fields of one name the first.
    int find(QStringView name) const;

private:
    int search(QStringView name) const;
    int searchFolded(QStringView name) const;
    int searchQualified(QStringView name) const;

    QList<sql::ResultColumn> m_columns;
    schema::Table m_table;
    // Rows are read field by field in the order of the columns, so the next one is looked at first.
    mutable int m_last = -1;
    mutable QHash<QString, int> m_found; // names that are not spelled as the fields are
};

} // namespace storage
