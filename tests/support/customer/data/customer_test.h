#pragma once

#include "customer/data/cases.h"
#include "customer/data/customer_file.h"
#include "customer/data/customers.h"
#include "storage/schema/definitions.h"
#include "support/fixed_clock.h"
#include "support/scripted_messages.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

// A test on an open customer data file of its own. At its end nothing may have failed in the file
// but what the test expected and took.
class CustomerTest : public testing::Test {
public:
    CustomerTest() : file(messages, clock) {}

protected:
    void SetUp() override { create(storage::schema::Version::V311); }
    void TearDown() override;

    // Makes the scratch file anew and leaves it closed.
    void create(storage::schema::Version version);
    bool open() { return customer::OpenCustomerFile(file, path(), storage::Mode::ReadWrite); }
    QString path() const { return m_folder.filePath(QStringLiteral("見本.mdb")); }

    // The failures so far, which the test expected.
    QList<storage::ErrorKind> takeErrors();
    void execute(const QString& statement) { execute(file, statement); }
    static void execute(customer::CustomerFile& file, const QString& statement);
    // The first field of all rows, as text.
    QStringList column(const QString& statement);
    QString valueOf(const QString& statement);

    // A customer with this name and reading.
    customer::KeptCustomer addNamed(const QString& name, const QString& reading);
    customer::KeptCase addCaseOf(const core::RecordKey& owner, const QString& title);
    // The customer with its present key, as a list refilled now would carry it.
    customer::KeptCustomer fresh(const core::RecordKey& key);

    ScriptedMessages messages;
    FixedClock clock;
    customer::CustomerFile file;

private:
    QTemporaryDir m_folder;
};

// The same with the file open.
class OpenCustomerTest : public CustomerTest {
protected:
    void SetUp() override
    {
        CustomerTest::SetUp();
        ASSERT_TRUE(open());
    }
};

// A copy of the program that works on a file beside the test's own.
struct OtherCopy {
    explicit OtherCopy(const QString& path) : file(messages, clock)
    {
        EXPECT_TRUE(customer::OpenCustomerFile(file, path, storage::Mode::ReadWrite));
    }

    ScriptedMessages messages;
    FixedClock clock;
    customer::CustomerFile file;
};
