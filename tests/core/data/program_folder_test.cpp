#include "core/data/program_folder.h"

#include "core/data/data_kind.h"
#include "support/files.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using core::programFile;

namespace {

class Folder : public testing::Test {
protected:
    void SetUp() override
    {
        qunsetenv("CORVANE_HOME");
        qputenv("XDG_DATA_HOME", QFile::encodeName(path(u"data"_s)));
        write(u"share/corvane/main.mdb"_s, "main");
        write(u"share/corvane/menu.ini"_s, "menu");
        QDir(m_folder.path()).mkdir(u"bin"_s);
    }

    void TearDown() override
    {
        qunsetenv("CORVANE_HOME");
        qunsetenv("XDG_DATA_HOME");
    }

    QString path(const QString& name) const { return m_folder.filePath(name); }

    void write(const QString& name, const QByteArray& bytes) const
    {
        QDir().mkpath(QFileInfo(path(name)).path());
        ASSERT_TRUE(writeBytes(path(name), bytes));
        QFile::setPermissions(path(name), QFile::ReadOwner); // as installed
    }

    QByteArray read(const QString& name) const { return contentOf(path(name)); }

    core::ProgramFolder find() const { return core::findProgramFolder(path(u"bin"_s)); }

private:
    QTemporaryDir m_folder;
};

} // namespace

TEST_F(Folder, IsNamedOrPortableOrTheUsers)
{
    EXPECT_EQ(find().path, path(u"data/corvane"_s));
    EXPECT_EQ(find().originals, path(u"share/corvane"_s));

    write(u"bin/main.mdb"_s, "portable");
    QFile::setPermissions(path(u"bin/main.mdb"_s), QFile::ReadOwner | QFile::WriteOwner);
    EXPECT_EQ(find().path, path(u"bin"_s));
    EXPECT_EQ(find().originals, QString());

    qputenv("CORVANE_HOME", QFile::encodeName(path(u"named/"_s)));
    EXPECT_EQ(find().path, path(u"named"_s));
    EXPECT_EQ(find().originals, path(u"share/corvane"_s));
}

TEST_F(Folder, IsFilledWhenItIsMissingOrEmpty)
{
    write(u"share/corvane/main.ldb"_s, "");
    for (const QString& home : {u"data/corvane"_s, u"named"_s}) {
        if (home == u"named"_s) {
            QDir().mkpath(path(home));
            qputenv("CORVANE_HOME", QFile::encodeName(path(home)));
        }
        EXPECT_EQ(core::fillProgramFolder(find()), std::nullopt);
        EXPECT_EQ(read(home + u"/main.mdb"_s), "main");
        EXPECT_EQ(read(home + u"/menu.ini"_s), "menu");
        EXPECT_TRUE(QFileInfo(path(home + u"/main.mdb"_s)).permissions() & QFile::WriteOwner);
        EXPECT_TRUE(QFileInfo(path(home + u"/menu.ini"_s)).permissions() & QFile::WriteOwner);
        EXPECT_FALSE(QFile::exists(path(home + u"/初回起動.new"_s)));
    }
}

TEST_F(Folder, ThatHoldsAnythingIsLeftAlone)
{
    for (const QString& name : {u"Corvane/見本.mdb"_s, u"care/修理.mdb"_s, u"Care.mdb"_s,
                                u"main.mdb-journal"_s, u".memo"_s}) {
        const QString home = u"of "_s + name;
        write(home + u'/' + name, "somebody's");
        qputenv("CORVANE_HOME", QFile::encodeName(path(home)));
        EXPECT_EQ(core::fillProgramFolder(find()), std::nullopt);
        EXPECT_EQ(read(home + u"/main.mdb"_s), "missing") << name.toStdString();
        EXPECT_EQ(read(home + u"/menu.ini"_s), "missing") << name.toStdString();
    }
}

TEST_F(Folder, AFillingThatWasCutShortIsCompleted)
{
    write(u"data/corvane/初回起動.new"_s, "");
    write(u"data/corvane/menu.ini"_s, "mine");
    // Somebody has worked here since; a new main.mdb would hide it.
    write(u"data/corvane/Care/修理.mdb"_s, "somebody's");
    core::fillProgramFolder(find());
    EXPECT_EQ(read(u"data/corvane/main.mdb"_s), "missing");

    QDir(path(u"data/corvane/Care"_s)).removeRecursively();
    EXPECT_EQ(core::fillProgramFolder(find()), std::nullopt);
    EXPECT_EQ(read(u"data/corvane/main.mdb"_s), "main");
    EXPECT_EQ(read(u"data/corvane/menu.ini"_s), "mine");
}

TEST_F(Folder, SaysWhyItCannotBeFilled)
{
    const QString inAFile = path(u"share/corvane/menu.ini/home"_s);
    EXPECT_EQ(core::fillProgramFolder({inAFile, find().originals}),
              u"プログラムフォルダー 『 "_s + inAFile + u" 』 を作成できません。"_s);
    EXPECT_EQ(core::fillProgramFolder({path(u"new"_s), path(u"nothing"_s)}),
              u"新しい main.mdb の元になる 『 "_s + path(u"nothing/main.mdb"_s)
                  + u" 』 がありません。"_s);
    EXPECT_FALSE(QFile::exists(path(u"new"_s)));
}

TEST_F(Folder, NamesLeadToRealFiles)
{
    const QString home = path(u"home"_s);
    QDir().mkpath(home + u"/CORVANE"_s);
    EXPECT_EQ(programFile(home, u"\\main.mdb"), home + u"/main.mdb"_s);
    // Before the folder is there it gets its usual spelling; afterwards it is found as it is.
    EXPECT_EQ(programFile(home, u"\\care\\最適化.mdb"), home + u"/Care/最適化.mdb"_s);
    EXPECT_EQ(programFile(home, u"\\Corvane\\a.mdb"), home + u"/CORVANE/a.mdb"_s);
    QDir().mkpath(home + u"/care"_s);
    EXPECT_EQ(programFile(home, u"\\Care\\a.mdb"), home + u"/care/a.mdb"_s);
    QDir().mkpath(home + u"/Care"_s);
    EXPECT_EQ(programFile(home, u"\\care\\a.mdb"), home + u"/Care/a.mdb"_s);
    // A registry row with a name that leads elsewhere leads nowhere.
    EXPECT_EQ(core::dataFile(home, core::DataKind::Repair, u"../main"_s), QString());
    // Beside an executable of that name, which some file systems take for the folder's.
    write(u"stick/corvane"_s, "program");
    write(u"stick/Corvane"_s, "program");
    QDir().mkpath(path(u"stick/CORVANE"_s));
    EXPECT_EQ(programFile(path(u"stick"_s), u"\\Corvane\\a.mdb"), path(u"stick/CORVANE/a.mdb"_s));
}
