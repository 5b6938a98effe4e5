#pragma once

#include "programs/support/demo/demo_folder.h"
#include "programs/support/demo/random.h"
#include "programs/support/row_writer.h"
#include "storage/connection.h"
#include "storage/schema/definitions.h"

#include <QHash>

// What the sample customer file and the sample repair file are made with.
namespace programs::demo {

using Row = QList<storage::Value>;

// Days and moments of sample records.
class Calendar {
public:
    Calendar(Random& random, QDate today) : m_random(random), m_today(today) {}

    QDate today() const { return m_today; }
    // A day of the past, the nearer the likelier.
    QDate pastDay(int days);
    // A moment of office hours on a day; before nine on the present one, so that none is to come.
    storage::Value moment(QDate day);
    // The moment of a record's last change, up to three years ago.
    storage::Value lastChange() { return moment(pastDay(1095)); }

private:
    Random& m_random;
    QDate m_today;
};

// A new data file that is filled in one transaction and gets its indexes at the end.
class SampleFile {
public:
    bool create(const QString& path, const storage::schema::Definition& definition);
    storage::Connection& connection() { return m_file; }
    // Writes the counters, makes the indexes and closes. Nothing is kept when `failed`.
    std::optional<storage::Error> finish(const QHash<QString, int>& lastNumbers,
                                         const storage::Value& moment);
    storage::Error lastError() const { return m_file.lastError(); }

private:
    storage::Connection m_file;
    storage::schema::Definition m_definition;
};

// The tables that both kinds of file have: free item names, custom searches and the schedule of the
// sixty days around the present one. Their counters are added to `lastNumbers`.
struct FreeItem {
    QString name;
    QStringList values;
};
std::optional<storage::Error> writeCommonTables(storage::Connection& file, Random& random,
                                                Calendar& calendar, const QList<FreeItem>& items,
                                                const QString& searchKind,
                                                const QStringList& searches,
                                                QHash<QString, int>& lastNumbers);

std::optional<storage::Error> writeCustomerSample(const QString& path, const Size& size);
std::optional<storage::Error> writeRepairSample(const QString& path, const Size& size);

// A text or, when it is empty, Null.
storage::Value textOrNull(const QString& text);

} // namespace programs::demo
