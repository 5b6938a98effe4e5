#pragma once

#include "core/data/data_kind.h"
#include "customer/data/customer_file.h"
#include "repair/data/repair_file.h"
#include "support/records/data/data_file_test.h"

// A test that runs on a data file of each kind, for what both have alike. To be followed by
// INSTANTIATE_TEST_SUITE_P(Kinds, TheTest, EachKind, kindName).
class EachKindTest : public DataFileTest, public testing::WithParamInterface<core::DataKind> {
public:
    EachKindTest() : customers(messages, clock), repairs(messages, clock) {}

protected:
    void SetUp() override
    {
        create(storage::schema::Version::V311);
        ASSERT_TRUE(open());
    }
    records::DataFile& dataFile() override { return file; }
    static bool isRepair() { return GetParam() == core::DataKind::Repair; }

    void create(storage::schema::Version version)
    {
        DataFileTest::create(isRepair() ? storage::schema::repairFile(version)
                                        : storage::schema::customerFile(version));
    }

    customer::CustomerFile customers;
    repair::RepairFile repairs;
    records::DataFile& file = isRepair() ? static_cast<records::DataFile&>(repairs) : customers;
};

inline const auto EachKind = testing::Values(core::DataKind::Customer, core::DataKind::Repair);

inline std::string kindName(const testing::TestParamInfo<core::DataKind>& kind)
{
    return kind.param == core::DataKind::Repair ? "Repair" : "Customer";
}
