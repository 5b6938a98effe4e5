#pragma once

#include "core/data/registry.h"
#include "core/data/shared.h"
#include "storage/schema/definitions.h"
#include "support/fixed_clock.h"
#include "support/scripted_messages.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

// A test in a program folder of its own. At its end nothing may have failed in main.mdb but what
// the test expected and took.
class CoreTest : public testing::Test {
protected:
    CoreTest() : shared(messages, clock) {}
    void TearDown() override;

    // Makes main.mdb and the two templates.
    void makeFolder(storage::schema::Version version = storage::schema::Version::V311);
    // Makes the folder, and opens main.mdb.
    void openFolder();

    // The registered files of a kind.
    QList<core::DataFileEntry> entries(core::DataKind kind);
    // Registers a new file; a failure when it is refused.
    core::DataFileEntry add(core::DataKind kind, const QString& name, const QString& password = {});

    // The rows of all entries: kind, name and password.
    QStringList registered();

    QString folder() const { return m_folder.path(); }
    QString file(const QString& name) const { return m_folder.filePath(name); }
    // The customer file of that name.
    QString pathOf(const QString& name) const
    {
        return file(QStringLiteral("Corvane/") + name + QStringLiteral(".mdb"));
    }
    void writeFile(const QString& name, const QByteArray& bytes) const;

    // The failures so far, which the test expected.
    QList<storage::ErrorKind> takeErrors();
    void execute(const QString& statement);
    // The rows of a statement, their fields joined by "|".
    QStringList rows(const QString& statement);

    ScriptedMessages messages;
    FixedClock clock;
    core::Shared shared;

private:
    QTemporaryDir m_folder;
};
