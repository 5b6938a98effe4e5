#include "records/screens/edit_form.h"

#include "customer/screens/upkenmei.h"
#include "customer/screens/upkokyaku.h"
#include "customer/screens/upkrog.h"
#include "customer/screens/upkyotei.h"
#include "records/data/schedule.h"
#include "storage/recordset.h"
#include "storage/transaction.h"
#include "support/customer/screens/edit_form_test.h"
#include "support/storage/refusals.h"
#include "support/ui/composed_enter.h"

#include <QFileInfo>

using namespace Qt::StringLiterals;
using core::Answer;
using storage::ErrorKind;

namespace {

const QString DraftQuestion =
    u"前回、保存されずに閉じた入力があります。\r\n続きから入力しますか？"_s;
const QString ChangedQuestion =
    u"すでにデータが更新されている可能性があります、このまま更新しますか？"_s;

// What every edit form has to stand up to, to add and to change.
class EditFormTableTest : public EditFormTest {
protected:
    struct Form {
        const char* name;
        const records::RecordTable& table;
        core::RecordKey key;            // of the record that is changed
        QList<core::RecordKey> parents; // of a new one
        std::function<void()> add;      // opens the form for a new record
        std::function<void()> change;   // and on the record as it is now
        const char* longText;           // the field that takes any length
        QString column;                 // that it shows
        int textFields;
    };

    void SetUp() override
    {
        EditFormTest::SetUp();
        owner = addNamed(u"加藤"_s, u"ｶﾄｳ"_s).key;
        ofCase = addCaseOf(owner, u"点検"_s).key;
        log = addLogOf(ofCase, u"佐藤"_s, u"受付"_s).key;
        entry =
            CustomerTest::add(
                records::scheduleTable(), {},
                {{u"日付"_s, u"2024/04/15(月)"_s}, {u"時刻"_s, u"00:00"_s}, {u"予定"_s, u"棚卸"_s}})
                .key;
        shortenWaiting(file.connection);
    }

    template <typename Screen>
    Form form_(const char* name, const records::RecordTable& table, const core::RecordKey& key,
               const QList<core::RecordKey>& parents, const char* longText, const QString& column,
               int textFields)
    {
        return {name,
                table,
                key,
                parents,
                [this, parents] {
                    add<Screen>(parents);
                    fillRequired();
                },
                [this, &table, key] { edit<Screen>(table, key); },
                longText,
                column,
                textFields};
    }
    QList<Form> forms()
    {
        using namespace customer;
        return {
            form_<upkokyaku>("customer", customerTable(), owner, {}, "txtkokyaku_15", u"備考"_s,
                             16),
            form_<upkenmei>("case", caseTable(), ofCase, {owner}, "kenmei2", u"備考"_s, 2),
            form_<upkrog>("log entry", logTable(), log, {ofCase}, "Rrogu", u"Rログ"_s, 2),
            form_<upkyotei>("schedule", records::scheduleTable(), entry, {}, "yotei1", u"予定"_s,
                            1),
        };
    }
    void fillRequired()
    {
        for (const QString& field : {u"txtkokyaku_0"_s, u"txtkokyaku_1"_s}) {
            if (auto* const required = form->findChild<QLineEdit*>(field))
                required->setText(u"ｷﾑﾗ"_s);
        }
    }
    QPlainTextEdit& text(const Form& of)
    {
        return control<QPlainTextEdit>(QLatin1String(of.longText));
    }
    QString caption(const char* button)
    {
        return control<QPushButton>(QLatin1String(button)).text();
    }
    QString stored(const Form& of) { return fresh(of.table, of.key).text(of.column); }
    int rows(const Form& of)
    {
        return valueOf(u"SELECT count(*) AS n FROM "_s + of.table.name).toInt();
    }
    void changeElsewhere(const Form& of) { CustomerTest::change(of.table, of.key, {}); }
    void deleteElsewhere(const records::RecordTable& table, const core::RecordKey& key)
    {
        execute(u"DELETE FROM "_s + table.name + u" WHERE "_s + table.updateIdColumn + u" = "_s
                + QString::number(key.updateId));
    }

    // All that the forms write, row by row.
    QStringList everything()
    {
        QStringList all;
        for (const QString& table :
             {u"ユーザー"_s, u"件名"_s, u"ログ"_s, u"予定"_s, u"最新発番"_s}) {
            storage::Recordset row;
            EXPECT_TRUE(row.open(table, file.connection));
            for (; !row.eof(); row.moveNext()) {
                QString line = table;
                for (int i = 0; i < row.fieldCount(); ++i)
                    line += u'|' + row.value(i).toText();
                all.append(line);
            }
        }
        return all;
    }

    core::RecordKey owner, ofCase, log, entry;
};

TEST_F(EditFormTableTest, SaysByItsButtonsWhatItDoesAndWritesWhatWasEdited)
{
    for (const Form& each : forms()) {
        SCOPED_TRACE(each.name);
        const int before = rows(each);
        each.add();
        EXPECT_EQ(form->windowTitle(), u"追加"_s);
        EXPECT_EQ(caption("Command1") + caption("Command2"), u"追　加初期化"_s);
        text(each).setPlainText(u"一\n二"_s);
        press("Command2");
        EXPECT_EQ(text(each).toPlainText(), QString());
        tick("chkrenzo");
        for (int i = 1; i <= 2; ++i) {
            fillRequired();
            text(each).setPlainText(u"一\n二"_s);
            press("Command1");
            EXPECT_TRUE(form->isVisible());
            EXPECT_EQ(text(each).toPlainText(), QString());
            EXPECT_EQ(rows(each), before + i);
            EXPECT_EQ(form->savedRecord()->text(each.column), u"一\r\n二"_s);
        }
        press("Command3");
        EXPECT_EQ(writes->size(), 2);

        // Line ends and other texts that were not edited stay as they came.
        each.change();
        EXPECT_EQ(form->windowTitle(), u"編集"_s);
        EXPECT_EQ(caption("Command1") + caption("Command2"), u"更　新削　除"_s);
        EXPECT_FALSE(control<QCheckBox>(u"chkrenzo"_s).isVisible());
        text(each).setPlainText(u"三"_s);
        press("Command1");
        EXPECT_FALSE(form->isVisible());
        EXPECT_EQ(stored(each), u"三"_s);
        writeFields(file, each.table, fresh(each.table, each.key).key, {{each.column, u"a\nb"_s}});
        each.change();
        press("Command1");
        EXPECT_EQ(stored(each), u"a\nb"_s);
    }
    EXPECT_TRUE(messages.takeBoxes().isEmpty()) << "nothing was to be asked";
}

TEST_F(EditFormTableTest, WhatWasDeclinedIsOfferedOnceWhenTheRecordIsOpenedNext)
{
    for (const Form& each : forms()) {
        SCOPED_TRACE(each.name);
        each.change();
        text(each).setPlainText(u"typed"_s);
        changeElsewhere(each);
        messages.willAnswer(Answer::No);
        press("Command1");
        EXPECT_EQ(messages.takeBoxes(),
                  QList<ScriptedMessages::Box>(
                      {{52, ChangedQuestion}, {64, u"リスト表示を更新して下さい"_s}}));
        EXPECT_FALSE(form->isVisible());
        EXPECT_NE(stored(each), u"typed"_s);

        messages.willAnswer(Answer::Yes);
        each.change();
        EXPECT_EQ(messages.takeText(), DraftQuestion);
        EXPECT_EQ(text(each).toPlainText(), u"typed"_s);
        press("Command1");
        EXPECT_EQ(stored(each), u"typed"_s);
        each.change(); // saved: nothing is offered any more
        press("Command3");

        // Changed elsewhere, and overwritten all the same.
        each.change();
        text(each).setPlainText(u"mine"_s);
        changeElsewhere(each);
        messages.willAnswer(Answer::Yes);
        press("Command1");
        EXPECT_EQ(messages.takeText(), ChangedQuestion);
        EXPECT_EQ(stored(each), u"mine"_s);
    }
}

TEST_F(EditFormTableTest, WhatWasTypedForARecordThatIsGoneIsOfferedForTheNextNewOne)
{
    const QList<Form> all = forms();
    for (auto each = all.crbegin(); each != all.crend(); ++each) {
        SCOPED_TRACE(each->name);
        each->change();
        text(*each).setPlainText(u"typed"_s);
        deleteElsewhere(each->table, each->key);
        press("Command1");
        EXPECT_EQ(messages.takeBoxes().value(0).style, 48);
        EXPECT_FALSE(form->isVisible());
        messages.willAnswer(Answer::Yes);
        each->add();
        EXPECT_EQ(messages.takeText(), DraftQuestion);
        EXPECT_EQ(text(*each).toPlainText(), u"typed"_s);
        press("Command2");
        press("Command3");
    }
}

TEST_F(EditFormTableTest, NothingIsAddedToAParentThatIsGoneAndTheTextStays)
{
    const QList<Form> all = forms();
    for (const int place : {2, 1}) { // the log entry's case first
        const Form& each = all.at(place);
        SCOPED_TRACE(each.name);
        const int before = rows(each);
        each.add();
        text(each).setPlainText(u"typed"_s);
        deleteElsewhere(all.at(place - 1).table, each.parents.first());
        press("Command1");
        EXPECT_EQ(messages.takeText(), u"追加しようしているデータ元がみつかりません。"_s);
        EXPECT_TRUE(form->isVisible());
        EXPECT_EQ(text(each).toPlainText(), u"typed"_s);
        EXPECT_EQ(rows(each), before);
        press("Command2");
        press("Command3");
    }
}

TEST_F(EditFormTableTest, DeletesAfterAsking)
{
    const QList<Form> all = forms();
    for (auto each = all.crbegin(); each != all.crend(); ++each) {
        SCOPED_TRACE(each->name);
        const int before = rows(*each);
        each->change();
        messages.willAnswer(Answer::No);
        press("Command2");
        EXPECT_TRUE(form->isVisible());
        messages.willAnswer(Answer::Yes);
        press("Command2");
        EXPECT_EQ(messages.takeBoxes(), QList<ScriptedMessages::Box>(2, {52, u"削除しますか？"_s}));
        EXPECT_FALSE(form->isVisible());
        EXPECT_EQ(rows(*each), before - 1);
    }
}

// A disk without room for one page more.
struct FullDisk {
    explicit FullDisk(storage::Connection& of) : connection(of) { limitSize(connection, 0); }
    ~FullDisk() { limitSize(connection, 100000); }
    FullDisk(const FullDisk&) = delete;
    FullDisk& operator=(const FullDisk&) = delete;

    storage::Connection& connection;
};

// A copy of the program that is in the middle of a write.
struct WritingCopy {
    explicit WritingCopy(const QString& path) : copy(path), writing(copy.file.connection) {}

    OtherCopy copy;
    storage::Transaction writing;
};

TEST_F(EditFormTableTest, ARefusedSaveSaysWhyAndLosesNothing)
{
    const struct {
        ErrorKind kind;
        QString words;
        std::function<std::shared_ptr<void>()> begin; // null: not possible here
        bool refusesDeletes;
    } refusals[] = {
        {ErrorKind::Full, u"ディスクの空き容量が不足しています。"_s,
         [this] { return std::make_shared<FullDisk>(file.connection); }, false},
        {ErrorKind::ReadOnly, u"ファイルのあるフォルダに書き込めません。"_s,
         [this]() -> std::shared_ptr<void> {
             auto folder = std::make_shared<ReadOnlyFolder>(QFileInfo(path()).path());
             return folder->holds() ? folder : nullptr;
         },
         true},
        {ErrorKind::Busy, u"他で使用中の為、待ち時間（10秒）内に処理できませんでした。"_s,
         [this] { return std::make_shared<WritingCopy>(path()); }, true},
    };
    int round = 100;
    for (const Form& each : forms()) {
        for (const bool adding : {true, false}) {
            for (const auto& refusal : refusals) {
                SCOPED_TRACE(testing::Message()
                             << each.name << ": " << refusal.words.toStdString());
                (adding ? each.add : each.change)();
                // Never set back: a full disk must find no page that was freed.
                const QString typed = QString(20000, u'長') + QString::number(++round);
                text(each).setPlainText(typed);
                const QStringList before = everything();

                std::shared_ptr<void> refused = refusal.begin();
                if (!refused)
                    continue; // a superuser that may not mount
                press("Command1");
                EXPECT_TRUE(messages.takeText().startsWith(u"保存できませんでした。\r\n"_s
                                                           + refusal.words));
                EXPECT_EQ(takeErrors(), QList{refusal.kind});
                if (!adding && refusal.refusesDeletes) {
                    messages.willAnswer(Answer::Yes);
                    press("Command2");
                    EXPECT_TRUE(messages.takeBoxes().value(1).text.startsWith(
                        u"削除できませんでした。\r\n"_s + refusal.words));
                    EXPECT_EQ(takeErrors(), QList{refusal.kind});
                }
                refused.reset();
                EXPECT_TRUE(form->isVisible());
                EXPECT_EQ(text(each).toPlainText(), typed);
                EXPECT_TRUE(everything() == before);
                EXPECT_EQ(integrity(file.connection), u"ok"_s);
                EXPECT_EQ(writes->size(), 0);

                press("Command1"); // what was typed is still to be had
                EXPECT_FALSE(form->isVisible());
                EXPECT_EQ(writes->size(), 1);
                EXPECT_EQ(everything().join(u'\n').count(typed), 1);
            }
        }
    }
}

TEST_F(EditFormTableTest, EnterThatConfirmsAConversionStaysInItsField)
{
    const QStringList before = everything();
    for (const Form& each : forms()) {
        SCOPED_TRACE(each.name);
        each.change();
        EXPECT_EQ(expectConversionsStayInTheirFields(*form), each.textFields);
        EXPECT_EQ(writes->size(), 0);
        drafts = {};
    }
    EXPECT_EQ(everything(), before);
}

} // namespace
