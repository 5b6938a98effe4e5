#include "records/data/record_table.h"

#include "customer/data/custom_searches.h"
#include "customer/data/deliveries.h"
#include "customer/data/free_items.h"
#include "customer/data/shortcuts.h"
#include "records/data/schedule.h"
#include "storage/recordset.h"
#include "support/customer/data/customer_test.h"

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;
using core::Answer;
using core::RecordKey;
using records::DeleteResult;
using records::FieldValues;
using records::Record;
using records::RecordTable;
using records::SaveResult;
using records::setField;
using Box = ScriptedMessages::Box;

namespace {

const QString ChangedQuestion =
    u"すでにデータが更新されている可能性があります、このまま更新しますか？"_s;
const Box GoneBox{48,
                  u"データが削除されている為、更新できません。\r\nリスト表示を更新して下さい。"_s};
const Box NoParentBox{16, u"追加しようしているデータ元がみつかりません。"_s,
                      u"すでに削除された可能性があります。再表示後にデータを確認して下さい。"_s};

// Each kind of record of a customer file.
struct Kind {
    const RecordTable* table;
    FieldValues entered; // one field for the tests to edit comes first
    QList<int> parents;  // by their places in kinds()
    QString counter;
};

const QList<Kind>& kinds()
{
    using namespace customer;
    static const QList<Kind> all{
        {&customerTable(),
         {{u"備考"_s, u"一"_s}, {u"表示名"_s, u"名"_s}, {u"表示名ﾌﾘｶﾞﾅ"_s, u"ﾅ"_s}},
         {},
         u"ユーザー"_s},
        {&caseTable(), {{u"件名"_s, u"一"_s}, {u"判定"_s, u"続行"_s}}, {0}, u"件名"_s},
        {&logTable(), {{u"Rログ"_s, u"一"_s}}, {1}, u"ログ"_s},
        {&deliveryTable(), {{u"品名"_s, u"一"_s}}, {0}, u"納品"_s},
        {&leaseTable(), {{u"ﾘｰｽ名"_s, u"一"_s}}, {3, 0}, u"リース"_s},
        {&customerFiles().table, {{u"ﾌｧｲﾙ名"_s, u"一"_s}}, {0}, u"ユーザー関連"_s},
        {&caseFiles().table, {{u"ﾌｧｲﾙ名"_s, u"一"_s}}, {1}, u"件名関連"_s},
        {&freeItemTable(), {{u"項目名"_s, u"一"_s}}, {}, u"自由項目名"_s},
        {&records::scheduleTable(), {{u"予定"_s, u"一"_s}}, {}, u"予定"_s},
        {&customSearchTable(), {{u"文字列"_s, u"一"_s}}, {}, u"カスタム検索"_s},
    };
    return all;
}

class RecordTableTest : public OpenCustomerTest, public testing::WithParamInterface<int> {
protected:
    // A record of a kind under new parents of its own.
    Record make(int kind)
    {
        QList<RecordKey> parents;
        for (const int parent : kinds().at(kind).parents)
            parents.append(make(parent).key);
        m_parents.insert(kind, parents);
        return add(*kinds().at(kind).table, parents, kinds().at(kind).entered);
    }
    Record make() { return make(GetParam()); }
    const Kind& kind() const { return kinds().at(GetParam()); }
    const RecordTable& table() const { return *kind().table; }
    QString field() const { return kind().entered.first().first; }
    int rows() { return valueOf(u"SELECT count(*) AS n FROM "_s + table().name).toInt(); }

    SaveResult save(const Record& shown, const QString& text, Record* saved = nullptr)
    {
        FieldValues entered = kind().entered;
        setField(entered, field(), text);
        return changeRecord(file, table(), shown.key, entered, kind().entered, saved);
    }

    QHash<int, QList<RecordKey>> m_parents;
};

TEST_P(RecordTableTest, IsNumberedByItsOwnUpdateIdAndKeepsItsParents)
{
    const Record one = make();
    const Record two = make();
    EXPECT_EQ(two.key.updateId, one.key.updateId + 1);
    // The highest number is not given out again.
    execute(u"DELETE FROM "_s + table().name + u" WHERE "_s + table().idColumn + u" = "_s
            + QString::number(two.key.id));
    const Record three = make();
    EXPECT_EQ(three.key.id, two.key.id + 1);
    EXPECT_EQ(three.key.id, three.key.updateId);
    EXPECT_EQ(three.key.mark, 0);
    EXPECT_EQ(valueOf(u"SELECT "_s + kind().counter + u" FROM 最新発番"_s).toLongLong(),
              three.key.id);
    EXPECT_EQ(fresh(table(), three.key).fields, three.fields) << "it was handed out as it stands";
    for (const auto& [column, value] : kind().entered)
        EXPECT_EQ(three.text(column), value.toText());
    for (qsizetype i = 0; i < kind().parents.size(); ++i) {
        const RecordKey parent = m_parents.value(GetParam()).at(i);
        EXPECT_EQ(three.number(table().parents.at(i).idColumn), parent.id);
        for (const auto& [own, ofParent] : table().parents.at(i).inherited)
            EXPECT_EQ(three.text(own),
                      fresh(*kinds().at(kind().parents.at(i)).table, parent).text(ofParent));
    }
}

TEST_P(RecordTableTest, BearsItsParentsMark)
{
    make();
    QList<RecordKey> parents = m_parents.value(GetParam());
    for (qsizetype i = 0; i < parents.size(); ++i) {
        const RecordTable& of = *kinds().at(kind().parents.at(i)).table;
        execute(u"UPDATE "_s + of.name + u" SET "_s + of.markColumn + u" = 7 WHERE "_s
                + of.updateIdColumn + u" = "_s + QString::number(parents.at(i).updateId));
        parents[i].mark = 7;
    }
    EXPECT_EQ(add(table(), parents, kind().entered).key.mark, parents.isEmpty() ? 0 : 7);
}

TEST_P(RecordTableTest, IsNotAddedUnderAParentThatIsGone)
{
    make();
    const QList<RecordKey> parents = m_parents.value(GetParam());
    const int before = rows();
    for (qsizetype i = 0; i < parents.size(); ++i) {
        QList<RecordKey> without = parents;
        without[i].mark = 99; // another's, with the same ID
        EXPECT_EQ(addRecord(file, table(), without, kind().entered), SaveResult::NoParent);
        EXPECT_EQ(messages.takeBoxes(), QList<Box>{NoParentBox});
    }
    EXPECT_EQ(rows(), before);
}

TEST_P(RecordTableTest, AChangeWritesWhatWasEditedAndAsksNothingAfterItself)
{
    Record shown = make();
    FieldValues entered = kind().entered;
    for (const QString& text : {u"二"_s, u"三"_s}) {
        FieldValues edited = entered;
        setField(edited, field(), text);
        Record saved;
        EXPECT_EQ(changeRecord(file, table(), shown.key, edited, entered, &saved),
                  SaveResult::Saved);
        EXPECT_EQ(saved.text(field()), text);
        EXPECT_GT(saved.key.stamp, shown.key.stamp);
        EXPECT_EQ(fresh(table(), shown.key).fields, saved.fields);
        shown = saved;
        entered = edited;
    }
}

// Both copies read the row in the same millisecond; the first save is noticed all the same, also
// when the clock was set back meanwhile.
TEST_P(RecordTableTest, AChangeByAnotherCopyIsAskedAbout)
{
    const Record shown = make();
    OtherCopy other(path());
    other.clock.set(QDate(2001, 1, 1));
    EXPECT_EQ(writeFields(other.file, table(), shown.key, {{field(), u"先"_s}}), SaveResult::Saved);

    messages.willAnswer(Answer::No);
    EXPECT_EQ(save(shown, u"後"_s), SaveResult::Declined);
    const QList<Box> declined{{52, ChangedQuestion}, {64, u"リスト表示を更新して下さい"_s}};
    EXPECT_EQ(messages.takeBoxes(), declined);
    messages.willAnswer(Answer::Yes); // the delete
    messages.willAnswer(Answer::No);
    EXPECT_EQ(removeRecord(file, table(), shown.key), DeleteResult::Declined);
    EXPECT_EQ(messages.takeBoxes(), (QList<Box>{{52, u"削除しますか？"_s}} + declined));
    EXPECT_EQ(fresh(table(), shown.key).text(field()), u"先"_s);

    messages.willAnswer(Answer::Yes);
    EXPECT_EQ(save(shown, u"後"_s), SaveResult::Saved);
    EXPECT_EQ(messages.takeText(), ChangedQuestion);
    EXPECT_EQ(fresh(table(), shown.key).text(field()), u"後"_s);
}

TEST_P(RecordTableTest, IsDeletedWhenTheUserSaysYesAndToldWhenItIsGone)
{
    const Record shown = make();
    const int before = rows();
    messages.willAnswer(Answer::No);
    EXPECT_EQ(removeRecord(file, table(), shown.key), DeleteResult::Kept);
    EXPECT_EQ(messages.takeText(), u"削除しますか？"_s);
    EXPECT_EQ(rows(), before);
    messages.willAnswer(Answer::Yes);
    EXPECT_EQ(removeRecord(file, table(), shown.key), DeleteResult::Deleted);
    messages.takeBoxes();
    EXPECT_EQ(rows(), before - 1);

    EXPECT_EQ(save(shown, u"後"_s), SaveResult::Gone);
    EXPECT_EQ(writeFields(file, table(), shown.key, {{field(), u"後"_s}}), SaveResult::Gone);
    EXPECT_EQ(messages.takeBoxes(), (QList<Box>{GoneBox, GoneBox}));
    messages.willAnswer(Answer::Yes);
    EXPECT_EQ(removeRecord(file, table(), shown.key), DeleteResult::Gone);
    EXPECT_EQ(messages.takeBoxes(), (QList<Box>{{52, u"削除しますか？"_s}, GoneBox}));
    EXPECT_FALSE(readRecord(file, table(), shown.key));
    EXPECT_FALSE(readOrTell(file, table(), shown.key));
    EXPECT_EQ(messages.takeBoxes(), QList<Box>{GoneBox});
}

TEST_P(RecordTableTest, ARefusalOfTheEngineIsToldAndWritesNothing)
{
    const Record shown = make();
    const int before = rows();
    execute(u"DROP TABLE 最新発番"_s); // the row can be written, its number cannot
    EXPECT_EQ(addRecord(file, table(), m_parents.value(GetParam()), kind().entered),
              SaveResult::Failed);
    EXPECT_TRUE(messages.takeText().startsWith(u"保存できませんでした。\r\n"));
    FieldValues wrong = kind().entered;
    wrong.append({u"無い欄"_s, u"値"_s});
    EXPECT_EQ(changeRecord(file, table(), shown.key, wrong, {}), SaveResult::Failed);
    EXPECT_TRUE(messages.takeText().startsWith(u"保存できませんでした。\r\n"));
    RecordTable broken = table();
    broken.cascade.append({u"DELETE FROM 無い表"_s, records::KeyedText::None});
    messages.willAnswer(Answer::Yes);
    EXPECT_EQ(removeRecord(file, broken, shown.key), DeleteResult::Failed);
    EXPECT_TRUE(messages.takeBoxes().value(1).text.startsWith(u"削除できませんでした。\r\n"));
    EXPECT_EQ(rows(), before);
    EXPECT_EQ(fresh(table(), shown.key).fields, shown.fields);
    EXPECT_EQ(takeErrors().size(), 3);
}

INSTANTIATE_TEST_SUITE_P(Kinds, RecordTableTest, testing::Range(0, 10));

} // namespace
