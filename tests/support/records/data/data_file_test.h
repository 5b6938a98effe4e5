#pragma once

#include "records/data/data_file.h"
#include "storage/schema/definitions.h"
#include "support/fixed_clock.h"
#include "support/scripted_messages.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

// A test on a scratch data file of its own. At its end nothing may have failed in the file but what
// the test expected and took.
class DataFileTest : public testing::Test {
protected:
    // The file of the deriving test.
    virtual records::DataFile& dataFile() = 0;

    void TearDown() override;

    // Makes the scratch file anew and leaves it closed.
    void create(const storage::schema::Definition& definition);
    bool open() { return records::openDataFile(dataFile(), path(), storage::Mode::ReadWrite); }
    QString path() const { return m_folder.filePath(QStringLiteral("見本.mdb")); }

    // The failures so far, which the test expected.
    QList<storage::ErrorKind> takeErrors();
    void execute(const QString& statement) { execute(dataFile(), statement); }
    static void execute(records::DataFile& file, const QString& statement);
    // The first field of all rows, as text.
    QStringList column(const QString& statement);
    QString valueOf(const QString& statement);

    ScriptedMessages messages;
    FixedClock clock;

private:
    QTemporaryDir m_folder;
};
