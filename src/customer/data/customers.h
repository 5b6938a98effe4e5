#pragma once

#include "core/data/record_key.h"
#include "core/data/row_changes.h"
#include "customer/data/customer_file.h"

#include <QString>

#include <array>
#include <optional>

// Customers (table ユーザー): their edit screen and their details.
namespace customer {

// The sixteen texts of a customer in the order in which they are edited and written.
enum CustomerField {
    DisplayReading, // 表示名ﾌﾘｶﾞﾅ
    DisplayName,    // 表示名
    PersonReading,  // ﾕｰｻﾞｰ名ﾌﾘｶﾞﾅ
    PersonName,     // ﾕｰｻﾞｰ名
    HomePhone,      // 自宅TEL
    HomeFax,        // 自宅FAX
    HomeAddress,    // 自宅住所
    CompanyReading, // 会社名ﾌﾘｶﾞﾅ
    CompanyName,    // 会社名
    Department,     // 部署
    CompanyPhone,   // 会社TEL
    CompanyFax,     // 会社FAX
    CompanyAddress, // 会社住所
    Email,          // E-MAIL
    WebAddress,     // URL
    Notes,          // 備考
    CustomerFieldCount
};

struct CustomerFields {
    std::array<QString, CustomerFieldCount> texts;
    bool print = false; // Y印字

    bool operator==(const CustomerFields& other) const = default;
};

struct KeptCustomer {
    core::RecordKey key;
    CustomerFields fields;
};

// The column of a text, as labels show it.
QString customerColumn(CustomerField field);

// 表示名ﾌﾘｶﾞﾅ and 表示名 must not be blank. `added` receives the new customer's key.
core::SaveResult addCustomer(CustomerFile& file, const CustomerFields& fields,
                             core::RecordKey* added = nullptr);
core::SaveResult changeCustomer(CustomerFile& file, const core::RecordKey& key,
                                const CustomerFields& fields);
// Asks first; deletes all that belongs to the customer.
core::DeleteResult deleteCustomer(CustomerFile& file, const core::RecordKey& key);
// Writes the print flag alone.
core::SaveResult setCustomerPrint(CustomerFile& file, const core::RecordKey& key, bool print);

// The customer with its present key; nullopt when it is gone.
std::optional<KeptCustomer> readCustomer(CustomerFile& file, const core::RecordKey& key);
// The customer that a case, a log and so on belongs to, by ID and mark.
std::optional<KeptCustomer> readOwner(CustomerFile& file, qint64 id, qint64 mark);

// The customer's filled texts, one line each with its name before it, ends of lines CR LF.
QString customerText(const CustomerFields& fields);

} // namespace customer
