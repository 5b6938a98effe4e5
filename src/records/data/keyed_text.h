#pragma once

#include "core/data/record_key.h"
#include "records/data/database.h"

#include <QList>
#include <QString>

namespace records {

// A statement that a record's key completes: text + number [+ markClause + mark].
struct KeyedText {
    enum Number { UpdateId, Id, None };
    QString text;
    Number number = UpdateId;
    QString markClause = {};

    QString with(const core::RecordKey& key) const;
};

// What is deleted together, in this order.
using Cascade = QList<KeyedText>;

// Deletes a record with all that belongs to it, in one transaction: all or nothing. False when the
// engine refused.
bool runCascade(Database& data, const Cascade& cascade, const core::RecordKey& key = {});

} // namespace records
