#include "support/core/data/core_test.h"

#include "core/data/database_password.h"
#include "core/data/main_database.h"
#include "storage/engine/engine.h"
#include "support/files.h"
#include "support/storage/rows.h"

#include <QFile>
#include <QHash>

#include <memory>

using namespace Qt::StringLiterals;
namespace schema = storage::schema;

namespace {

void createFile(const QString& path, const schema::Definition& definition)
{
    storage::Error error;
    const auto session = storage::engine::embedded().create(
        path, QString::fromUtf16(core::DatabasePassword), &error);
    ASSERT_TRUE(session) << error.message.toStdString();
    ASSERT_FALSE(session->upkeep().create(definition));
}

} // namespace

void CoreTest::makeFolder(schema::Version version)
{
    // Made once: deriving the key of a new file takes longer than most tests.
    static QHash<schema::Version, std::shared_ptr<QTemporaryDir>> originals;
    std::shared_ptr<QTemporaryDir>& made = originals[version];
    if (!made) {
        made = std::make_shared<QTemporaryDir>();
        createFile(made->filePath(u"main.mdb"_s), schema::mainDatabase(version));
        createFile(made->filePath(u"Corvane.mdb"_s), schema::customerFile(version));
        createFile(made->filePath(u"Care.mdb"_s), schema::repairFile(version));
    }
    for (const QString& name : {u"main.mdb"_s, u"Corvane.mdb"_s, u"Care.mdb"_s})
        ASSERT_TRUE(QFile::copy(made->filePath(name), file(name)));
}

void CoreTest::openFolder()
{
    makeFolder();
    shared.programFolder = folder();
    core::OpenMainDatabase(shared);
    ASSERT_TRUE(shared.MainConnection->isOpen());
}

void CoreTest::TearDown()
{
    EXPECT_EQ(takeErrors().size(), 0);
}

QList<core::DataFileEntry> CoreTest::entries(core::DataKind kind)
{
    const auto listed = core::ListDataFiles(shared, kind);
    EXPECT_TRUE(listed);
    return listed.value_or(QList<core::DataFileEntry>());
}

core::DataFileEntry CoreTest::add(core::DataKind kind, const QString& name, const QString& password)
{
    EXPECT_TRUE(core::AddDataFile(shared, kind, name, password));
    messages.takeBoxes();
    for (const core::DataFileEntry& entry : entries(kind)) {
        if (entry.name == name)
            return entry;
    }
    ADD_FAILURE() << "not listed: " << name.toStdString();
    return {};
}

QStringList CoreTest::registered()
{
    return rows(u"SELECT 種類,ﾃﾞｰﾀ,ﾊﾟｽﾜｰﾄﾞ FROM main WHERE 種類 Like '%管理' ORDER BY [No]"_s);
}

void CoreTest::writeFile(const QString& name, const QByteArray& bytes) const
{
    ASSERT_TRUE(writeBytes(file(name), bytes));
}

QList<storage::ErrorKind> CoreTest::takeErrors()
{
    return shared.MainConnection ? ::takeErrors(*shared.MainConnection)
                                 : QList<storage::ErrorKind>();
}

void CoreTest::execute(const QString& statement)
{
    EXPECT_TRUE(shared.MainConnection->execute(statement))
        << shared.MainConnection->lastError().message.toStdString();
}

QStringList CoreTest::rows(const QString& statement)
{
    return rowsOf(*shared.MainConnection, statement, u"Null"_s);
}
