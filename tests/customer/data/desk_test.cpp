#include "customer/data/case_list.h"
#include "customer/data/counts.h"
#include "customer/data/logs.h"
#include "customer/data/notice.h"
#include "customer/data/settings.h"
#include "customer/data/shortcuts.h"
#include "support/customer/data/customer_test.h"

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;
using core::Answer;
using records::DeleteResult;
using core::RecordKey;
using records::SaveResult;
using customer::CaseFields;
using customer::Settings;
using customer::ShortcutOwner;

namespace {

// Cases, logs, shortcuts, settings and the notice of a file.
class DeskTest : public OpenCustomerTest {
protected:
    using Box = ScriptedMessages::Box;

    void SetUp() override
    {
        OpenCustomerTest::SetUp();
        m_owner = addNamed(u"客"_s, u"ｷｬｸ"_s).key;
        m_case = addCaseOf(m_owner, u"修繕"_s);
        m_owner = fresh(m_owner).key;
    }

    QString recentOf(const QString& table)
    {
        return valueOf(u"SELECT 最近更新日時 FROM "_s + table);
    }

    void expectParentGone()
    {
        EXPECT_EQ(
            messages.takeBoxes(),
            (QList<Box>{
                {16, u"追加しようしているデータ元がみつかりません。"_s,
                 u"すでに削除された可能性があります。再表示後にデータを確認して下さい。"_s}}));
    }

    RecordKey m_owner;
    customer::KeptCase m_case;
};

TEST_F(DeskTest, FinishingACaseStampsTheDayAndReopeningEmptiesIt)
{
    CaseFields fields = m_case.fields;
    fields.planned = QDate(2024, 5, 1);
    RecordKey key = m_case.key;
    const struct {
        QString state;
        QString finished;
    } steps[] = {{u"完了"_s, u"2024/04/15(月)"_s}, {u"続行"_s, u""_s}, {u"保留"_s, u""_s}};
    for (const auto& step : steps) {
        fields.state = step.state;
        EXPECT_EQ(changeCase(file, key, fields), SaveResult::Saved);
        const std::optional<customer::KeptCase> kept = readCase(file, key);
        ASSERT_TRUE(kept);
        EXPECT_EQ(kept->finished, step.finished);
        EXPECT_EQ(kept->fields, fields);
        EXPECT_EQ(kept->customerId, m_owner.id);
        key = kept->key;
    }
    EXPECT_EQ(valueOf(u"SELECT 予定日 FROM 件名"_s), u"2024/05/01(水)");
    fields.planned = QDate();
    EXPECT_EQ(changeCase(file, key, fields), SaveResult::Saved);
    EXPECT_EQ(valueOf(u"SELECT 予定日 FROM 件名"_s), u"");

    fields.state = u"完了"_s; // also when it is finished from the start
    EXPECT_EQ(addCase(file, m_owner, fields, &key), SaveResult::Saved);
    EXPECT_EQ(readCase(file, key)->finished, u"2024/04/15(月)");
}

TEST_F(DeskTest, ACaseAndALogRefreshWhatTheyBelongTo)
{
    clock.advanceMsecs(60000);
    addCaseOf(m_owner, u"二"_s);
    EXPECT_EQ(recentOf(u"ユーザー"_s), u"2024/04/15 10:31:00.000");

    const QString caseRow = u"件名 WHERE 件名 = '修繕'"_s;
    RecordKey log;
    const auto advanced = [&](SaveResult result) {
        EXPECT_EQ(result, SaveResult::Saved);
        const QString now = storage::Value(clock.now()).toText();
        EXPECT_EQ(recentOf(caseRow), now);
        EXPECT_EQ(recentOf(u"ユーザー"_s), now);
        clock.advanceMsecs(60000);
    };
    clock.advanceMsecs(60000);
    advanced(addLog(file, m_case.key, {clock.today(), u"佐藤"_s, u"電話"_s}, &log));
    EXPECT_EQ(readLog(file, log)->caseId, m_case.key.id);
    EXPECT_EQ(valueOf(u"SELECT ユーザーID FROM ログ"_s).toLongLong(), m_owner.id);
    advanced(changeLog(file, log, {clock.today(), u"佐藤"_s, u"訪問"_s}));
    messages.willAnswer(Answer::Yes);
    EXPECT_EQ(deleteLog(file, readLog(file, log)->key), DeleteResult::Deleted);
    messages.takeBoxes();
    EXPECT_EQ(recentOf(caseRow), storage::Value(clock.now()).toText());
    EXPECT_EQ(customer::countLogs(file), 0);
}

TEST_F(DeskTest, NothingIsAddedToAParentThatIsGone)
{
    execute(u"DELETE FROM 件名"_s);
    EXPECT_EQ(addLog(file, m_case.key, {clock.today(), {}, u"文"_s}), SaveResult::NoParent);
    expectParentGone();
    EXPECT_EQ(addShortcut(file, ShortcutOwner::Case, m_case.key, u"/a"_s), SaveResult::NoParent);
    expectParentGone();
    execute(u"DELETE FROM ユーザー"_s);
    EXPECT_EQ(addCase(file, m_owner, m_case.fields), SaveResult::NoParent);
    expectParentGone();
    EXPECT_EQ(addShortcut(file, ShortcutOwner::Customer, m_owner, u"/a"_s), SaveResult::NoParent);
    expectParentGone();
    EXPECT_EQ(customer::countCases(file) + customer::countLogs(file), 0);
}

TEST_F(DeskTest, DeletingACaseTakesItsLogsAndShortcuts)
{
    const customer::KeptCase other = addCaseOf(m_owner, u"別"_s);
    for (const RecordKey& key : {m_case.key, other.key}) {
        EXPECT_EQ(addLog(file, key, {clock.today(), {}, u"文"_s}), SaveResult::Saved);
        EXPECT_EQ(addShortcut(file, ShortcutOwner::Case, key, u"/a"_s), SaveResult::Saved);
    }
    messages.willAnswer(Answer::Yes);
    EXPECT_EQ(deleteCase(file, readCase(file, m_case.key)->key), DeleteResult::Deleted);
    EXPECT_EQ(messages.takeText(), u"削除しますか？");
    EXPECT_EQ(column(u"SELECT 件名 FROM 件名"_s), QStringList{u"別"_s});
    EXPECT_EQ(customer::countLogs(file), 1);
    EXPECT_EQ(openShortcuts(file, ShortcutOwner::Case, m_case.key)->total(), 0);
    EXPECT_EQ(openShortcuts(file, ShortcutOwner::Case, other.key)->total(), 1);
}

TEST_F(DeskTest, ShortcutsOfCustomersAndCases)
{
    const struct {
        ShortcutOwner kind;
        RecordKey owner;
        QString path;
        QString name;
        QString question;
    } expected[] = {
        {ShortcutOwner::Customer, m_owner, u"C:\\資料\\見積 A.xls"_s, u"見積 A.xls"_s,
         u"見積 A.xls ショートカットを削除しますか？"_s},
        {ShortcutOwner::Case, m_case.key, u"/home/資料/図'面.pdf"_s, u"図'面.pdf"_s,
         u"図'面.pdf を削除しますか？"_s},
    };
    for (const auto& each : expected) {
        EXPECT_EQ(addShortcut(file, each.kind, each.owner, each.path), SaveResult::Saved);
        const auto list = openShortcuts(file, each.kind, each.owner);
        const core::ListRow row = list->rows(0, 9).value(0);
        EXPECT_EQ(row.cells, (QStringList{each.name, each.path}));
        const RecordKey key = RecordKey::fromText(row.key);
        EXPECT_EQ(shortcutPath(file, each.kind, key), each.path);
        messages.willAnswer(Answer::Yes);
        EXPECT_EQ(deleteShortcut(file, each.kind, key), DeleteResult::Deleted);
        EXPECT_EQ(messages.takeBoxes(), (QList<Box>{{52, each.question}}));
        EXPECT_EQ(openShortcuts(file, each.kind, each.owner)->total(), 0);
        EXPECT_EQ(deleteShortcut(file, each.kind, key), DeleteResult::Gone);
        EXPECT_EQ(messages.takeBoxes().value(0).style, 48);
    }
}

TEST_F(DeskTest, RecordersAreOfferedByTheirLastUse)
{
    for (const QString& name : {u"佐藤"_s, u"鈴木"_s, u""_s, u"佐藤"_s, u"O'Hara"_s})
        EXPECT_EQ(addLog(file, m_case.key, {clock.today(), name, u"文"_s}), SaveResult::Saved);
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
    EXPECT_EQ(saveSettings(file, {{&Settings::detailLeft, -1200}, {&Settings::customersShown, 50}}),
              true);
    Settings settings = readSettings(file);
    EXPECT_EQ(settings.detailLeft, -1200);
    EXPECT_EQ(settings.customersShown, 50);

    execute(u"UPDATE 設定 SET ログプレ表示 = null, 顧客表示数 = null, 上 = null"_s);
    settings = readSettings(file);
    EXPECT_EQ(settings.previewShown, 1);
    EXPECT_EQ(settings.customersShown, 0); // all rows
    EXPECT_EQ(settings.marginTop, 15);

    execute(u"DELETE FROM 設定"_s);
    EXPECT_EQ(readSettings(file), Settings{});
    EXPECT_TRUE(saveSettings(file, {{&Settings::detailTop, 7}}));
    settings = readSettings(file);
    EXPECT_EQ(settings.detailTop, 7);
    EXPECT_EQ(settings.casesShown, 100);
}

TEST_F(DeskTest, NoticeCountsThisMonthAndToday)
{
    addCaseOf(m_owner, u"二"_s);
    EXPECT_EQ(addCase(file, m_owner, {clock.today(), u"済"_s, {}, u"完了"_s}), SaveResult::Saved);
    for (const QString& end : {u"2024/03/31(日)"_s, u"2024/04/01(月)"_s, u"2024/04/30(火)"_s,
                               u"2024/05/01(水)"_s, u"2023/04/15(土)"_s})
        execute(u"INSERT INTO リースリスト (終了日) VALUES ('"_s + end + u"')"_s);
    for (const QString& day : {u"2024/04/14(日)"_s, u"2024/04/15(月)"_s})
        execute(u"INSERT INTO 予定 (日付, 予定) VALUES ('"_s + day + u"', '会議')"_s);
    EXPECT_EQ(noticeLines(file),
              (QStringList{u"続行中の件名： 2 件"_s, u"今月終了リース件数： 2 件"_s,
                           u"今日の予定数： 1 件"_s, u"一覧は印刷にて確認出来ます。"_s}));
    EXPECT_EQ(customer::countCustomers(file), 1);
    EXPECT_EQ(customer::countCases(file), 3);
}

} // namespace
