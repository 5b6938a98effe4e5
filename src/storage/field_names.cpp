#include "storage/field_names.h"

#include "text/fold.h"

namespace storage {

FieldNames::FieldNames(const QList<sql::ResultColumn>& columns, const schema::Table* table)
    : m_columns(columns), m_table(table ? *table : schema::Table())
{
}

int FieldNames::find(QStringView name) const
{
    const int next = m_last + 1;
    if (next < m_columns.size() && m_columns.at(next).name == name)
        return m_last = next;
    return m_last = search(name);
}

int FieldNames::search(QStringView name) const
{
    for (int i = 0; i < m_columns.size(); ++i) {
        if (m_columns.at(i).name == name)
            return i;
    }
    const QString key = name.toString();
    const auto found = m_found.constFind(key);
    if (found != m_found.constEnd())
        return *found;
    int index = searchFolded(name);
    if (index < 0)
        index = searchQualified(name);
    m_found.insert(key, index);
    return index;
}

int FieldNames::searchFolded(QStringView name) const
{
    const QString folded = text::foldName(name);
    for (int i = 0; i < m_columns.size(); ++i) {
        if (text::foldName(m_columns.at(i).name) == folded)
            return i;
    }
    const int aliased = m_table.indexOf(name);
    for (int i = 0; aliased >= 0 && i < m_columns.size(); ++i) {
        if (m_table.indexOf(m_columns.at(i).name) == aliased)
            return i;
    }
    return -1;
}

int FieldNames::searchQualified(QStringView name) const
{
    const qsizetype dot = name.indexOf(u'.');
    if (dot < 0)
        return -1;
    const QString table = text::foldName(name.first(dot));
    const QString column = text::foldName(name.sliced(dot + 1));
    for (int i = 0; i < m_columns.size(); ++i) {
        if (text::foldName(m_columns.at(i).table) == table
            && text::foldName(m_columns.at(i).name) == column)
            return i;
    }
    return -1;
}

} // namespace storage
