#include "ui/reading_filler.h"

#include <QInputMethodEvent>
#include <QLineEdit>
#include <QTest>

#include <gtest/gtest.h>

#include <functional>

using namespace Qt::Literals::StringLiterals;

namespace {

struct Step {
    QString preedit;
    QString commit;
};

struct Typing {
    const char* what;
    QList<Step> steps;
    QString reading;
};

// What is done to a name, and what becomes of it and of its reading.
struct Correction {
    const char* what;
    std::function<void()> correct;
    QString name, reading;
};

class ReadingFillerTest : public testing::Test {
protected:
    void compose(const Step& step)
    {
        QInputMethodEvent event(step.preedit, {});
        event.setCommitString(step.commit);
        QCoreApplication::sendEvent(&name, &event);
    }
    void write(const QString& typedName, const QString& kana)
    {
        compose({kana, {}});
        compose({{}, typedName});
    }

    void press(Qt::Key key, int times)
    {
        for (; times > 0; --times)
            QTest::keyClick(&name, key);
    }
    // Each done to 山田花子, typed in two pieces.
    void expectAfter(const QList<Correction>& corrections)
    {
        for (const Correction& each : corrections) {
            name.clear();
            reading.clear();
            write(u"山田"_s, u"やまだ"_s);
            write(u"花子"_s, u"はなこ"_s);
            each.correct();
            EXPECT_EQ(name.text(), each.name) << each.what;
            EXPECT_EQ(reading.text(), each.reading) << each.what;
        }
    }

    QLineEdit name;
    QLineEdit reading;
    ui::ReadingFiller filler{&name, &reading};
};

TEST_F(ReadingFillerTest, FollowsTheKeystrokes)
{
    const Typing cases[] = {
        {"romaji input, converted",
         {{u"し"_s, {}}, {u"しb"_s, {}}, {u"しぶや"_s, {}}, {u"渋谷"_s, {}}, {{}, u"渋谷"_s}},
         u"ｼﾌﾞﾔ"_s},
        {"a trailing n is ん", {{u"けn"_s, {}}, {u"健"_s, {}}, {{}, u"健"_s}}, u"ｹﾝ"_s},
        {"a full-width trailing n", {{u"しｎ"_s, {}}, {u"新"_s, {}}, {{}, u"新"_s}}, u"ｼﾝ"_s},
        {"two conversions",
         {{u"やまだ"_s, {}}, {{}, u"山田"_s}, {u"はなこ"_s, {}}, {{}, u"花子"_s}},
         u"ﾔﾏﾀﾞﾊﾅｺ"_s},
        {"katakana as typed", {{u"カード"_s, {}}, {{}, u"カード"_s}}, u"ｶｰﾄﾞ"_s},
        {"a correction before the conversion",
         {{u"さかい"_s, {}}, {u"さか"_s, {}}, {u"坂"_s, {}}, {{}, u"坂"_s}},
         u"ｻｶ"_s},
        {"a conversion that is given up",
         {{u"だめ"_s, {}}, {{}, {}}, {u"よし"_s, {}}, {{}, u"良"_s}},
         u"ﾖｼ"_s},
        {"kanji without keystrokes", {{{}, u"渋谷"_s}}, QString()},
    };
    for (const Typing& each : cases) {
        name.clear();
        reading.clear();
        for (const Step& step : each.steps)
            compose(step);
        EXPECT_EQ(reading.text(), each.reading) << each.what;
    }
}

TEST_F(ReadingFillerTest, WhatIsDeletedInTheNameGoesFromTheReading)
{
    expectAfter({
        {"the last piece", [&] { press(Qt::Key_Backspace, 2); }, u"山田"_s, u"ﾔﾏﾀﾞ"_s},
        {"half of it", [&] { press(Qt::Key_Backspace, 1); }, u"山田花"_s, u"ﾔﾏﾀﾞ"_s},
        {"half of it, and brought back",
         [&] {
             press(Qt::Key_Backspace, 1);
             name.undo();
         },
         u"山田花子"_s, u"ﾔﾏﾀﾞﾊﾅｺ"_s},
        {"the first piece",
         [&] {
             press(Qt::Key_Home, 1);
             press(Qt::Key_Delete, 2);
         },
         u"花子"_s, u"ﾊﾅｺ"_s},
        {"half of the first: nobody knows how the rest is filed",
         [&] {
             press(Qt::Key_Home, 1);
             press(Qt::Key_Delete, 1);
         },
         u"田花子"_s, QString()},
        {"kana behind a converted part",
         [&] {
             name.selectAll();
             write(u"鈴木さん"_s, u"すずきさん"_s);
             press(Qt::Key_Backspace, 1);
         },
         u"鈴木さ"_s, u"ｽｽﾞｷｻ"_s},
    });
}

TEST_F(ReadingFillerTest, WhatIsTypedIntoTheNameStandsAtItsPlaceInTheReading)
{
    expectAfter({
        {"replaced",
         [&] {
             name.setSelection(0, 2);
             write(u"佐藤"_s, u"さとう"_s);
         },
         u"佐藤花子"_s, u"ｻﾄｳﾊﾅｺ"_s},
        {"in the middle",
         [&] {
             name.setCursorPosition(2);
             write(u"小"_s, u"こ"_s);
         },
         u"山田小花子"_s, u"ﾔﾏﾀﾞｺﾊﾅｺ"_s},
        {"inside a piece",
         [&] {
             name.setCursorPosition(3);
             write(u"江"_s, u"え"_s);
         },
         u"山田花江子"_s, u"ﾔﾏﾀﾞ"_s},
        {"all of it retyped",
         [&] {
             name.selectAll();
             write(u"東海林"_s, u"しょうじ"_s);
         },
         u"東海林"_s, u"ｼｮｳｼﾞ"_s},
        {"a part without a known reading",
         [&] {
             press(Qt::Key_Home, 1);
             name.insert(u"株"_s);
         },
         u"株山田花子"_s, QString()},
    });
}

TEST_F(ReadingFillerTest, TakesPlainKeysToo)
{
    QTest::keyClicks(&name, u"ABC 3"_s);
    EXPECT_EQ(reading.text(), u"ABC 3"_s);
}

TEST_F(ReadingFillerTest, LeavesAReadingOfTheUsersOwnAlone)
{
    write(u"山田"_s, u"やまだ"_s);
    reading.setText(u"ﾔﾏﾀﾞ ﾃｲ"_s);
    write(u"邸"_s, u"てい"_s);
    EXPECT_EQ(reading.text(), u"ﾔﾏﾀﾞ ﾃｲ"_s);
    name.clear();
    EXPECT_EQ(reading.text(), u"ﾔﾏﾀﾞ ﾃｲ"_s);

    reading.clear();
    write(u"鈴木"_s, u"すずき"_s);
    EXPECT_EQ(reading.text(), u"ｽｽﾞｷ"_s) << "an empty reading is filled again";
    name.clear();
    EXPECT_EQ(reading.text(), QString()) << "what it filled goes with the name";
}

} // namespace
