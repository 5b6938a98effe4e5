#include "adding.h"

#include "bare_file.h"
#include "opened_sample.h"
#include "scratch_copy.h"

#include "customer/data/customers.h"

namespace bench {

using namespace Qt::StringLiterals;

namespace {

constexpr int AddsInARun = 50;
const QString Moment = u"'2026/04/01 10:30:00.000'"_s;
const QString NewRow = u" WHERE \"ﾕｰｻﾞｰ更新ID\" = last_insert_rowid()"_s;

records::FieldValues newCustomer()
{
    records::FieldValues fields;
    for (const QString& column : customer::customerTexts())
        fields.append({column, u"新しい顧客の欄"_s + QString::number(fields.size())});
    return fields;
}

// The statements of an add, written by hand.
QStringList addingStatements()
{
    QStringList columns{u"\"ﾕｰｻﾞｰ識別ID\""_s, u"\"Y印字\""_s, u"\"更新日時\""_s,
                        u"\"最近更新日時\""_s};
    QStringList values{u"0"_s, u"0"_s, Moment, Moment};
    for (const auto& [column, value] : newCustomer()) {
        columns.append(u'"' + column + u'"');
        values.append(u'\'' + value.toText() + u'\'');
    }
    const QString stamped = u", \"更新日時\" = "_s + Moment;
    return {
        u"BEGIN IMMEDIATE"_s,
        u"INSERT INTO \"ユーザー\" ("_s + columns.join(u", "_s) + u") VALUES ("_s
            + values.join(u", "_s) + u')',
        u"SELECT max(\"ﾕｰｻﾞｰ更新ID\") FROM \"ユーザー\""_s,
        u"SELECT * FROM \"最新発番\" WHERE \"発番ID\" = 1"_s,
        u"UPDATE \"最新発番\" SET \"ユーザー\" = last_insert_rowid()"_s + stamped
            + u" WHERE \"発番ID\" = 1"_s,
        u"SELECT * FROM \"ユーザー\""_s + NewRow,
        u"UPDATE \"ユーザー\" SET \"ﾕｰｻﾞｰID\" = last_insert_rowid()"_s + stamped + NewRow,
        u"COMMIT"_s,
    };
}

} // namespace

Times compareAdding(const QString& path, const QString& password, QDate today)
{
    const ScratchCopy ours(path, u"adding"_s);
    const ScratchCopy other(path, u"adding-bare"_s);
    OpenedSample sample(ours.path(), today);
    const BareFile bare(other.path(), password);
    const records::FieldValues fields = newCustomer();
    const QStringList statements = addingStatements();
    return compare(
        [&] {
            if (addRecord(sample.file(), customer::customerTable(), {}, fields)
                != records::SaveResult::Saved)
                giveUp(sample.file().connection.lastError().message);
        },
        [&] {
            for (const QString& statement : statements)
                bare.readAll(statement);
        },
        AddsInARun);
}

} // namespace bench
