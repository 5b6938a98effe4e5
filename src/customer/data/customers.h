#pragma once

#include "records/data/list_description.h"
#include "records/data/record_table.h"

#include <QString>
#include <QStringList>

#include <optional>

// Customers (table ユーザー).
namespace customer {

// 表示名ﾌﾘｶﾞﾅ and 表示名 must not be blank; with a customer all that belongs to it is deleted.
const records::RecordTable& customerTable();
// Columns: 表示名, 自宅TEL, 会社TEL, E-MAIL; check box: Y印字.
const records::ListDescription& customerList();

// The columns of the sixteen texts of a customer in the order in which they are edited and written.
const QStringList& customerTexts();

// The customer that a case, a log and so on belongs to, by ID and mark.
std::optional<records::Record> readOwner(records::Database& data, qint64 id, qint64 mark);

// The customer's filled texts, one line each with its name before it, ends of lines CR LF.
QString customerText(const records::Record& customer);

} // namespace customer
