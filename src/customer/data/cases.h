#pragma once

#include "core/data/record_key.h"
#include "core/data/row_changes.h"
#include "customer/data/customer_file.h"

#include <QDate>
#include <QString>

#include <optional>

// Cases of customers (table 件名).
namespace customer {

inline constexpr char16_t OpenState[] = u"続行";
inline constexpr char16_t FinishedState[] = u"完了";

struct CaseFields {
    QDate registered;   // 登録日
    QString title;      // 件名
    QString notes;      // 備考
    QString state;      // 判定: 続行 or 完了
    bool print = false; // K印字
    QDate planned = {}; // 予定日; invalid: none

    bool operator==(const CaseFields& other) const = default;
};

struct KeptCase {
    core::RecordKey key;
    qint64 customerId = 0; // with the case's mark, the customer
    CaseFields fields;
    QString finished; // 完了日 as stored
};

// `customer`: the customer that the case is opened for (its ID and mark count).
core::SaveResult addCase(CustomerFile& file, const core::RecordKey& customer,
                         const CaseFields& fields, core::RecordKey* added = nullptr);
// `shown`: what the fields held before they were edited; null: all are written.
core::SaveResult changeCase(CustomerFile& file, const core::RecordKey& key,
                            const CaseFields& fields, const CaseFields* shown = nullptr);
// Asks first; deletes the case's logs and shortcuts with it.
core::DeleteResult deleteCase(CustomerFile& file, const core::RecordKey& key);
// Writes the print flag alone.
core::SaveResult setCasePrint(CustomerFile& file, const core::RecordKey& key, bool print);

// The case with its present key; nullopt when it is gone.
std::optional<KeptCase> readCase(CustomerFile& file, const core::RecordKey& key);
// The case that a log belongs to, by ID and mark.
std::optional<KeptCase> readCaseOf(CustomerFile& file, qint64 id, qint64 mark);
// Stamps the 最近更新日時 of a case and of its customer; a case that is gone is no failure.
bool touchCase(CustomerFile& file, qint64 id, qint64 mark);

} // namespace customer
