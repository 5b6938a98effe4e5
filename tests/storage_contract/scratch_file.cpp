#include "storage_contract/scratch_file.h"

#include "storage/transaction.h"

using namespace Qt::StringLiterals;
using namespace storage;

schema::Definition ScratchFile::definition()
{
    using enum schema::ColumnType;
    schema::Definition made;
    made.tables = {schema::Table(u"品目"_s,
                                 {{u"番号"_s, AutoNumber},
                                  {u"数量"_s, Long},
                                  {u"単価"_s, Real},
                                  {u"名称"_s, Text},
                                  {u"ﾒｰｶｰ"_s, Text, 5},
                                  {u"更新日時"_s, DateTime}},
                                 u"番号"_s),
                   schema::Table(u"控え"_s, {{u"内容"_s, Text}, {u"数"_s, Long}}, {})};
    made.indexes = {
        {u"_品目_名称"_s, u"品目"_s, {{u"名称"_s, schema::IndexForm::Key}}},
        {u"_品目_数量"_s, u"品目"_s, {{u"数量"_s, schema::IndexForm::Plain}}},
    };
    made.rows = {{u"控え"_s, {{u"内容"_s, Value(u"最初"_s)}, {u"数"_s, Value(0)}}}};
    return made;
}

void ScratchFile::SetUp()
{
    ASSERT_TRUE(m_folder.isValid());
    ASSERT_TRUE(connection.create(data(), Password, definition()));
    connection.close();
    ASSERT_TRUE(connection.open(data(), Password));
}

void ScratchFile::TearDown()
{
    EXPECT_EQ(takeErrors(), QList<ErrorKind>());
    EXPECT_EQ(connection.transactionDepth(), 0);
}

void ScratchFile::execute(Connection& on, const QString& statement)
{
    EXPECT_TRUE(on.execute(statement))
        << statement.toStdString() << ": " << on.lastError().message.toStdString();
}

QStringList ScratchFile::rows(Connection& from, const QString& statement)
{
    const qsizetype failures = from.errors().size();
    const QStringList found = rowsOf(from, statement);
    EXPECT_EQ(from.errors().size(), failures) << from.lastError().message.toStdString();
    return found;
}

void ScratchFile::fill(int count)
{
    Transaction transaction(connection);
    for (int i = 1; i <= count; ++i)
        execute(u"INSERT INTO 品目 (名称, 数量) VALUES ('品"_s + QString::number(i) + u"', "_s
                + QString::number(i) + u')');
    EXPECT_TRUE(transaction.commit());
}
