#include "customer/screens/upkenmei.h"

#include "support/customer/screens/edit_form_test.h"

#include <QComboBox>
#include <QDateEdit>

using namespace Qt::StringLiterals;
using customer::upkenmei;

namespace {

class UpkenmeiTest : public EditFormTest {
protected:
    void SetUp() override
    {
        EditFormTest::SetUp();
        owner = addNamed(u"加藤"_s, u"ｶﾄｳ"_s).key;
    }

    void openToAdd() { show(std::make_unique<upkenmei>(file, drafts, owner, nullptr)); }
    void openToChange(const core::RecordKey& key)
    {
        const std::optional<customer::KeptCase> kept = customer::readCase(file, key);
        ASSERT_TRUE(kept);
        show(std::make_unique<upkenmei>(file, drafts, *kept, nullptr));
    }
    QString stored(const QString& column)
    {
        return valueOf(u"SELECT "_s + column + u" FROM 件名"_s);
    }

    core::RecordKey owner;
};

TEST_F(UpkenmeiTest, StoresDatesAsTextAndAPlannedOneOnlyWhenTicked)
{
    openToAdd();
    EXPECT_FALSE(control<QDateEdit>(u"DTPicker2"_s).isEnabled());
    type(control<QLineEdit>(u"kenmei1"_s), u"点検"_s);
    press("Command1");
    EXPECT_EQ(stored(u"登録日"_s), u"2024/04/15(月)"_s);
    EXPECT_EQ(stored(u"予定日"_s), QString());
    EXPECT_EQ(stored(u"判定"_s), u"続行"_s);

    const core::RecordKey key{valueOf(u"SELECT 件名更新ID FROM 件名"_s).toLongLong(), 0, 0, {}};
    openToChange(key);
    tick("chkYotei");
    control<QDateEdit>(u"DTPicker2"_s).setDate(QDate(2096, 2, 29));
    control<QDateEdit>(u"DTPicker1"_s).setDate(QDate(1948, 2, 29));
    press("Command1");
    EXPECT_EQ(stored(u"予定日"_s), u"2096/02/29(水)"_s);
    EXPECT_EQ(stored(u"登録日"_s), u"1948/02/29(日)"_s);
}

TEST_F(UpkenmeiTest, FinishingStampsTheDayAndReopeningEmptiesIt)
{
    const core::RecordKey key = addCaseOf(owner, u"点検"_s).key;
    openToChange(key);
    control<QComboBox>(u"Combo1"_s).setCurrentText(u"完了"_s);
    clock.set(QDate(2024, 4, 20));
    press("Command1");
    EXPECT_EQ(stored(u"完了日"_s), u"2024/04/20(土)"_s);
    openToChange(key);
    control<QComboBox>(u"Combo1"_s).setCurrentText(u"続行"_s);
    press("Command1");
    EXPECT_EQ(stored(u"完了日"_s), QString());
}

TEST_F(UpkenmeiTest, ACaseOfADeletedCustomerIsNotAddedAndKeepsItsText)
{
    openToAdd();
    type(control<QLineEdit>(u"kenmei1"_s), u"点検"_s);
    type(control<QPlainTextEdit>(u"kenmei2"_s), u"午後に電話"_s);
    execute(u"DELETE FROM ユーザー"_s);
    press("Command1");
    EXPECT_EQ(messages.takeBoxes(),
              QList<ScriptedMessages::Box>(
                  {{16, u"追加しようしているデータ元がみつかりません。"_s,
                    u"すでに削除された可能性があります。再表示後にデータを確認して下さい。"_s}}));
    EXPECT_TRUE(form->isVisible());
    EXPECT_EQ(control<QPlainTextEdit>(u"kenmei2"_s).toPlainText(), u"午後に電話"_s);
    EXPECT_EQ(column(u"SELECT 件名 FROM 件名"_s), QStringList());

    press("Command3"); // and it is offered again
    messages.willAnswer(core::Answer::Yes);
    openToAdd();
    messages.takeBoxes();
    EXPECT_EQ(control<QPlainTextEdit>(u"kenmei2"_s).toPlainText(), u"午後に電話"_s);
}

TEST_F(UpkenmeiTest, AddsOneCaseAfterTheOther)
{
    openToAdd();
    tick("chkrenzo");
    type(control<QLineEdit>(u"kenmei1"_s), u"一件目"_s);
    tick("chkYotei");
    press("Command1");
    EXPECT_FALSE(control<QCheckBox>(u"chkYotei"_s).isChecked());
    type(control<QLineEdit>(u"kenmei1"_s), u"二件目"_s);
    press("Command1");
    EXPECT_EQ(column(u"SELECT 件名 FROM 件名 ORDER BY 件名ID"_s),
              QStringList({u"一件目"_s, u"二件目"_s}));
    press("Command3");
    EXPECT_EQ(writes->size(), 2);
}

} // namespace
