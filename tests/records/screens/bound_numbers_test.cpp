#include "customer/data/deliveries.h"
#include "support/customer/screens/edit_form_test.h"
#include "ui/digits_line_edit.h"

#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

records::RecordTable priced()
{
    records::RecordTable table = customer::deliveryTable();
    table.numbers = {{u"定価"_s}};
    return table;
}

const records::RecordTable& deliveries()
{
    static const records::RecordTable table = priced();
    return table;
}

// A form with a price and another field.
class PriceForm : public records::EditForm {
public:
    PriceForm(const records::Desk& desk, const records::Opening& opening, QWidget* parent)
        : EditForm(desk, deliveries(), opening, parent)
    {
        auto* const rows = new QVBoxLayout(this);
        for (QWidget* const each : std::initializer_list<QWidget*>{&name, &price, &save, &close})
            rows->addWidget(each);
        name.setObjectName(u"name"_s);
        price.setObjectName(u"price"_s);
        fields().bind(&name, u"品名"_s);
        fields().bind(&price, u"定価"_s);
        initialize({&save, nullptr, &close, nullptr, &name}, u"price"_s);
    }

    QLineEdit name;
    ui::DigitsLineEdit price;
    QPushButton save, close;
};

class BoundNumbersTest : public EditFormTest {
protected:
    void SetUp() override
    {
        EditFormTest::SetUp();
        kept = CustomerTest::add(deliveries(), {addNamed(u"客"_s, u"ｷｬｸ"_s).key},
                                 {{u"品名"_s, u"棚"_s}, {u"定価"_s, u"100"_s}});
    }
    PriceForm& open() { return edit<PriceForm>(deliveries(), kept.key); }
    QString stored() { return valueOf(u"SELECT 品名 & ' ' & 定価 FROM 納品リスト"_s); }
    static void paste(QLineEdit& field, const QString& text)
    {
        field.setFocus();
        field.clear();
        field.insert(text);
        field.setModified(true);
    }

    records::Record kept;
};

TEST_F(BoundNumbersTest, ASaveByMouseOrKeyJudgesTheEditedNumberOnce)
{
    for (const bool byKey : {true, false}) {
        PriceForm& shown = open();
        paste(shown.price, u"12a"_s);
        if (byKey)
            QTest::keyClick(&shown, Qt::Key_S, Qt::ControlModifier);
        else
            QTest::mouseClick(&shown.save, Qt::LeftButton);
        QTest::qWait(0);
        EXPECT_EQ(messages.takeBoxes(),
                  (QList<ScriptedMessages::Box>{{48, u"数字のみ入力して下さい。"_s}}));
        EXPECT_TRUE(shown.isVisible());
        EXPECT_EQ(shown.price.text(), u"0"_s);
        EXPECT_TRUE(shown.price.hasFocus());
        EXPECT_EQ(stored(), u"棚 100"_s);
        shown.price.setText(u"100"_s);
        form->close();
        drafts = {};
    }
    PriceForm& shown = open();
    paste(shown.price, u"１,２００"_s);
    shown.save.click();
    EXPECT_EQ(stored(), u"棚 1200"_s);
}

TEST_F(BoundNumbersTest, ANumberThatComesBackFromADraftIsJudgedAsATypedOne)
{
    paste(open().price, u"12a"_s);
    form->close();
    messages.willAnswer(core::Answer::Yes);
    PriceForm& shown = open();
    messages.takeBoxes();
    EXPECT_EQ(shown.price.text(), u"12a"_s);
    shown.save.click();
    EXPECT_EQ(messages.takeText(), u"数字のみ入力して下さい。"_s);
    EXPECT_EQ(shown.price.text(), u"0"_s);
    EXPECT_TRUE(shown.price.hasFocus());
}

TEST_F(BoundNumbersTest, ANumberThatWasNotEditedIsNotJudged)
{
    execute(u"UPDATE 納品リスト SET 定価 = '時価'"_s);
    PriceForm& shown = open();
    shown.name.setText(u"机"_s);
    shown.save.click();
    EXPECT_TRUE(messages.takeBoxes().isEmpty());
    EXPECT_EQ(stored(), u"机 時価"_s);
}

} // namespace
