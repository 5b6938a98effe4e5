#include "core/data/program_folder.h"

#include "core/data/data_kind.h"

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
        QFile file(path(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
        file.setPermissions(QFile::ReadOwner); // as installed
    }

    QByteArray read(const QString& name) const
    {
        QFile file(path(name));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("missing");
    }

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
    EXPECT_EQ(find().originals, QString());
}

TEST_F(Folder, IsFilledWithWhatIsMissing)
{
    write(u"share/corvane/main.ldb"_s, "");
    core::fillProgramFolder(find());
    EXPECT_EQ(read(u"data/corvane/main.mdb"_s), "main");
    EXPECT_EQ(read(u"data/corvane/menu.ini"_s), "menu");
    EXPECT_TRUE(QFileInfo(path(u"data/corvane/main.mdb"_s)).permissions() & QFile::WriteOwner);
    EXPECT_TRUE(QFileInfo(path(u"data/corvane/menu.ini"_s)).permissions() & QFile::WriteOwner);

    // What a user has worked with is never replaced, nor is a database put beside its journal.
    QFile::remove(path(u"data/corvane/menu.ini"_s));
    write(u"data/corvane/menu.ini"_s, "mine");
    QFile::rename(path(u"data/corvane/main.mdb"_s), path(u"data/corvane/main.mdb-journal"_s));
    core::fillProgramFolder(find());
    EXPECT_EQ(read(u"data/corvane/menu.ini"_s), "mine");
    EXPECT_EQ(read(u"data/corvane/main.mdb"_s), "missing");
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
}
