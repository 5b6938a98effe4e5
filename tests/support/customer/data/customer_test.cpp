#include "support/customer/data/customer_test.h"

#include "text/dates.h"

using namespace Qt::StringLiterals;
using records::Record;
using records::RecordTable;

records::FieldValues CustomerTest::named(const QString& name, const QString& reading)
{
    return {{u"表示名ﾌﾘｶﾞﾅ"_s, reading}, {u"表示名"_s, name}};
}

Record CustomerTest::add(const RecordTable& table, const QList<core::RecordKey>& parents,
                         const records::FieldValues& entered)
{
    Record added;
    EXPECT_EQ(addRecord(file, table, parents, entered, &added), records::SaveResult::Saved);
    return added;
}

Record CustomerTest::addNamed(const QString& name, const QString& reading)
{
    return add(customer::customerTable(), {}, named(name, reading));
}

Record CustomerTest::addCaseOf(const core::RecordKey& owner, const QString& title)
{
    return add(customer::caseTable(), {owner},
               {{u"登録日"_s, text::formatDate(clock.today())},
                {u"件名"_s, title},
                {u"判定"_s, u"続行"_s}});
}

Record CustomerTest::addLogOf(const core::RecordKey& ofCase, const QString& recorder,
                              const QString& text)
{
    return add(customer::logTable(), {ofCase},
               {{u"登録日"_s, text::formatDate(clock.today())},
                {u"記録者"_s, recorder},
                {u"Rログ"_s, text}});
}

Record CustomerTest::fresh(const RecordTable& table, const core::RecordKey& key)
{
    const std::optional<Record> record = readRecord(file, table, key);
    EXPECT_TRUE(record);
    return record.value_or(Record{});
}

void CustomerTest::change(const RecordTable& table, const core::RecordKey& key,
                          const records::FieldValues& edited)
{
    OtherCopy other(path());
    const std::optional<Record> record = readRecord(other.file, table, key);
    ASSERT_TRUE(record);
    EXPECT_EQ(writeFields(other.file, table, record->key, edited), records::SaveResult::Saved);
}
