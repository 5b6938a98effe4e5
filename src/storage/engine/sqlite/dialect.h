#pragma once

#include "storage/sql/dialect.h"

namespace storage::engine::sqlite {

// Fold, key, Like, joined texts and stamps are functions of our own (functions.h).
class SqliteDialect : public sql::Dialect {
public:
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
    QString rowAddress(const schema::Table& table, const QString& alias) const override;
    QString isAmong(const QString& address, const QString& list) const override;
    // The engine reads the list first and in its order, as nothing else leads to the rows.
    QString inListOrder() const override { return {}; }
    QString unindexed(const QString& expression) const override;
    QString window(qint64 limit, qint64 offset) const override;
    // The declared type says what readCatalog() has to know; what a column must not hold is a
    // check.
    QString columnDefinition(const schema::Column& column, bool isKey) const override;
};

// The reverse of columnDefinition(): type and length by a declared type.
schema::Column columnFromDeclaration(const QString& name, const QString& declaredType,
                                     bool isAutoNumber);

} // namespace storage::engine::sqlite
