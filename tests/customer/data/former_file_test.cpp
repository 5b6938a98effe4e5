#include "core/data/database_password.h"
#include "customer/data/case_index.h"
#include "records/data/record_list.h"
#include "records/data/schedule.h"
#include "storage/engine/engine.h"
#include "support/customer/data/customer_test.h"
#include "support/storage/former_format.h"
#include "text/dates.h"

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;
using records::ListFilter;
using testing::Contains;
using testing::HasSubstr;
using testing::Not;

namespace {

// A customer file as the program before this one has made it: its days and its recorders stand in
// indexes over their keys.
class FormerFileTest : public CustomerTest {
protected:
    void SetUp() override
    {
        CustomerTest::SetUp();
        ASSERT_TRUE(open());
        fill();
        const QStringList today = indexNames(file.connection);
        for (const QString& name : today) {
            if (name.contains(u"日(fold)"_s) || name.contains(u"日付(fold)"_s))
                run(u"DROP INDEX \""_s + name + u'"');
        }
        for (const QString& index : {u"件名_登録日 ON 件名 (corvane_key(登録日), 件名ID"_s,
                                     u"件名_予定日 ON 件名 (corvane_fold(予定日)"_s,
                                     u"ログ_記録者 ON ログ (corvane_key(記録者)"_s})
            run(u"CREATE INDEX _"_s + index + u')');
        makeFormerFormat(file.connection);
        m_today = today;
        CloseCustomerFile(file);
    }

    void run(const QString& statement)
    {
        ASSERT_FALSE(file.connection.session()->run({statement, {}}, nullptr));
    }

    void fill()
    {
        const auto owner = addNamed(u"甲"_s, u"ｺｳ"_s).key;
        core::RecordKey of;
        for (int i = 0; i < 12; ++i) {
            const QDate day = clock.today().addDays(i * 17 % 40 - 20);
            const QString planned = i % 4 ? text::formatDate(clock.today().addDays(-i)) : QString();
            of = add(customer::caseTable(), {owner},
                     {{u"登録日"_s, text::formatDate(day)},
                      {u"件名"_s, u"件"_s + QString::number(i)},
                      {u"判定"_s, i % 3 ? u"続行"_s : u"完了"_s},
                      {u"予定日"_s, planned}})
                     .key;
            const QString name = QStringList{u"佐野"_s, u"工藤"_s, u""_s, u"O'Hara"_s}[i % 4];
            addLogOf(of, name, u"文"_s);
            add(records::scheduleTable(), {},
                {{u"日付"_s, text::formatDate(day)},
                 {u"時刻"_s, u"00:00"_s},
                 {u"予定"_s, u"予定"_s}});
        }
        execute(u"UPDATE 件名 SET 登録日 = '平成六年' WHERE 件名 = '件11'"_s); // from elsewhere
    }

    QStringList answers()
    {
        QStringList all = recorderNames(file);
        const records::Settings settings;
        QList<ListFilter> filters{customer::casesOfDay(clock.today()),
                                  customer::casesWithText(u"件1"_s)};
        for (const records::IndexNode& node : customer::caseIndex({}).mid(1, 3))
            filters.append(*node.filter({settings, clock.today()}));
        for (const ListFilter& filter : std::as_const(filters)) {
            for (const int column : {0, 1}) {
                for (const bool descending : {false, true}) {
                    const auto list =
                        openList(file, customer::caseList(), filter,
                                 orderOf(customer::caseList(), column, descending), settings);
                    for (const core::ListRow& row : list->rows(0, 100))
                        all += row.cells.join(u'|');
                }
            }
        }
        const auto schedule =
            openSchedule(file, clock.today().addDays(-9), clock.today().addDays(9));
        for (const core::ListRow& row : schedule->rows(0, 100))
            all += row.cells.join(u'|');
        return all;
    }

    QStringList m_today; // the indexes of a new file
};

TEST_F(FormerFileTest, IsConvertedAtItsFirstOpeningAlone)
{
    QStringList before;
    {
        storage::Connection another;
        ASSERT_TRUE(another.open(path(), QString::fromUtf16(core::DatabasePassword)));
        ASSERT_TRUE(open());
        EXPECT_TRUE(hasFormerFormat(file.connection));
        before = answers();
        EXPECT_EQ(before.mid(0, 3), (QStringList{u"O'Hara"_s, u"工藤"_s, u"佐野"_s}));
        EXPECT_GT(before.size(), 100);
        CloseCustomerFile(file);
    }
    for (int opening = 0; opening < 2; ++opening) {
        ASSERT_TRUE(open());
        EXPECT_FALSE(hasFormerFormat(file.connection));
        EXPECT_EQ(indexNames(file.connection), m_today);
        EXPECT_EQ(answers(), before);
        CloseCustomerFile(file);
    }
}

// Without statistics the engine has to see by itself that an index gives the order.
TEST_F(FormerFileTest, ThenEveryOrderOfDaysIsReadFromAnIndex)
{
    ASSERT_TRUE(open());
    const QString cases =
        u"SELECT * FROM ユーザー INNER JOIN 件名 ON "
        "(ユーザー.ﾕｰｻﾞｰ識別ID = 件名.件名識別ID) AND (ユーザー.ﾕｰｻﾞｰID = 件名.ﾕｰｻﾞｰID)"_s;
    for (
        const QString& statement : {
            cases + u" ORDER BY 件名.登録日 ,件名.件名ID"_s,
            cases + u" ORDER BY 件名.登録日 DESC ,件名.件名ID DESC"_s,
            cases + u" ORDER BY 件名.予定日 ,件名.件名ID"_s,
            cases + u" WHERE 件名.判定 = '続行' ORDER BY 件名.登録日 ,件名.件名ID"_s,
            u"SELECT max(登録日) FROM 件名"_s,
            u"SELECT * From 予定 WHERE 日付 Between '2024/04/01' And '2024/04/30(火)' ORDER BY 日付,時刻"_s,
        }) {
        const QStringList plan = planOf(file.connection, statement);
        EXPECT_THAT(plan, Contains(testing::Property(&QString::toStdString, HasSubstr("(fold)"))))
            << statement.toStdString();
        EXPECT_THAT(
            plan, Not(Contains(testing::Property(&QString::toStdString, HasSubstr("TEMP B-TREE")))))
            << statement.toStdString();
    }
    const QStringList days = planOf(
        file.connection,
        cases + u" WHERE 件名.登録日 Like '2024/04/15(月)' OR 件名.予定日 Like '2024/04/15(月)'"_s);
    EXPECT_THAT(days,
                Contains(testing::Property(&QString::toStdString, HasSubstr("登録日(fold)"))));
    EXPECT_THAT(days,
                Contains(testing::Property(&QString::toStdString, HasSubstr("予定日(fold)"))));
}

// The upgrade adds the planned day by a statement that cannot say so.
TEST_F(FormerFileTest, APlannedDayThatTheUpgradeAddedIsOneToo)
{
    create(storage::schema::Version::V300);
    ASSERT_TRUE(open());
    const storage::schema::Table* cases = file.connection.catalog().find(u"件名");
    const int place = cases->indexOf(u"予定日");
    ASSERT_GE(place, 0);
    EXPECT_TRUE(cases->columns()[place].isDay);
    EXPECT_EQ(cases->columns()[place].maxLength, 13);
    EXPECT_EQ(indexNames(file.connection), m_today);
}

} // namespace
