#pragma once

#include "core/data/record_key.h"

#include <QDate>
#include <QHash>
#include <QObject>
#include <QString>

namespace records {

// What is selected on a main screen: the panes write it, commands and windows read it. Lists are
// numbered by the screen that they belong to.
class Selection : public QObject {
    Q_OBJECT

public:
    using QObject::QObject;

    // The key and the title of a list's selected record; none and empty where nothing is selected.
    core::RecordKey key(int list) const { return m_selected.value(list).key; }
    QString title(int list) const { return m_selected.value(list).title; }
    bool has(int list) const { return !key(list).isNone(); }
    // Rows selected in a list.
    qsizetype count(int list) const { return m_counts.value(list); }
    bool hasOne(int list) const { return has(list) && count(list) < 2; }
    QDate day() const { return m_day; } // of the calendar

    void set(int list, const core::RecordKey& key, const QString& title)
    {
        m_selected.insert(list, {key, title});
        emit changed();
    }
    void setCount(int list, qsizetype rows)
    {
        m_counts.insert(list, rows);
        emit changed();
    }
    void setDay(QDate day)
    {
        m_day = day;
        emit changed();
    }

signals:
    void changed();

private:
    struct Selected {
        core::RecordKey key;
        QString title;
    };
    QHash<int, Selected> m_selected;
    QHash<int, qsizetype> m_counts;
    QDate m_day;
};

} // namespace records
