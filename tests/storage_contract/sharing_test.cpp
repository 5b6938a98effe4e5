#include "storage_contract/scratch_file.h"

using namespace Qt::StringLiterals;
using namespace storage;

namespace {

class Sharing : public ScratchFile {
protected:
    QList<ErrorKind> openFails(const QString& password = Password, Mode mode = Mode::ReadWrite)
    {
        Connection other;
        EXPECT_FALSE(other.open(data(), password, mode));
        EXPECT_FALSE(other.isOpen());
        return takeErrors(other);
    }
};

TEST_F(Sharing, ExclusiveAndSharedShutEachOtherOut)
{
    EXPECT_EQ(openFails(Password, Mode::ShareExclusive), QList{ErrorKind::InUse});
    OtherCopy shared(data());
    EXPECT_EQ(rows(shared.connection, u"SELECT 内容 FROM 控え"_s), QStringList{u"最初"_s});
    shared.connection.close();
    connection.close();

    OtherCopy exclusive(data(), Mode::ShareExclusive);
    EXPECT_EQ(exclusive.connection.mode(), Mode::ShareExclusive);
    EXPECT_EQ(openFails(), QList{ErrorKind::InUse});
    EXPECT_EQ(openFails(Password, Mode::ShareExclusive), QList{ErrorKind::InUse});
    exclusive.connection.close();
    EXPECT_TRUE(connection.open(data(), Password, Mode::ShareExclusive));
}

TEST_F(Sharing, AFailedOpenLeavesTheFileFree)
{
    connection.close();
    EXPECT_EQ(openFails(u"違う"_s, Mode::ShareExclusive), QList{ErrorKind::Unreadable});
    EXPECT_TRUE(connection.open(data(), Password, Mode::ShareExclusive));
    EXPECT_FALSE(connection.open(data(), Password));
    EXPECT_EQ(takeErrors(), QList{ErrorKind::State});
    EXPECT_TRUE(connection.isOpen());
}

} // namespace
