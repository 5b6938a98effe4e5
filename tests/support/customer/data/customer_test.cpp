#include "support/customer/data/customer_test.h"

#include "core/data/database_password.h"
#include "storage/data_files/data_files.h"
#include "storage/recordset.h"

using namespace Qt::StringLiterals;

void CustomerTest::create(storage::schema::Version version)
{
    ASSERT_TRUE(m_folder.isValid());
    storage::data_files::remove(path()); // with a journal that a killed copy left
    storage::Connection connection;
    ASSERT_TRUE(connection.create(path(), QString::fromUtf16(core::DatabasePassword),
                                  storage::schema::customerFile(version)))
        << connection.lastError().message.toStdString();
}

void CustomerTest::TearDown()
{
    for (const storage::Error& error : file.connection.errors()) {
        ADD_FAILURE() << "failed in the file: " << error.message.toStdString() << "\n  "
                      << error.statement.toStdString();
    }
}

QList<storage::ErrorKind> CustomerTest::takeErrors()
{
    QList<storage::ErrorKind> kinds;
    for (const storage::Error& error : file.connection.errors())
        kinds.append(error.kind);
    file.connection.clearErrors();
    return kinds;
}

void CustomerTest::execute(customer::CustomerFile& file, const QString& statement)
{
    EXPECT_TRUE(file.connection.execute(statement))
        << file.connection.lastError().message.toStdString() << "\n  " << statement.toStdString();
}

QStringList CustomerTest::column(const QString& statement)
{
    QStringList values;
    storage::Recordset rows;
    EXPECT_TRUE(rows.open(statement, file.connection)) << statement.toStdString();
    for (; !rows.eof(); rows.moveNext())
        values.append(rows.value(0).toText());
    return values;
}

QString CustomerTest::valueOf(const QString& statement)
{
    const QStringList values = column(statement);
    EXPECT_EQ(values.size(), 1) << statement.toStdString();
    return values.value(0);
}

customer::KeptCustomer CustomerTest::addNamed(const QString& name, const QString& reading)
{
    customer::CustomerFields fields;
    fields.texts[customer::DisplayName] = name;
    fields.texts[customer::DisplayReading] = reading;
    core::RecordKey key;
    EXPECT_EQ(customer::addCustomer(file, fields, &key), core::SaveResult::Saved);
    return {key, fields};
}

customer::KeptCase CustomerTest::addCaseOf(const core::RecordKey& owner, const QString& title)
{
    customer::KeptCase kept;
    kept.fields.title = title;
    kept.fields.state = QString::fromUtf16(customer::OpenState);
    kept.fields.registered = clock.today();
    EXPECT_EQ(customer::addCase(file, owner, kept.fields, &kept.key), core::SaveResult::Saved);
    return kept;
}

customer::KeptCustomer CustomerTest::fresh(const core::RecordKey& key)
{
    const std::optional<customer::KeptCustomer> kept = customer::readCustomer(file, key);
    EXPECT_TRUE(kept);
    return kept.value_or(customer::KeptCustomer{});
}
