#pragma once

#include "customer/data/cases.h"
#include "customer/data/customer_file.h"
#include "customer/data/customers.h"
#include "customer/data/logs.h"
#include "support/records/data/data_file_test.h"

// A test on a customer data file.
class CustomerTest : public DataFileTest {
public:
    CustomerTest() : file(messages, clock) {}

protected:
    void SetUp() override { create(storage::schema::Version::V311); }
    records::DataFile& dataFile() override { return file; }

    void create(storage::schema::Version version)
    {
        DataFileTest::create(storage::schema::customerFile(version));
    }

    // What a form would hand over for a customer with this name and reading.
    static records::FieldValues named(const QString& name, const QString& reading);
    // A record under these parents; the test fails when it cannot be added.
    records::Record add(const records::RecordTable& table, const QList<core::RecordKey>& parents,
                        const records::FieldValues& entered);
    records::Record addNamed(const QString& name, const QString& reading);
    // A case of today, 続行.
    records::Record addCaseOf(const core::RecordKey& owner, const QString& title);
    records::Record addLogOf(const core::RecordKey& ofCase, const QString& recorder,
                             const QString& text);
    // The record as it is now, with the key that a list refilled now would carry.
    records::Record fresh(const records::RecordTable& table, const core::RecordKey& key);
    // As another copy of the program does it.
    void change(const records::RecordTable& table, const core::RecordKey& key,
                const records::FieldValues& edited);

    customer::CustomerFile file;
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
