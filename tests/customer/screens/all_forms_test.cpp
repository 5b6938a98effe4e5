#include "customer/data/logs.h"
#include "customer/screens/upkenmei.h"
#include "customer/screens/upkokyaku.h"
#include "customer/screens/upkrog.h"
#include "customer/screens/upkyotei.h"
#include "storage/recordset.h"
#include "storage/transaction.h"
#include "support/customer/screens/edit_form_test.h"
#include "support/storage/refusals.h"
#include "support/ui/composed_enter.h"

#include <QFileInfo>

using namespace Qt::StringLiterals;
using storage::ErrorKind;

namespace {

// What all edit screens of a customer file have to stand up to, each to add and to change.
class AllFormsTest : public EditFormTest {
protected:
    struct Form {
        const char* name;
        std::function<void()> open; // on the record as it is now
        const char* longText;       // the field that takes any length
        int textFields;
        bool adding = false;
    };

    void SetUp() override
    {
        EditFormTest::SetUp();
        owner = addNamed(u"加藤"_s, u"ｶﾄｳ"_s).key;
        ofCase = addCaseOf(owner, u"点検"_s).key;
        ASSERT_EQ(addLog(file, ofCase, {clock.today(), u"佐藤"_s, u"受付"_s}, &log),
                  records::SaveResult::Saved);
        ASSERT_EQ(addScheduleEntry(file, {clock.today(), {}, u"棚卸"_s}), records::SaveResult::Saved);
        shortenWaiting(file.connection);
    }

    QList<Form> forms()
    {
        using namespace customer;
        const core::RecordKey entry{1, 0, 1, {}};
        return {
            {"add a customer", [this] { opens<upkokyaku>(newCustomer()); }, "txtkokyaku_15", 16,
             true},
            {"change a customer",
             [this] {
                 const KeptCustomer kept = fresh(owner);
                 opens<upkokyaku>(upkokyaku::Opening{false, kept.key, kept.fields});
             },
             "txtkokyaku_15", 16},
            {"add a case", [this] { opens<upkenmei>(owner); }, "kenmei2", 2, true},
            {"change a case", [this] { opens<upkenmei>(*readCase(file, ofCase)); }, "kenmei2", 2},
            {"add a log entry", [this] { opens<upkrog>(ofCase); }, "Rrogu", 2, true},
            {"change a log entry", [this] { opens<upkrog>(*readLog(file, log)); }, "Rrogu", 2},
            {"add to the schedule", [this] { opens<upkyotei>(clock.today()); }, "yotei1", 1, true},
            {"change the schedule",
             [this, entry] { opens<upkyotei>(*records::readScheduleEntry(file, entry)); }, "yotei1",
             1},
        };
    }

    template <typename Screen, typename Record> void opens(const Record& record)
    {
        show(std::make_unique<Screen>(file, drafts, record, nullptr));
    }
    static customer::upkokyaku::Opening newCustomer()
    {
        customer::CustomerFields fields;
        fields.texts[customer::DisplayReading] = u"ｷﾑﾗ"_s;
        fields.texts[customer::DisplayName] = u"木村"_s;
        return {true, {}, fields};
    }

    // All that the forms write, row by row.
    QStringList everything()
    {
        QStringList rows;
        for (const QString& table :
             {u"ユーザー"_s, u"件名"_s, u"ログ"_s, u"予定"_s, u"最新発番"_s}) {
            storage::Recordset row;
            EXPECT_TRUE(row.open(table, file.connection));
            for (; !row.eof(); row.moveNext()) {
                QString fields = table;
                for (int i = 0; i < row.fieldCount(); ++i)
                    fields += u'|' + row.value(i).toText();
                rows.append(fields);
            }
        }
        return rows;
    }

    core::RecordKey owner;
    core::RecordKey ofCase;
    core::RecordKey log;
};

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

TEST_F(AllFormsTest, ARefusedSaveSaysWhyAndLosesNothing)
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
        for (const auto& refusal : refusals) {
            SCOPED_TRACE(testing::Message() << each.name << ": " << refusal.words.toStdString());
            each.open();
            auto& text = control<QPlainTextEdit>(QLatin1String(each.longText));
            // Never set back: a full disk must find no page that was freed.
            const QString typed = QString(20000, u'長') + QString::number(++round);
            text.setPlainText(typed);
            const QStringList before = everything();

            std::shared_ptr<void> refused = refusal.begin();
            if (!refused)
                continue; // a superuser that may not mount
            press("Command1");
            EXPECT_TRUE(
                messages.takeText().startsWith(u"保存できませんでした。\r\n"_s + refusal.words));
            EXPECT_EQ(takeErrors(), QList{refusal.kind});
            if (!each.adding && refusal.refusesDeletes) {
                messages.willAnswer(core::Answer::Yes);
                press("Command2");
                EXPECT_TRUE(messages.takeBoxes().value(1).text.startsWith(
                    u"削除できませんでした。\r\n"_s + refusal.words));
                EXPECT_EQ(takeErrors(), QList{refusal.kind});
            }
            refused.reset();
            EXPECT_TRUE(form->isVisible());
            EXPECT_EQ(text.toPlainText(), typed);
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

TEST_F(AllFormsTest, EnterThatConfirmsAConversionStaysInItsField)
{
    const QStringList before = everything();
    for (const Form& each : forms()) {
        SCOPED_TRACE(each.name);
        each.open();
        EXPECT_EQ(expectConversionsStayInTheirFields(*form), each.textFields);
        EXPECT_EQ(writes->size(), 0);
    }
    EXPECT_EQ(everything(), before);
}

} // namespace
