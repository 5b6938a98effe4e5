#pragma once

#include "records/data/record_table.h"

#include <QString>

// What the drafts of a form are kept under: the form and the records that they depend on.
namespace records {

struct Opening;

QString draftName(const QString& form, const Opening& opening);
// Of those that no form on the same record will be opened for.
QString orphanedDraftName(const QString& form);
// Whether a name is one of this form's and no form will be opened that has it: a record that it
// names is gone. False when that cannot be read.
bool isOrphaned(Database& data, const RecordTable& table, const QString& form, const QString& name);

} // namespace records
