#include "adding.h"

#include "bare_file.h"

#include "core/data/clock.h"
#include "core/data/messages.h"
#include "customer/data/customer_file.h"
#include "customer/data/customers.h"

#include <QFile>

namespace bench {

using namespace Qt::StringLiterals;

namespace {

constexpr int AddsInARun = 50;
const QString Moment = u"'2026/04/01 10:30:00.000'"_s;
const QString NewRow = u" WHERE \"ﾕｰｻﾞｰ更新ID\" = last_insert_rowid()"_s;

// Nobody is there to be told.
class NoMessages : public core::Messages {
public:
    core::Answer show(core::MessageStyle, const QString& text, const QString&,
                      const QString&) override
    {
        giveUp(text);
    }
    std::optional<QString> askText(const QString& prompt, const QString&, bool) override
    {
        giveUp(prompt);
    }
};

customer::CustomerFields newCustomer()
{
    customer::CustomerFields fields;
    for (std::size_t i = 0; i < fields.texts.size(); ++i)
        fields.texts[i] = u"新しい顧客の欄"_s + QString::number(i);
    return fields;
}

// The statements of an add, written by hand.
QStringList addingStatements()
{
    QStringList columns{u"\"ﾕｰｻﾞｰ識別ID\""_s, u"\"Y印字\""_s, u"\"更新日時\""_s,
                        u"\"最近更新日時\""_s};
    QStringList values{u"0"_s, u"0"_s, Moment, Moment};
    const customer::CustomerFields fields = newCustomer();
    for (int i = 0; i < customer::CustomerFieldCount; ++i) {
        columns.append(u'"' + customerColumn(static_cast<customer::CustomerField>(i)) + u'"');
        values.append(u'\'' + fields.texts[static_cast<std::size_t>(i)] + u'\'');
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

QString copyOf(const QString& path, const QString& name)
{
    const QString copy = path.chopped(4) + name;
    QFile::remove(copy);
    if (!QFile::copy(path, copy))
        giveUp(copy + u" cannot be written."_s);
    return copy;
}

} // namespace

Times compareAdding(const QString& path, const QString& password)
{
    const QString ours = copyOf(path, u"-adding.mdb"_s);
    const QString other = copyOf(path, u"-adding-bare.mdb"_s);
    Times times;
    {
        NoMessages messages;
        const core::SystemClock clock;
        customer::CustomerFile file(messages, clock);
        if (!OpenCustomerFile(file, ours, storage::Mode::ReadWrite))
            giveUp(ours + u" cannot be opened."_s);
        const BareFile bare(other, password);
        const customer::CustomerFields fields = newCustomer();
        const QStringList statements = addingStatements();
        times = compare(
            [&] {
                if (addCustomer(file, fields) != core::SaveResult::Saved)
                    giveUp(file.connection.lastError().message);
            },
            [&] {
                for (const QString& statement : statements)
                    bare.readAll(statement);
            },
            AddsInARun);
    }
    for (const QString& copy : {ours, other})
        QFile::remove(copy);
    QFile::remove(ours.chopped(4) + u".ldb"_s);
    return times;
}

} // namespace bench
