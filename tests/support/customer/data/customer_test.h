#pragma once

#include "customer/data/cases.h"
#include "customer/data/customer_file.h"
#include "customer/data/customers.h"
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

    // A customer with this name and reading.
    customer::KeptCustomer addNamed(const QString& name, const QString& reading);
    customer::KeptCase addCaseOf(const core::RecordKey& owner, const QString& title);
    // The customer with its present key, as a list refilled now would carry it.
    customer::KeptCustomer fresh(const core::RecordKey& key);

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
