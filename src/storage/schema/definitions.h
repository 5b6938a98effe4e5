#pragma once

#include "storage/base/value.h"
#include "storage/schema/catalog.h"

#include <QList>
#include <QString>

namespace storage::schema {

// How a column takes part in an index: as stored, as folded text, or as sort key.
enum class IndexForm { Plain, Fold, Key };

struct IndexPart {
    QString column;
    IndexForm form = IndexForm::Plain;
    bool operator==(const IndexPart& other) const = default;
};

struct Index {
    QString name; // begins with "_"
    QString table;
    QList<IndexPart> parts;
    bool unique = false;
};

// A row that a new file holds from the start: column name and value pairs.
struct SeedRow {
    QString table;
    QList<std::pair<QString, Value>> values;
};

// All that a new, empty file of one kind holds.
struct Definition {
    QList<Table> tables;
    QList<Index> indexes;
    QList<SeedRow> rows;
};

enum class Version { V300, V311 };

// The application database, the customer data file and the repair data file, at a schema version.
Definition mainDatabase(Version version);
Definition customerFile(Version version);
Definition repairFile(Version version);
// A user's own file of what was typed and not saved.
Definition draftsFile();

} // namespace storage::schema
