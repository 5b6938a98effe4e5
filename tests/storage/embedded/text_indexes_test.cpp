#include "storage/engine/engine.h"
#include "storage_contract/scratch_file.h"

#include <sqlite3.h>

using namespace Qt::StringLiterals;
using namespace storage;

namespace {

// Keys in the reverse order of ours, as a program with other text rules would make.
void foreignKey(sqlite3_context* context, int /*count*/, sqlite3_value** arguments)
{
    if (sqlite3_value_type(arguments[0]) == SQLITE_NULL)
        return;
    QByteArray key(reinterpret_cast<const char*>(sqlite3_value_text(arguments[0])));
    for (char& byte : key)
        byte = static_cast<char>(~byte);
    sqlite3_result_blob(context, key.constData(), static_cast<int>(key.size()), SQLITE_TRANSIENT);
}

// Files whose indexes over text another version of the program has made.
class TextIndexes : public ScratchFile {
protected:
    void SetUp() override
    {
        ScratchFile::SetUp();
        for (const QString& name : {u"あ"_s, u"い"_s, u"う"_s})
            execute(u"INSERT INTO 品目 (名称, 数量) VALUES ('"_s + name + u"', 1)"_s);
        connection.close();
        makeForeign();
    }

    void makeForeign() const
    {
        sqlite3* bare = nullptr;
        ASSERT_EQ(sqlite3_open(path().toUtf8().constData(), &bare), SQLITE_OK);
        const QByteArray key = Password.toUtf8();
        sqlite3_key(bare, key.constData(), static_cast<int>(key.size()));
        sqlite3_create_function(bare, "corvane_key", 1, SQLITE_UTF8 | SQLITE_DETERMINISTIC, nullptr,
                                foreignKey, nullptr, nullptr);
        EXPECT_EQ(sqlite3_exec(bare,
                               "REINDEX \"_品目_名称\";"
                               "UPDATE _corvane SET value = 'foreign' WHERE name = 'text'",
                               nullptr, nullptr, nullptr),
                  SQLITE_OK)
            << sqlite3_errmsg(bare);
        sqlite3_close(bare);
    }

    QStringList indexNames()
    {
        Error error;
        const auto cursor = connection.session()->prepare(
            {u"SELECT name FROM sqlite_schema WHERE type = 'index' AND name LIKE '%品目%' "
             "ORDER BY name"_s,
             {}},
            &error);
        QStringList names;
        while (cursor && cursor->step() == engine::Cursor::Step::Row)
            names += cursor->value(0, schema::ColumnType::Text).toText();
        return names;
    }

    QStringList ordered() { return rows(u"SELECT 名称 FROM 品目 ORDER BY 名称"_s); }
};

const QStringList InOrder = {u"あ"_s, u"い"_s, u"う"_s};
const QStringList AllIndexes = {u"_品目_名称"_s, u"_品目_数量"_s};

TEST_F(TextIndexes, AreMadeAnewByTheOnlyCopy)
{
    for (const Mode mode : {Mode::ReadWrite, Mode::ShareExclusive}) {
        ASSERT_TRUE(connection.open(path(), Password, mode));
        EXPECT_FALSE(connection.session()->upkeep().hasForeignTextIndexes());
        EXPECT_EQ(indexNames(), AllIndexes);
        EXPECT_EQ(ordered(), InOrder);
        EXPECT_EQ(integrity(connection), u"ok"_s);
        if (mode == Mode::ReadWrite) // shared again after the moment alone
            OtherCopy other(path());
        connection.close();
        makeForeign();
    }
}

TEST_F(TextIndexes, AreLeftOutWhileAnotherVersionHasTheFileOpen)
{
    {
        Error error;
        const auto anotherVersion =
            engine::embedded().lock(path(), engine::LockKind::Shared, &error);
        ASSERT_TRUE(connection.open(path(), Password));
        EXPECT_TRUE(connection.session()->upkeep().hasForeignTextIndexes());
        EXPECT_EQ(indexNames(), QStringList{u"_品目_数量"_s});
        EXPECT_EQ(ordered(), InOrder);
        execute(u"INSERT INTO 品目 (名称) VALUES ('え')"_s);
        execute(u"ALTER TABLE 品目 ADD COLUMN 棚 Long"_s);

        schema::Definition upgraded = definition();
        upgraded.indexes += {u"_品目_棚"_s, u"品目"_s, {{u"棚"_s, schema::IndexForm::Plain}}};
        EXPECT_TRUE(connection.bringUpToDate(upgraded));
        EXPECT_EQ(indexNames(), (QStringList{u"_品目_数量"_s, u"_品目_棚"_s}));
        // A second copy of this version finds nothing to do.
        OtherCopy other(path());
        EXPECT_TRUE(other.connection.session()->upkeep().hasForeignTextIndexes());
        connection.close();
    }
    ASSERT_TRUE(connection.open(path(), Password));
    EXPECT_FALSE(connection.session()->upkeep().hasForeignTextIndexes());
    EXPECT_TRUE(connection.bringUpToDate(definition()));
    EXPECT_EQ(indexNames(), AllIndexes + QStringList{u"_品目_棚"_s});
    EXPECT_EQ(ordered(), InOrder + QStringList{u"え"_s});
    EXPECT_EQ(integrity(connection), u"ok"_s);
}

TEST_F(TextIndexes, OfColumnsThatAreNotThereYetComeLater)
{
    ASSERT_TRUE(connection.open(path(), Password));
    schema::Definition later = definition();
    later.indexes += {u"_品目_棚"_s, u"品目"_s, {{u"棚"_s, schema::IndexForm::Fold}}};
    EXPECT_TRUE(connection.bringUpToDate(later));
    EXPECT_EQ(indexNames(), AllIndexes);
    execute(u"ALTER TABLE 品目 ADD COLUMN 棚 STRING(13)"_s);
    EXPECT_TRUE(connection.bringUpToDate(later));
    EXPECT_EQ(indexNames(), AllIndexes + QStringList{u"_品目_棚"_s});
    EXPECT_TRUE(connection.bringUpToDate(later));
}

} // namespace
