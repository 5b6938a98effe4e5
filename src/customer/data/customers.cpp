#include "customer/data/customers.h"

#include "core/data/clock.h"
#include "core/data/messages.h"
#include "customer/data/cascades.h"
#include "customer/data/id_issuer.h"
#include "storage/recordset.h"

using namespace Qt::StringLiterals;

namespace customer {

namespace {

const QString RowQuery = u"Select * From ユーザー Where ﾕｰｻﾞｰ更新ID ="_s;
const QString DeleteQuery = u"Select * From ユーザー Where ユーザー更新ID ="_s;
const QString OwnerQuery = u"SELECT * From ユーザー WHERE ﾕｰｻﾞｰID = "_s;
const QString OwnerMark = u" AND ﾕｰｻﾞｰ識別ID = "_s;

constexpr QStringView Columns[CustomerFieldCount] = {
    u"表示名ﾌﾘｶﾞﾅ", u"表示名",      u"ﾕｰｻﾞｰ名ﾌﾘｶﾞﾅ", u"ﾕｰｻﾞｰ名", u"自宅TEL", u"自宅FAX",
    u"自宅住所",    u"会社名ﾌﾘｶﾞﾅ", u"会社名",       u"部署",    u"会社TEL", u"会社FAX",
    u"会社住所",    u"E-MAIL",      u"URL",          u"備考",
};

QString rowQuery(const core::RecordKey& key)
{
    return RowQuery + QString::number(key.updateId);
}

bool isRefused(CustomerFile& file, const CustomerFields& fields)
{
    if (!fields.texts[DisplayReading].isEmpty() && !fields.texts[DisplayName].isEmpty())
        return false;
    file.messages.refuse(u"表示ﾌﾘｶﾞﾅ・表示名は空白禁止です。"_s);
    return true;
}

core::FieldValues valuesOf(const CustomerFields& fields, const QDateTime& now)
{
    core::FieldValues values;
    for (std::size_t i = 0; i < CustomerFieldCount; ++i)
        values.append({Columns[i].toString(), fields.texts[i]});
    values.append({u"Y印字"_s, fields.print ? 1 : 0});
    values.append({u"最近更新日時"_s, now});
    return values;
}

std::optional<KeptCustomer> read(CustomerFile& file, const QString& query)
{
    storage::Recordset row;
    if (!row.open(query, file.connection) || row.eof())
        return std::nullopt;
    KeptCustomer kept;
    kept.key = {row.value(u"ﾕｰｻﾞｰ更新ID").toInteger(), row.value(u"ﾕｰｻﾞｰ識別ID").toInteger(),
                row.value(u"ﾕｰｻﾞｰID").toInteger(), row.text(u"更新日時")};
    for (std::size_t i = 0; i < CustomerFieldCount; ++i)
        kept.fields.texts[i] = row.text(Columns[i]);
    kept.fields.print = row.value(u"Y印字").toInteger() == 1;
    return kept;
}

} // namespace

QString customerColumn(CustomerField field)
{
    return Columns[field].toString();
}

core::SaveResult addCustomer(CustomerFile& file, const CustomerFields& fields,
                             core::RecordKey* added)
{
    if (isRefused(file, fields))
        return core::SaveResult::Refused;
    const core::FieldValues values =
        core::FieldValues{{u"ﾕｰｻﾞｰ識別ID"_s, 0}} + valuesOf(fields, file.clock.now());
    std::optional<qint64> number;
    const core::SaveResult result = core::saveNew(file, [&] {
        number = core::appendNumbered(file, idKind(Kind::Customer), values);
        return number.has_value();
    });
    if (added && result == core::SaveResult::Saved) {
        const std::optional<KeptCustomer> kept = readCustomer(file, {*number, 0, *number, {}});
        *added = kept ? kept->key : core::RecordKey{};
    }
    return result;
}

core::SaveResult changeCustomer(CustomerFile& file, const core::RecordKey& key,
                                const CustomerFields& fields)
{
    if (isRefused(file, fields))
        return core::SaveResult::Refused;
    return core::saveChecked(file, rowQuery(key), key.stamp, [&] {
        return core::writeRow(file, rowQuery(key), valuesOf(fields, file.clock.now()));
    });
}

core::DeleteResult deleteCustomer(CustomerFile& file, const core::RecordKey& key)
{
    if (!core::confirmDelete(file))
        return core::DeleteResult::Kept;
    return core::deleteChecked(file, DeleteQuery + QString::number(key.updateId), key.stamp,
                               [&] { return runCascade(file, Cascade::Customer, key); });
}

core::SaveResult setCustomerPrint(CustomerFile& file, const core::RecordKey& key, bool print)
{
    return core::saveChecked(file, rowQuery(key), key.stamp, [&] {
        return core::writeRow(file, rowQuery(key), {{u"Y印字"_s, print ? 1 : 0}});
    });
}

std::optional<KeptCustomer> readCustomer(CustomerFile& file, const core::RecordKey& key)
{
    return read(file, rowQuery(key));
}

std::optional<KeptCustomer> readOwner(CustomerFile& file, qint64 id, qint64 mark)
{
    return read(file, OwnerQuery + QString::number(id) + OwnerMark + QString::number(mark));
}

QString customerText(const CustomerFields& fields)
{
    QString text;
    for (std::size_t i = 0; i < CustomerFieldCount; ++i) {
        if (!fields.texts[i].isEmpty())
            text += Columns[i].toString() + u"： "_s + fields.texts[i] + u"\r\n"_s;
    }
    return text;
}

} // namespace customer
