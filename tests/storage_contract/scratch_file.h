#pragma once

#include "storage/connection.h"
#include "storage/recordset.h"
#include "storage/schema/definitions.h"
#include "support/scratch_folder.h"
#include "support/storage/refusals.h"
#include "support/storage/rows.h"

#include <gtest/gtest.h>

// Whose contract is tested: each program of tests defines it for its engine.
storage::engine::Engine& engineUnderTest();

// A data file of its own for each test, with one table of every column type and one that has
// neither a key nor a time stamp. At its end nothing may have failed but what the test took.
class ScratchFile : public testing::Test {
public:
    static storage::schema::Definition definition();
    static inline const QString Password = QStringLiteral("鍵 of the file");

protected:
    void SetUp() override;
    void TearDown() override;

    QString path(const QString& name = QStringLiteral("在庫.mdb")) const
    {
        return m_folder.filePath(name);
    }
    // The same for the engine under test.
    storage::Location data(const QString& name = QStringLiteral("在庫.mdb")) const
    {
        return {engineUnderTest(), path(name)};
    }

    // The kinds of what has failed so far; forgets them.
    QList<storage::ErrorKind> takeErrors() { return takeErrors(connection); }
    static QList<storage::ErrorKind> takeErrors(storage::Connection& from)
    {
        return ::takeErrors(from);
    }
    void execute(const QString& statement) { execute(connection, statement); }
    static void execute(storage::Connection& on, const QString& statement);
    // All rows, the fields of each joined by "|" and Null as "-".
    QStringList rows(const QString& statement) { return rows(connection, statement); }
    static QStringList rows(storage::Connection& from, const QString& statement);
    // Adds `count` rows named 品1, 品2, … to 品目.
    void fill(int count);

    storage::Connection connection; // on the file

private:
    ScratchFolder m_folder;
};

// Another copy of the program on the same file, in this process.
class OtherCopy {
public:
    explicit OtherCopy(const storage::Location& data, storage::Mode mode = storage::Mode::ReadWrite)
    {
        EXPECT_TRUE(connection.open(data, ScratchFile::Password, mode))
            << connection.lastError().message.toStdString();
    }

    storage::Connection connection;
};
