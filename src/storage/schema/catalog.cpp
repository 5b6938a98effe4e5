#include "storage/schema/catalog.h"

#include "storage/schema/aliases.h"
#include "text/fold.h"

namespace storage::schema {

Table::Table(QString name, QList<Column> columns, QString keyColumn)
    : m_name(std::move(name)), m_columns(std::move(columns)), m_keyColumn(std::move(keyColumn))
{
    for (qsizetype i = 0; i < m_columns.size(); ++i) {
        const QString folded = text::foldName(m_columns[i].name);
        m_namesCollide = m_namesCollide || m_byFoldedName.contains(folded);
        m_byFoldedName.insert(folded, static_cast<int>(i));
    }
    for (const Alias& alias : aliasesOf(m_name)) {
        const int index = m_byFoldedName.value(text::foldName(alias.column), -1);
        const QString folded = text::foldName(alias.name);
        if (index >= 0 && !m_byFoldedName.contains(folded))
            m_byFoldedName.insert(folded, index);
    }
}

int Table::indexOf(QStringView name) const
{
    return m_byFoldedName.value(text::foldName(name), -1);
}

bool Catalog::add(Table table)
{
    const QString folded = text::foldName(table.name());
    if (table.namesCollide() || m_byFoldedName.contains(folded))
        return false;
    m_byFoldedName.insert(folded, static_cast<int>(m_tables.size()));
    m_tables.append(std::move(table));
    return true;
}

const Table* Catalog::find(QStringView name) const
{
    const int index = m_byFoldedName.value(text::foldName(name), -1);
    return index < 0 ? nullptr : &m_tables[index];
}

} // namespace storage::schema
