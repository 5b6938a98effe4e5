#include "storage/transaction.h"
#include "support/customer/screens/all_forms_test.h"

#include <QFileInfo>

using core::Answer;
using storage::ErrorKind;

namespace {

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
        {ErrorKind::ReadOnly, u"ファイルのあるフォルダーに書き込めません。"_s,
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

} // namespace
