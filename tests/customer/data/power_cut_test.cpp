#include "support/storage/power_cut.h"

#include "core/data/database_password.h"
#include "storage/data_files/data_files.h"
#include "storage/engine/engine.h"
#include "storage/recordset.h"
#include "support/customer/data/customer_test.h"
#include "support/storage/refusals.h"

#include <QDir>
#include <QFileInfo>

using namespace Qt::StringLiterals;
using storage::Connection;

namespace {

const QString None = u"no file"_s;

// The power fails at every step of what the program does with a data file.
class PowerCutTest : public CustomerTest {
protected:
    static QString password() { return QString::fromUtf16(core::DatabasePassword); }
    QString folder() const { return QFileInfo(path()).path(); }

    // All rows of the tables that the steps below write to, or why they cannot be read.
    static QString look(const QString& file)
    {
        if (!QFileInfo::exists(file))
            return None;
        Connection data;
        if (!data.open(file, password()))
            return data.lastError().message + u": "_s + data.lastError().details;
        QString all = integrity(data);
        for (const QString& table : {u"ユーザー"_s, u"件名"_s, u"ログ"_s, u"最新発番"_s}) {
            storage::Recordset rows;
            rows.open(u"SELECT * FROM "_s + table, data);
            for (; !rows.eof(); rows.moveNext()) {
                all += u'\n' + table;
                for (int field = 0; field < rows.fieldCount(); ++field)
                    all += u'|' + rows.value(field).toText();
            }
        }
        for (const storage::Error& error : data.errors())
            all += u'\n' + error.message;
        return all;
    }
    static QString lookIn(const QString& folder) { return look(folder + u"/見本.mdb"_s); }

    // What cuts leave of two adds, with as much waiting for the disk as the engine is told.
    QStringList addsUnder(const QString& synchronous, int atMost = 10)
    {
        QStringList states{lookIn(folder())};
        PowerCut cut(folder());
        EXPECT_TRUE(open());
        if (!synchronous.isEmpty()) {
            EXPECT_FALSE(file.connection.session()->run(
                {u"PRAGMA synchronous = "_s + synchronous, {}}, nullptr));
        }
        for (const QString& name : {u"青木"_s, u"井上"_s}) {
            addNamed(name, u"ｱ"_s);
            cut.acknowledge();
            states += lookIn(folder());
        }
        CloseCustomerFile(file);
        return cut.complaints(states, lookIn, atMost);
    }
};

TEST_F(PowerCutTest, AnAddIsThereOnceItWasAcknowledged)
{
    EXPECT_EQ(addsUnder({}), QStringList());
}

// So that these tests are known to see: with less waiting the journal comes back and undoes what
// was acknowledged, or the file breaks.
TEST_F(PowerCutTest, LessWaitingLosesAnAdd)
{
    EXPECT_NE(addsUnder(u"FULL"_s, 1), QStringList());
    create(storage::schema::Version::V311);
    EXPECT_NE(addsUnder(u"OFF"_s, 1), QStringList());
}

TEST_F(PowerCutTest, ACascadeIsWholeOrNotAtAll)
{
    ASSERT_TRUE(open());
    const records::Record customer = addNamed(u"青木"_s, u"ｱｵｷ"_s);
    for (int i = 0; i < 3; ++i)
        addCaseOf(customer.key, u"件名"_s + QString::number(i));
    addNamed(u"井上"_s, u"ｲﾉｳｴ"_s);
    const core::RecordKey key = fresh(customer::customerTable(), customer.key).key;
    CloseCustomerFile(file);

    QStringList states{lookIn(folder())};
    PowerCut cut(folder());
    ASSERT_TRUE(open());
    messages.willAnswer(core::Answer::Yes);
    EXPECT_EQ(removeRecord(file, customer::customerTable(), key), records::DeleteResult::Deleted);
    messages.takeBoxes();
    cut.acknowledge();
    CloseCustomerFile(file);
    states += lookIn(folder());
    EXPECT_NE(states[0], states[1]);
    EXPECT_EQ(cut.complaints(states, lookIn), QStringList());
}

TEST_F(PowerCutTest, ACompactionNeverLeavesTheNameWithoutItsFile)
{
    ASSERT_TRUE(open());
    addNamed(u"青木"_s, u"ｱｵｷ"_s);
    CloseCustomerFile(file);
    const QString state = lookIn(folder());
    PowerCut cut(folder());
    EXPECT_FALSE(storage::data_files::compactInPlace(
        path(), QDir(folder()).filePath(u"最適化.mdb"_s), password()));
    cut.acknowledge();
    EXPECT_EQ(cut.complaints({state, state}, lookIn), QStringList());
}

TEST_F(PowerCutTest, ANewFileIsWholeOrNotAtAll)
{
    const QString state = lookIn(folder());
    const auto lookAtNew = [](const QString& in) { return look(in + u"/新.mdb"_s); };
    {
        PowerCut cut(folder());
        EXPECT_FALSE(storage::data_files::create(path(), QDir(folder()).filePath(u"新.mdb"_s)));
        cut.acknowledge();
        EXPECT_EQ(cut.complaints({None, state}, lookAtNew), QStringList());
    }
    // What goes away comes back only until it was told to be gone, and under one of its names.
    const auto lookAtBoth = [&](const QString& in) {
        return look(in + u"/新.mdb"_s) + u" / "_s + look(in + u"/別.mdb"_s);
    };
    PowerCut cut(folder());
    EXPECT_FALSE(storage::data_files::rename(QDir(folder()).filePath(u"新.mdb"_s),
                                             QDir(folder()).filePath(u"別.mdb"_s), password()));
    cut.acknowledge();
    EXPECT_FALSE(storage::data_files::remove(QDir(folder()).filePath(u"別.mdb"_s)));
    cut.acknowledge();
    EXPECT_EQ(
        cut.complaints({state + u" / "_s + None, None + u" / "_s + state, None + u" / "_s + None},
                       lookAtBoth),
        QStringList());
}

} // namespace
