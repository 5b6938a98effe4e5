#include "storage/data_files/data_files.h"

#include "storage_contract/scratch_file.h"

#include <optional>

using namespace Qt::StringLiterals;
using namespace storage;

namespace {

std::optional<ErrorKind> kindOf(const std::optional<Error>& error)
{
    return error ? std::optional(error->kind) : std::nullopt;
}

// Data as a thing, whichever engine keeps it.
class KeptData : public ScratchFile {
protected:
    void SetUp() override
    {
        ScratchFile::SetUp();
        fill(20);
        connection.close();
    }

    Location other() const { return data(u"別.mdb"_s); }

    void expectRows(const Location& at)
    {
        ASSERT_TRUE(connection.open(at, Password));
        EXPECT_EQ(rows(u"SELECT count(*), sum(数量) FROM 品目"_s), QStringList{u"20|210"_s});
        connection.close();
    }
};

TEST_F(KeptData, IsCopiedRenamedCompactedAndRemoved)
{
    const QByteArray identity = data_files::identity(data());
    EXPECT_EQ(kindOf(data_files::rename(data(), other(), Password)), std::nullopt);
    EXPECT_FALSE(data_files::exists(data()));
    EXPECT_TRUE(data_files::identity(data()).isEmpty());
    EXPECT_EQ(data_files::identity(other()), identity);
    EXPECT_EQ(kindOf(data_files::create(other(), data())), std::nullopt);
    EXPECT_NE(data_files::identity(data()), identity);
    EXPECT_EQ(kindOf(data_files::remove(other())), std::nullopt);
    EXPECT_EQ(kindOf(data_files::compact(data(), other(), Password)), std::nullopt);
    expectRows(data());
    expectRows(other());
    EXPECT_EQ(kindOf(data_files::remove(other())), std::nullopt);
    EXPECT_EQ(kindOf(data_files::compactInPlace(data(), other(), Password)), std::nullopt);
    EXPECT_FALSE(data_files::exists(other()));
    expectRows(data());
}

TEST_F(KeptData, IsNeverOverwrittenNorTouchedInUse)
{
    const Location missing = data(u"無い.mdb"_s);
    ASSERT_EQ(kindOf(data_files::create(data(), other())), std::nullopt);
    const auto expectAll = [&](ErrorKind kind, const Location& from, const Location& to) {
        EXPECT_EQ(kindOf(data_files::rename(from, to, Password)), kind);
        EXPECT_EQ(kindOf(data_files::compact(from, to, Password)), kind);
        EXPECT_EQ(kindOf(data_files::compactInPlace(from, to, Password)), kind);
    };
    expectAll(ErrorKind::Exists, data(), other());
    EXPECT_EQ(kindOf(data_files::create(data(), other())), ErrorKind::Exists);
    expectAll(ErrorKind::Missing, missing, data(u"新.mdb"_s));
    EXPECT_EQ(kindOf(data_files::create(missing, data(u"新.mdb"_s))), ErrorKind::Missing);
    EXPECT_EQ(kindOf(data_files::remove(missing)), ErrorKind::Missing);
    EXPECT_FALSE(data_files::exists(data(u"新.mdb"_s)));
    {
        const OtherCopy copy(data());
        expectAll(ErrorKind::InUse, data(), data(u"新.mdb"_s));
        EXPECT_EQ(kindOf(data_files::remove(data())), ErrorKind::InUse);
    }
    expectRows(data());
    expectRows(other());
}

} // namespace
