#pragma once

#include "storage/schema/catalog.h"
#include "storage/sql/dialect.h"

#include <QString>

// Statements compiled for an engine that exists on paper only, so that what they resolve to can be
// read: names in brackets, values where they stand, functions under the names of the dialect.
namespace storage::sql::test {

class PaperDialect final : public Dialect {
public:
    QString parameter(qsizetype number) const override;
    QString name(const QString& identifier) const override;
    QString fold(const QString& expression) const override;
    QString key(const QString& expression) const override;
    QString like(const QStringList& parts, const QString& pattern) const override;
    QString join(const QStringList& parts) const override;
    QString between(const QString& tested, const QString& bound,
                    const QString& other) const override;
    QString fitted(const QString& expression, const schema::Column& column, const QString& rowLabel,
                   const QString& row) const override;
    QString nextStamp(const QString& old, const QString& written) const override;
    QString isAmong(const QString& address, const QString& list) const override;
    QString rowAddress(const schema::Table& table, const QString& alias) const override;
    QString window(qint64 limit, qint64 offset) const override;
    QString columnDefinition(const schema::Column& column, bool isKey) const override;
};

// The tables by the name of a database: main, customer, repair, or with "300" behind it as they
// were before the upgrade.
const schema::Catalog& catalogOf(const QString& database);

// What a statement resolves to, or "! position message". Sort keys show as K.
QString written(const QString& statement, const schema::Catalog& catalog);
// The same for how its rows are counted.
QString writtenCount(const QString& statement, const schema::Catalog& catalog);

} // namespace storage::sql::test
