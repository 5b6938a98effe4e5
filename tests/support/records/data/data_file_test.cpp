#include "support/records/data/data_file_test.h"

#include "core/data/database_password.h"
#include "storage/data_files/data_files.h"
#include "storage/recordset.h"
#include "support/storage/rows.h"

void DataFileTest::create(const storage::schema::Definition& definition)
{
    ASSERT_TRUE(m_folder.isValid());
    storage::data_files::remove(path()); // with a journal that a killed copy left
    storage::Connection connection;
    ASSERT_TRUE(connection.create(path(), QString::fromUtf16(core::DatabasePassword), definition))
        << connection.lastError().message.toStdString();
}

void DataFileTest::TearDown()
{
    for (const storage::Error& error : dataFile().connection.errors()) {
        ADD_FAILURE() << "failed in the file: " << error.message.toStdString() << "\n  "
                      << error.statement.toStdString();
    }
}

QList<storage::ErrorKind> DataFileTest::takeErrors()
{
    return ::takeErrors(dataFile().connection);
}

void DataFileTest::execute(records::DataFile& file, const QString& statement)
{
    EXPECT_TRUE(file.connection.execute(statement))
        << file.connection.lastError().message.toStdString() << "\n  " << statement.toStdString();
}

QStringList DataFileTest::column(const QString& statement)
{
    QStringList values;
    storage::Recordset rows;
    EXPECT_TRUE(rows.open(statement, dataFile().connection)) << statement.toStdString();
    for (; !rows.eof(); rows.moveNext())
        values.append(rows.value(0).toText());
    return values;
}

QString DataFileTest::valueOf(const QString& statement)
{
    const QStringList values = column(statement);
    EXPECT_EQ(values.size(), 1) << statement.toStdString();
    return values.value(0);
}
