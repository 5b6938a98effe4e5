#include "storage/transaction.h"
#include "storage_contract/scratch_file.h"
#include "text/like.h"

#include <QRandomGenerator>

using namespace Qt::StringLiterals;
using namespace storage;

namespace {

// What statements answer from a real file.
class Answers : public ScratchFile {
protected:
    void add(const QString& name)
    {
        execute(u"INSERT INTO 品目 (名称) VALUES ("_s + name + u")"_s);
    }
    void addAll(const QStringList& names)
    {
        for (const QString& name : names)
            add(u"'"_s + name + u"'"_s);
    }
    // In the order that they were added in, unless `rest` brings its own.
    QString names(const QString& rest)
    {
        const QString order = rest.contains(u"ORDER BY") ? QString() : u" ORDER BY 番号"_s;
        return rows(u"SELECT 名称 FROM 品目 "_s + rest + order).join(u' ');
    }
};

TEST_F(Answers, TextsAreEqualWhenTheyFoldAlikeAndOrderedByTheirKey)
{
    addAll({u"サアビス"_s, u"ｻｰﾋﾞｽ"_s, u"が"_s, u"サービス"_s, u"ABC"_s, u"カ"_s, u"ａｂｃ"_s,
            u"ｶﾞ"_s, u""_s});
    add(u"Null"_s);
    const struct {
        QString rest;
        QString expected;
    } cases[] = {
        {u"WHERE 名称 = 'さーびす'"_s, u"ｻｰﾋﾞｽ サービス"_s},
        {u"WHERE 名称 <> 'さーびす' AND 名称 <> ''"_s, u"サアビス が ABC カ ａｂｃ ｶﾞ"_s},
        {u"WHERE 名称 In ('abc', 'ガ')"_s, u"が ABC ａｂｃ ｶﾞ"_s},
        {u"WHERE 名称 > 'abc' AND 名称 <= 'ｶﾞ' ORDER BY 名称, 番号"_s, u"カ が ｶﾞ"_s},
        {u"WHERE 名称 Between 'か' And 'サ' ORDER BY 名称 DESC, 番号"_s, u"が ｶﾞ カ"_s},
        {u"WHERE 名称 Like 'カ%'"_s, u"カ"_s},
        {u"WHERE 名称 Like '[ｶ]%'"_s, u"が カ ｶﾞ"_s},
        {u"WHERE 名称 Like 'ﾎﾞ%' OR 名称 Like '%ﾋﾞ%'"_s, u"サアビス ｻｰﾋﾞｽ サービス"_s},
        {u"WHERE 名称 Like 'ｻｰﾋﾞｽ'"_s, u"ｻｰﾋﾞｽ サービス"_s},
        {u"WHERE 名称 & '|' Like 'abc|'"_s, u"ABC ａｂｃ"_s},
    };
    for (const auto& each : cases)
        EXPECT_EQ(names(each.rest), each.expected) << each.rest.toStdString();
}

TEST_F(Answers, NullIsNoTextButCountsAsEmptyWhenJoined)
{
    execute(u"INSERT INTO 品目 (名称, 数量) VALUES (Null, 1)"_s);
    execute(u"INSERT INTO 品目 (名称, 数量) VALUES ('', 2)"_s);
    execute(u"INSERT INTO 品目 (名称, 数量) VALUES ('ア', 3)"_s);
    const struct {
        QString condition;
        QString expected;
    } cases[] = {
        {u"名称 = ''"_s, u"2"_s},
        {u"名称 <> ''"_s, u"3"_s},
        {u"名称 = Null"_s, u""_s},
        {u"名称 Is Null"_s, u"1"_s},
        {u"名称 Like '%'"_s, u"2 3"_s},
        {u"名称 Not Like 'ア'"_s, u"2"_s},
        {u"名称 Not Like '[ｱ]%'"_s, u"2"_s},
        {u"名称 Like '[!ｲ]%'"_s, u"3"_s},
        {u"名称 & '' Like '%'"_s, u"1 2 3"_s},
        {u"名称 & '' = ''"_s, u"1 2"_s},
        {u"名称 & 数量 Like '_'"_s, u"1 2"_s},
        {u"数量 Like '2'"_s, u"2"_s},
        {u"単価 Like '%'"_s, u""_s},
        {u"名称 Like '[ｱ]%' AND 名称 Like '[ｶ]%'"_s, u""_s},
    };
    for (const auto& each : cases)
        EXPECT_EQ(rows(u"SELECT 数量 FROM 品目 WHERE "_s + each.condition).join(u' '),
                  each.expected)
            << each.condition.toStdString();
    execute(u"INSERT INTO 控え (内容) SELECT 単価 AS 内容 FROM 品目 WHERE 数量 = 1"_s);
    execute(u"INSERT INTO 控え (内容) SELECT 数量 AS 内容 FROM 品目 WHERE 数量 = 2"_s);
    EXPECT_EQ(rows(u"SELECT 内容 FROM 控え"_s).join(u' '), u"最初 - 2"_s);
}

TEST_F(Answers, TheLargestTextIsTheTextItself)
{
    EXPECT_EQ(rows(u"SELECT max(名称) FROM 品目"_s).join(u' '), u"-"_s);
    EXPECT_EQ(rows(u"SELECT max(名称), count(*), sum(数量) FROM 品目"_s).join(u' '), u"-|0|-"_s);
    addAll({u"さ"_s, u"ｶﾞ"_s, u"あ"_s, u"ｻ"_s});
    add(u"Null"_s);
    EXPECT_EQ(
        rows(u"SELECT max(名称) & '・' & min(名称), count(名称) FROM 品目 WHERE 名称 <> 'さ'"_s)
            .join(u' '),
        u"ｶﾞ・あ|2"_s);
}

TEST_F(Answers, RepeatsAreGoneBeforeTheRowsAreOrdered)
{
    addAll({u"ｲ"_s, u"あ"_s, u"う"_s, u"ｲ"_s});
    EXPECT_EQ(names(u"UNION SELECT 内容 FROM 控え ORDER BY 品目.名称 DESC"_s), u"最初 う ｲ あ"_s);
    EXPECT_EQ(rows(u"SELECT DISTINCT 名称 FROM 品目 ORDER BY 品目.名称"_s).join(u' '),
              u"あ ｲ う"_s);
    EXPECT_EQ(rows(u"SELECT TOP 3 番号 FROM 品目 ORDER BY 名称, 番号 DESC"_s).join(u' '),
              u"2 4 1"_s);
    Recordset top;
    top.setPageSize(2);
    ASSERT_TRUE(top.open(u"SELECT TOP 3 番号 FROM 品目 ORDER BY 名称, 番号"_s, connection));
    EXPECT_EQ(top.recordCount(), 3);
    EXPECT_TRUE(top.setAbsolutePage(2));
    EXPECT_EQ(top.value(0), Value(4));
}

TEST_F(Answers, TopCountsForItsOwnPartOfAUnion)
{
    addAll({u"ｲ"_s, u"あ"_s, u"う"_s, u"ｲ"_s});
    const struct {
        QString statement;
        QString expected;
    } cases[] = {
        {u"SELECT TOP 1 番号 FROM 品目 UNION ALL SELECT 番号 FROM 品目 ORDER BY 番号"_s,
         u"1 1 2 3 4"_s},
        {u"SELECT 番号 FROM 品目 UNION ALL SELECT TOP 2 番号 FROM 品目 ORDER BY 番号 DESC"_s,
         u"4 3 2 2 1 1"_s},
        {u"SELECT TOP 1 名称 FROM 品目 UNION SELECT TOP 1 内容 FROM 控え ORDER BY 名称"_s,
         u"ｲ 最初"_s},
        {u"SELECT 内容 FROM 控え UNION SELECT DISTINCT TOP 3 名称 FROM 品目 ORDER BY 内容 DESC"_s,
         u"最初 う ｲ あ"_s},
        {u"SELECT TOP 0 名称 FROM 品目 UNION SELECT TOP 1 max(名称) FROM 品目"_s, u"う"_s},
    };
    for (const auto& each : cases) {
        const QStringList found = rows(each.statement);
        EXPECT_EQ(found.join(u' '), each.expected) << each.statement.toStdString();
        Recordset counted;
        ASSERT_TRUE(counted.open(each.statement, connection));
        EXPECT_EQ(counted.recordCount(), found.size()) << each.statement.toStdString();
    }
}

TEST_F(Answers, BetweenTakesItsBoundsInEitherOrder)
{
    addAll({u"か"_s, u"ｷ"_s, u"ガ"_s, u"さ"_s});
    execute(u"UPDATE 品目 SET 数量 = 番号 * 10, 単価 = 番号 / 2, 更新日時 = #2026/01/01#"_s);
    execute(u"UPDATE 品目 SET 更新日時 = #2026/02/01# WHERE 番号 > 2"_s);
    add(u"Null"_s);
    const struct {
        QString between;
        QString expected;
        QString others;
    } cases[] = {
        {u"数量 # 30 And 20"_s, u"ｷ ガ"_s, u"か さ"_s},
        {u"数量 # '30' And 20.5"_s, u"ガ"_s, u"か ｷ さ"_s},
        {u"単価 # 1.5 And 1"_s, u"ｷ ガ"_s, u"か さ"_s},
        {u"名称 # 'ｻ' And 'が'"_s, u"ｷ ガ さ"_s, u"か"_s},
        {u"更新日時 # #2026/03/01# And '2026/01/15'"_s, u"ガ さ"_s, u"か ｷ"_s},
        {u"数量 # 番号 * 15 And 番号"_s, u"か ｷ ガ さ"_s, u""_s},
        {u"20 # 数量 And 30"_s, u"か ｷ"_s, u"ガ さ"_s},
        {u"'ｷ' # 名称 And 'さ'"_s, u"か ｷ ガ"_s, u"さ"_s},
        {u"数量 # 30 And Null"_s, u""_s, u""_s},
        {u"数量 # Null And 単価"_s, u""_s, u""_s},
    };
    for (const auto& each : cases) {
        // The first mark is the operator's, the others are those of dates.
        const qsizetype mark = each.between.indexOf(u'#');
        const auto with = [&](const QString& word) {
            return u"WHERE "_s + QString(each.between).replace(mark, 1, word);
        };
        EXPECT_EQ(names(with(u"Between"_s)), each.expected) << each.between.toStdString();
        EXPECT_EQ(names(with(u"Not Between"_s)), each.others) << each.between.toStdString();
    }
}

TEST_F(Answers, WhatRepeatsIsToldApartAsItIsStored)
{
    addAll({u"アオキ"_s, u"ｱｵｷ"_s, u"あおき"_s, u"ｱｵｷ"_s});
    EXPECT_EQ(rows(u"SELECT DISTINCT 名称 FROM 品目"_s).size(), 3);
    EXPECT_EQ(rows(u"SELECT 名称 FROM 品目 UNION SELECT 名称 FROM 品目"_s).size(), 3);
    EXPECT_EQ(names(u"WHERE 名称 = 'アオキ'"_s), u"アオキ ｱｵｷ あおき ｱｵｷ"_s);
}

// The index is asked for ranges; the pattern alone says what is meant.
TEST_F(Answers, RangesOfFirstCharactersGiveWhatThePatternsMean)
{
    const QString pool =
        u"あぁアァｱｧいゔヴガｶﾞかヵヶコゴンゎヲｦｰー゛゜ﾞ\u3099\u309aAaZzÀ０9一龠㈱①・ -[~～"_s;
    const QList<uint> letters = (pool + u"𠮷😀"_s).toUcs4();
    QRandomGenerator random(20261122);
    Transaction once(connection);
    for (int i = 0; i < 400; ++i) {
        QList<uint> name;
        for (int length = random.bounded(4); length > 0; --length)
            name.append(letters[random.bounded(static_cast<int>(letters.size()))]);
        add(u"'"_s + QString::fromUcs4(reinterpret_cast<const char32_t*>(name.data()), name.size())
            + u"'"_s);
    }
    ASSERT_TRUE(once.commit());
    const QStringList all = rows(u"SELECT 名称 FROM 品目 ORDER BY 番号"_s);

    const QStringList patterns{u"[ｱ-ｵ]%"_s,   u"[ぁ-ぉ]%"_s, u"[!ｱ-ｵ]%"_s, u"[ｶ-ｺ]%"_s,
                               u"[!ｶ-ｺ]%"_s,  u"[が]%"_s,    u"[ﾜ-ﾝ]%"_s,  u"[A-Z]%"_s,
                               u"[!A-Z]%%"_s, u"[!!-~]%"_s,  u"[一㈱]%"_s, u"[゛]%"_s,
                               u"[😀ー]%"_s,   u"[!ヴ-😀]%"_s};
    const auto expectSame = [&](const QString& condition, auto&& means) {
        QStringList expected;
        for (const QString& name : all) {
            if (means(name))
                expected.append(name);
        }
        const QString ordered =
            u"SELECT 名称 FROM 品目 WHERE "_s + condition + u" ORDER BY 名称, 番号"_s;
        EXPECT_EQ(rows(u"SELECT 名称 FROM 品目 WHERE "_s + condition + u" ORDER BY 番号"_s),
                  expected)
            << condition.toStdString();
        EXPECT_EQ(rows(ordered).size(), expected.size()) << condition.toStdString();
    };
    for (const QString& first : patterns) {
        const text::LikePattern a(first);
        expectSame(u"名称 Like '"_s + first + u"'"_s,
                   [&](const QString& n) { return a.matches(n); });
        for (const QString& second : patterns) {
            const text::LikePattern b(second);
            const QString both = u"名称 Like '"_s + first + u"' %1 名称 Like '"_s + second + u"'"_s;
            expectSame(QString(both).replace(u"%1"_s, u"or"_s),
                       [&](const QString& n) { return a.matches(n) || b.matches(n); });
            expectSame(QString(both).replace(u"%1"_s, u"and"_s),
                       [&](const QString& n) { return a.matches(n) && b.matches(n); });
        }
    }
}

} // namespace
