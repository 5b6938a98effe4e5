#include "customer/screens/upkenmei.h"

#include "support/customer/screens/edit_form_test.h"

#include <QComboBox>
#include <QDateEdit>
#include <QLabel>

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

    void openToAdd() { add<upkenmei>({owner}); }
    void openToChange(const core::RecordKey& key) { edit<upkenmei>(customer::caseTable(), key); }
    QString stored(const QString& column)
    {
        return valueOf(u"SELECT "_s + column + u" FROM 件名"_s);
    }

    core::RecordKey owner;
};

class UpkenmeiLocaleTest : public UpkenmeiTest, public testing::WithParamInterface<const char*> {
protected:
    void SetUp() override
    {
        before = QLocale();
        QLocale::setDefault(QLocale(QString::fromLatin1(GetParam())));
        UpkenmeiTest::SetUp();
    }
    void TearDown() override
    {
        UpkenmeiTest::TearDown();
        QLocale::setDefault(before);
    }

    QLocale before;
};

INSTANTIATE_TEST_SUITE_P(Locales, UpkenmeiLocaleTest, testing::Values("C", "ja_JP", "de_DE"));

TEST_P(UpkenmeiLocaleTest, StoresDatesAsTextAndAPlannedOneOnlyWhenTicked)
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

TEST_F(UpkenmeiTest, WhatWasNotEditedIsNotRewritten)
{
    const core::RecordKey key = addCaseOf(owner, u"点検"_s).key;
    execute(u"UPDATE 件名 SET 登録日 = '平成元年', 予定日 = '来月', 判定 = '保留'"_s);
    openToChange(key);
    EXPECT_EQ(control<QComboBox>(u"Combo1"_s).currentText(), u"保留"_s);
    control<QLineEdit>(u"kenmei1"_s).setText(u"修理"_s);
    press("Command1");
    EXPECT_EQ(stored(u"登録日 & 予定日 & 判定 & 件名"_s), u"平成元年来月保留修理"_s);
    openToChange(key);
    EXPECT_EQ(control<QLabel>(u"storedDTPicker1"_s).text(), u"保存されている値: 平成元年"_s);
    EXPECT_EQ(control<QLabel>(u"storedDTPicker2"_s).text(), u"保存されている値: 来月"_s);
    type(control<QDateEdit>(u"DTPicker1"_s), u"20240415"_s); // the day that is proposed
    press("Command1");
    EXPECT_EQ(stored(u"登録日 & 予定日"_s), u"2024/04/15(月)来月"_s);
    openToChange(key);
    type(control<QDateEdit>(u"DTPicker1"_s), u"20240431"_s);
    press("Command1");
    EXPECT_EQ(messages.takeText(),
              u"『 20240431 』は日付として読めません。\r\n2027/12/31 のように入力して下さい。"_s);
    press("Command1");
    EXPECT_EQ(stored(u"登録日 & 予定日"_s), u"2024/04/15(月)来月"_s);
}

} // namespace
