#include "storage/sql/written.h"
#include "support/tests_folder.h"

#include <QFile>

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;
using namespace storage::sql::test;

namespace {

struct CorpusCase {
    int line = 0;
    QString database;
    QString statement;
    QString expected;
};

// A line "@ name" names the database ("@ name count": how the rows are counted), "#" begins a
// remark, an indented line is what the statement before it resolves to.
QList<CorpusCase> readCorpus(const QString& name)
{
    QFile file(testsFolder() + u"/storage/sql/"_s + name);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << name.toStdString();
    QList<CorpusCase> cases;
    CorpusCase current;
    int number = 0;
    for (const QString& line : QString::fromUtf8(file.readAll()).split(u'\n')) {
        ++number;
        if (line.isEmpty() || line.startsWith(u'#'))
            continue;
        if (line.startsWith(u"@ ")) {
            current.database = line.sliced(2);
        } else if (line.startsWith(u'\t')) {
            current.expected = line.sliced(1);
            cases.append(current);
        } else {
            current.line = number;
            current.statement = line;
        }
    }
    return cases;
}

QString resolved(const CorpusCase& each)
{
    const QStringList words = each.database.split(u' ');
    const auto& catalog = catalogOf(words.first());
    return words.size() > 1 ? writtenCount(each.statement, catalog)
                            : written(each.statement, catalog);
}

// "…" in what is expected stands for any run of characters, such as all columns of a table.
bool agrees(const QString& actual, const QString& expected)
{
    const QStringList pieces = expected.split(u'…');
    if (pieces.size() == 1)
        return actual == expected;
    qsizetype at = 0;
    for (const QString& piece : pieces) {
        const qsizetype found = actual.indexOf(piece, at);
        if (found < 0 || (at == 0 && found > 0))
            return false;
        at = found + piece.size();
    }
    return actual.endsWith(pieces.last());
}

void expectCorpus(const QString& name, qsizetype atLeast)
{
    const QList<CorpusCase> cases = readCorpus(name);
    EXPECT_GE(cases.size(), atLeast);
    for (const CorpusCase& each : cases) {
        const QString actual = resolved(each);
        EXPECT_TRUE(agrees(actual, each.expected))
            << name.toStdString() << ':' << each.line << "\n  " << each.statement.toStdString()
            << "\n  " << actual.toStdString();
    }
}

TEST(Corpus, EveryStatementOfTheScreensResolvesAsWritten)
{
    expectCorpus(u"corpus.txt"_s, 220);
}

TEST(Corpus, WhatStatementsMean)
{
    expectCorpus(u"meaning.txt"_s, 50);
}

TEST(Corpus, WhatIsRefusedIsRefusedWhereTheFaultIs)
{
    expectCorpus(u"refused.txt"_s, 95);
}

} // namespace
