#include "customer/data/notice.h"
#include "customer/data/settings.h"
#include "customer/data/shortcuts.h"
#include "support/customer/data/customer_test.h"

using namespace Qt::StringLiterals;
using namespace customer;
using core::Answer;
using core::RecordKey;
using records::DeleteResult;
using records::FieldValues;
using records::Record;
using records::SaveResult;

namespace {

// Cases, logs, shortcuts, settings and the notice of a file.
class DeskTest : public OpenCustomerTest {
protected:
    void SetUp() override
    {
        OpenCustomerTest::SetUp();
        m_owner = addNamed(u"客"_s, u"ｷｬｸ"_s).key;
        m_case = addCaseOf(m_owner, u"修繕"_s).key;
    }

    QString recentOf(const QString& table)
    {
        return valueOf(u"SELECT 最近更新日時 FROM "_s + table);
    }

    RecordKey m_owner;
    RecordKey m_case;
};

TEST_F(DeskTest, FinishingACaseStampsTheDayAndReopeningEmptiesIt)
{
    const std::pair<QString, QString> steps[] = {
        {u"完了"_s, u"2024/04/15(月)"_s}, {u"続行"_s, u""_s}, {u"保留"_s, u""_s}};
    for (const auto& [state, finished] : steps) {
        Record after;
        EXPECT_EQ(changeRecord(file, caseTable(), fresh(caseTable(), m_case).key,
                               {{u"判定"_s, state}}, {}, &after),
                  SaveResult::Saved);
        EXPECT_EQ(after.text(u"完了日"), finished);
    }
    // Also when it is finished from the start.
    EXPECT_EQ(add(caseTable(), {m_owner}, {{u"判定"_s, u"完了"_s}}).text(u"完了日"),
              u"2024/04/15(月)"_s);
}

TEST_F(DeskTest, ACaseAndALogRefreshWhatTheyBelongTo)
{
    const auto advanced = [&](const QStringList& tables) {
        for (const QString& table : tables)
            EXPECT_EQ(recentOf(table), storage::Value(clock.now()).toText()) << table.toStdString();
        clock.advanceMsecs(60000);
    };
    const QString caseRow = u"件名 WHERE 件名 = '修繕'"_s;
    const QString customerRow = u"ユーザー"_s;
    clock.advanceMsecs(60000);
    const Record second = addCaseOf(m_owner, u"二"_s);
    advanced({customerRow});
    EXPECT_EQ(changeRecord(file, caseTable(), m_case, {{u"備考"_s, u"急ぎ"_s}}, {}),
              SaveResult::Saved);
    advanced({customerRow, caseRow});
    Record log = addLogOf(m_case, u"佐藤"_s, u"電話"_s);
    EXPECT_EQ(log.number(u"ユーザーID"), m_owner.id);
    advanced({customerRow, caseRow});
    EXPECT_EQ(changeRecord(file, logTable(), log.key, {{u"Rログ"_s, u"訪問"_s}}, {}, &log),
              SaveResult::Saved);
    advanced({customerRow, caseRow});
    messages.willAnswer(Answer::Yes);
    EXPECT_EQ(removeRecord(file, logTable(), log.key), DeleteResult::Deleted);
    advanced({customerRow, caseRow});
    messages.willAnswer(Answer::Yes);
    EXPECT_EQ(removeRecord(file, caseTable(), second.key), DeleteResult::Deleted);
    advanced({customerRow});
    messages.takeBoxes();
    // A flag is no change of the record.
    const QString before = recentOf(caseRow);
    EXPECT_EQ(writeFields(file, caseTable(), fresh(caseTable(), m_case).key, {{u"K印字"_s, 1}}),
              SaveResult::Saved);
    EXPECT_EQ(recentOf(caseRow), before);
}

TEST_F(DeskTest, ShortcutsBearTheNameOfTheirFileWhereverItLies)
{
    const std::tuple<const records::RelatedFiles&, RecordKey, QString, QString> shortcuts[] = {
        {customerFiles(), m_owner, u"C:\\資料\\見積 A.xls"_s, u"見積 A.xls"_s},
        {caseFiles(), m_case, u"/home/資料/図'面.pdf"_s, u"図'面.pdf"_s},
    };
    for (const auto& [kind, owner, path, name] : shortcuts) {
        EXPECT_EQ(addShortcut(file, kind, owner, path), SaveResult::Saved);
        const core::ListRow row = openShortcuts(file, kind, owner)->rows(0, 9).value(0);
        EXPECT_EQ(row.cells, (QStringList{name, path}));
        const RecordKey key = RecordKey::fromText(row.key);
        EXPECT_EQ(shortcutPath(file, kind, key), path);
        execute(u"DELETE FROM "_s + kind.table.name);
        EXPECT_EQ(deleteShortcut(file, kind, key), DeleteResult::Gone);
        EXPECT_EQ(messages.takeBoxes().value(0).style, 48);
    }
}

TEST_F(DeskTest, RecordersAreOfferedByTheirLastUse)
{
    for (const QString& name : {u"佐藤"_s, u"鈴木"_s, u""_s, u"佐藤"_s, u"O'Hara"_s})
        addLogOf(m_case, name, u"文"_s);
    EXPECT_EQ(recorderNames(file), (QStringList{u"O'Hara"_s, u"佐藤"_s, u"鈴木"_s}));
    // Those of long ago come behind, in their order.
    ASSERT_TRUE(file.connection.begin());
    for (int i = 0; i < 5000; ++i)
        execute(u"INSERT INTO ログ (記録者) VALUES ('鈴木')"_s);
    ASSERT_TRUE(file.connection.commit());
    EXPECT_EQ(recorderNames(file), (QStringList{u"鈴木"_s, u"O'Hara"_s, u"佐藤"_s}));
}

TEST_F(DeskTest, SettingsStandInForWhatIsMissing)
{
    using namespace settings;
    EXPECT_TRUE(saveSettings(file, {{DetailLeft, -1200}, {CustomersShown, 50}}));
    records::Settings read = records::readSettings(file);
    EXPECT_EQ(read[DetailLeft], -1200);
    EXPECT_EQ(read[CustomersShown], 50);

    execute(
        u"UPDATE 設定 SET ログプレ表示 = null, 顧客表示数 = null, 最近更新顧客表示日数 = null"_s);
    read = records::readSettings(file);
    EXPECT_EQ(read[PreviewShown], 1);
    EXPECT_EQ(read[CustomersShown], 0); // all rows
    EXPECT_EQ(read[RecentCustomerDays], 7);

    execute(u"DELETE FROM 設定"_s);
    EXPECT_EQ(records::readSettings(file)[CasesShown], 100);
    EXPECT_TRUE(saveSettings(file, read, {{DetailTop, 7}}));
    EXPECT_EQ(read[DetailTop], 7);
    read = records::readSettings(file);
    EXPECT_EQ(read[DetailTop], 7);
    EXPECT_EQ(read[CasesShown], 100);
}

TEST_F(DeskTest, NoticeCountsThisMonthAndToday)
{
    addCaseOf(m_owner, u"二"_s);
    add(caseTable(), {m_owner}, {{u"判定"_s, u"完了"_s}});
    for (const QString& end : {u"2024/03/31(日)"_s, u"2024/04/01(月)"_s, u"2024/04/30(火)"_s,
                               u"2024/05/01(水)"_s, u"2023/04/15(土)"_s})
        execute(u"INSERT INTO リースリスト (終了日) VALUES ('"_s + end + u"')"_s);
    for (const QString& day : {u"2024/04/14(日)"_s, u"2024/04/15(月)"_s})
        execute(u"INSERT INTO 予定 (日付, 予定) VALUES ('"_s + day + u"', '会議')"_s);
    EXPECT_EQ(noticeLines(file),
              (QStringList{u"続行中の件名： 2 件"_s, u"今月終了リース件数： 2 件"_s,
                           u"今日の予定数： 1 件"_s, u"一覧は印刷にて確認出来ます。"_s}));
}

} // namespace
