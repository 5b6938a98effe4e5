#include "customer/data/cases.h"

#include "core/data/clock.h"
#include "customer/data/cascades.h"
#include "customer/data/id_issuer.h"
#include "storage/recordset.h"
#include "text/dates.h"

using namespace Qt::StringLiterals;

namespace customer {

namespace {

const QString RowQuery = u"Select * From 件名 Where 件名更新ID ="_s;
const QString PairQuery = u"Select * From 件名 Where 件名識別ID ="_s;
const QString PairId = u" AND 件名ID = "_s;
const QString ParentQuery = u"SELECT * From ﾕｰｻﾞｰ WHERE ﾕｰｻﾞｰID = "_s;
const QString ParentMark = u" AND ﾕｰｻﾞｰ識別ID = "_s;

QString rowQuery(const core::RecordKey& key)
{
    return RowQuery + QString::number(key.updateId);
}

QString customerQuery(qint64 id, qint64 mark)
{
    return ParentQuery + QString::number(id) + ParentMark + QString::number(mark);
}

core::FieldValues enteredOf(const CaseFields& fields)
{
    return {
        {u"登録日"_s, text::formatDate(fields.registered)},
        {u"件名"_s, fields.title},
        {u"備考"_s, fields.notes},
        {u"判定"_s, fields.state},
        {u"K印字"_s, fields.print ? 1 : 0},
        {u"予定日"_s, text::formatDate(fields.planned)},
    };
}

core::FieldValues stampsOf(const CaseFields& fields, const QDateTime& now)
{
    const bool finished = fields.state == QStringView(FinishedState);
    return {
        {u"最近更新日時"_s, now},
        {u"完了日"_s, finished ? text::formatDate(now.date()) : QString()},
    };
}

std::optional<KeptCase> read(CustomerFile& file, const QString& query)
{
    storage::Recordset row;
    if (!row.open(query, file.connection) || row.eof())
        return std::nullopt;
    KeptCase kept;
    kept.key = {row.value(u"件名更新ID").toInteger(), row.value(u"件名識別ID").toInteger(),
                row.value(u"件名ID").toInteger(), row.text(u"更新日時")};
    kept.customerId = row.value(u"ユーザーID").toInteger();
    kept.fields.registered = text::parseDate(row.text(u"登録日")).value_or(QDate());
    kept.fields.title = row.text(u"件名");
    kept.fields.notes = row.text(u"備考");
    kept.fields.state = row.text(u"判定");
    kept.fields.print = row.value(u"K印字").toInteger() == 1;
    kept.fields.planned = text::parseDate(row.text(u"予定日")).value_or(QDate());
    kept.finished = row.text(u"完了日");
    return kept;
}

// The customer of a case counts as changed with it.
bool touchCustomerOf(CustomerFile& file, const core::RecordKey& key)
{
    const std::optional<KeptCase> kept = readCase(file, key);
    return kept && core::touchRow(file, customerQuery(kept->customerId, kept->key.mark));
}

} // namespace

core::SaveResult addCase(CustomerFile& file, const core::RecordKey& customer,
                         const CaseFields& fields, core::RecordKey* added)
{
    const QString parent = customerQuery(customer.id, customer.mark);
    const core::FieldValues values =
        core::FieldValues{{u"件名識別ID"_s, customer.mark}, {u"ユーザーID"_s, customer.id}}
        + enteredOf(fields) + stampsOf(fields, file.clock.now());
    std::optional<qint64> number;
    const core::SaveResult result = core::saveUnder(file, parent, [&] {
        number = core::appendNumbered(file, idKind(Kind::Case), values);
        return number && core::touchRow(file, parent);
    });
    if (added && result == core::SaveResult::Saved) {
        const std::optional<KeptCase> kept = readCase(file, {*number, 0, *number, {}});
        *added = kept ? kept->key : core::RecordKey{};
    }
    return result;
}

core::SaveResult changeCase(CustomerFile& file, const core::RecordKey& key,
                            const CaseFields& fields, const CaseFields* shown)
{
    const core::FieldValues entered = enteredOf(fields);
    const core::FieldValues written = (shown ? core::editedOf(entered, enteredOf(*shown)) : entered)
        + stampsOf(fields, file.clock.now());
    return core::saveChecked(file, rowQuery(key), key.stamp, [&] {
        return core::writeRow(file, rowQuery(key), written) && touchCustomerOf(file, key);
    });
}

core::DeleteResult deleteCase(CustomerFile& file, const core::RecordKey& key)
{
    if (!core::confirmDelete(file))
        return core::DeleteResult::Kept;
    return core::deleteChecked(file, rowQuery(key), key.stamp, [&] {
        return touchCustomerOf(file, key) && runCascade(file, Cascade::Case, key);
    });
}

core::SaveResult setCasePrint(CustomerFile& file, const core::RecordKey& key, bool print)
{
    return core::saveChecked(file, rowQuery(key), key.stamp, [&] {
        return core::writeRow(file, rowQuery(key), {{u"K印字"_s, print ? 1 : 0}});
    });
}

std::optional<KeptCase> readCase(CustomerFile& file, const core::RecordKey& key)
{
    return read(file, rowQuery(key));
}

std::optional<KeptCase> readCaseOf(CustomerFile& file, qint64 id, qint64 mark)
{
    return read(file, PairQuery + QString::number(mark) + PairId + QString::number(id));
}

bool touchCase(CustomerFile& file, qint64 id, qint64 mark)
{
    const QString query = PairQuery + QString::number(mark) + PairId + QString::number(id);
    const std::optional<KeptCase> kept = read(file, query);
    if (!kept) // gone, or not to be read
        return core::rowStands(file, query) == false;
    return core::touchRow(file, query)
        && core::touchRow(file, customerQuery(kept->customerId, mark));
}

} // namespace customer
