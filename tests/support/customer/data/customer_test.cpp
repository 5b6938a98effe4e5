#include "support/customer/data/customer_test.h"

using namespace Qt::StringLiterals;

customer::KeptCustomer CustomerTest::addNamed(const QString& name, const QString& reading)
{
    customer::CustomerFields fields;
    fields.texts[customer::DisplayName] = name;
    fields.texts[customer::DisplayReading] = reading;
    core::RecordKey key;
    EXPECT_EQ(customer::addCustomer(file, fields, &key), records::SaveResult::Saved);
    return {key, fields};
}

customer::KeptCase CustomerTest::addCaseOf(const core::RecordKey& owner, const QString& title)
{
    customer::KeptCase kept;
    kept.fields.title = title;
    kept.fields.state = QString::fromUtf16(customer::OpenState);
    kept.fields.registered = clock.today();
    EXPECT_EQ(customer::addCase(file, owner, kept.fields, &kept.key), records::SaveResult::Saved);
    return kept;
}

customer::KeptCustomer CustomerTest::fresh(const core::RecordKey& key)
{
    const std::optional<customer::KeptCustomer> kept = customer::readCustomer(file, key);
    EXPECT_TRUE(kept);
    return kept.value_or(customer::KeptCustomer{});
}
