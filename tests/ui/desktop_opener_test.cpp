#include "ui/desktop_opener.h"

#include <QFile>
#include <QTemporaryDir>
#include <QUrl>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using core::Opened;

namespace {

// A desktop whose opener notes what it is given, and does as the test says.
class Desktop : public testing::Test {
protected:
    void SetUp() override
    {
        m_path = qgetenv("PATH");
        qputenv("PATH", QFile::encodeName(m_folder.path()) + ':' + m_path);
        opensBy("exit 0");
    }
    void TearDown() override { qputenv("PATH", m_path); }

    void opensBy(const QByteArray& command) const
    {
        QFile script(path(u"xdg-open"_s));
        ASSERT_TRUE(script.open(QIODevice::WriteOnly));
        script.write("#!/bin/sh\necho \"$1\" >> '" + QFile::encodeName(path(u"opened"_s)) + "'\n"
                     + command + '\n');
        script.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    }

    // What was given to it since the last call.
    QStringList takeOpened() const
    {
        QFile noted(path(u"opened"_s));
        const QString all =
            noted.open(QIODevice::ReadOnly) ? QString::fromUtf8(noted.readAll()) : QString();
        noted.remove();
        return all.split(u'\n', Qt::SkipEmptyParts);
    }

    QString path(const QString& name) const { return m_folder.filePath(name); }

    ui::DesktopOpener opener;

private:
    QTemporaryDir m_folder;
    QByteArray m_path;
};

TEST_F(Desktop, APathThatIsNotHereNeverBecomesAnAddress)
{
    for (const QString& missing :
         {u"C:\\見積\\一.xls"_s, u"C:/見積/一.xls"_s, u"c:一.xls"_s, u"\\\\server\\share\\一.xls"_s,
          u"//server/share/一.xls"_s, u"www.example.jp"_s, u"http://example.jp/一.xls"_s,
          u"docs/一.txt"_s, u"/無い/一.txt"_s, u""_s})
        EXPECT_EQ(opener.openFile(missing), Opened::Missing) << missing.toStdString();
    EXPECT_EQ(takeOpened(), QStringList());

    const QString here = path(u"見積 #1?.txt"_s);
    ASSERT_TRUE(QFile(here).open(QIODevice::WriteOnly));
    EXPECT_EQ(opener.openFile(here), Opened::Yes);
    EXPECT_EQ(takeOpened(), QStringList(QString::fromUtf8(QUrl::fromLocalFile(here).toEncoded())));
}

TEST_F(Desktop, AnAddressNeverBecomesAFile)
{
    ASSERT_TRUE(QFile(path(u"一.txt"_s)).open(QIODevice::WriteOnly));
    for (const QString& other : {path(u"一.txt"_s), u"file://"_s + path(u"一.txt"_s),
                                 u"javascript:alert(1)"_s, u"C:\\一.txt"_s, u""_s})
        EXPECT_EQ(opener.openAddress(other), Opened::Missing) << other.toStdString();
    EXPECT_EQ(takeOpened(), QStringList());
    for (const QString& address :
         {u"https://example.jp/a?b=%20"_s, u"www.example.jp"_s, u"mailto:a@example.jp"_s})
        EXPECT_EQ(opener.openAddress(address), Opened::Yes) << address.toStdString();
    EXPECT_EQ(takeOpened(),
              QStringList({u"https://example.jp/a?b=%20"_s, u"http://www.example.jp"_s,
                           u"mailto:a@example.jp"_s}));
}

TEST_F(Desktop, SaysWhenNothingTakesIt)
{
    for (const char* const end : {"exit 3", "exit 4", "kill -9 $$"}) {
        opensBy(end);
        EXPECT_EQ(opener.openAddress(u"http://example.jp/"_s), Opened::NoProgram) << end;
        EXPECT_EQ(opener.openFile(path(u"xdg-open"_s)), Opened::NoProgram) << end;
    }
    // Some openers run for as long as what they show.
    opensBy("exec sleep 5");
    EXPECT_EQ(opener.openAddress(u"http://example.jp/"_s), Opened::Yes);
}

} // namespace
