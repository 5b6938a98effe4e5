#pragma once

#include "storage/connection.h"

#include <QDateTime>
#include <QList>
#include <QSet>
#include <QString>

#include <memory>
#include <optional>

// What was typed into forms and not saved: it outlives the form, the program and the machine.
namespace records {

// What one form held.
struct Draft {
    qint64 id = 0;        // in its store; 0: not kept yet
    QString form = {};    // of which form, on which record
    QString subject = {}; // whose it is, in the user's words
    QDateTime typed = {}; // when it came to hold this
    QString edited = {};  // the fields that were edited
    QString whole = {};   // all of them, for a record that is new or no longer there

    // Whether the same stands in both, whenever it was typed.
    bool holdsSameAs(const Draft& other) const;
};

// The folder of the user's own that the drafts of this program are kept in: below XDG_STATE_HOME,
// or ".local/state" in the home folder.
QString userStateFolder();

// All drafts of one user, in an encrypted file that this copy of the program alone has open. Each
// copy has its own: none waits for another one or takes what it is working on. The file of a copy
// that has ended is taken over by the next one that looks.
//
// What the disk refuses stays in memory and is written with the next change that it takes.
class DraftStore {
public:
    // Empty: nothing reaches a disk. Nothing is opened or made before it is needed.
    explicit DraftStore(QString folder);

    // Takes over what copies that have ended left behind. Called before drafts are asked for.
    void takeOver();
    // Of one form of a data file, the one typed last first.
    QList<Draft> drafts(const QString& dataFile, const QString& form) const;
    // The forms that a data file has drafts of.
    QStringList forms(const QString& dataFile) const;
    // Whose they are.
    QStringList subjects(const QString& dataFile) const;
    // Keeps a draft in the place of the one with its id; a new one gets an id.
    void keep(const QString& dataFile, Draft* draft);
    // Both are no failure when there is none.
    void drop(qint64 id);
    void dropAll(const QString& dataFile, const QString& form);
    // A data file got another name, or is gone where `to` is empty; so its drafts.
    void fileMoved(const QString& from, const QString& to);
    // Whether the disk has all of it.
    bool isWritten() const { return m_pending.isEmpty(); }
    // Why the disk refused; once, until it has taken something again. Empty: it did not, or it was
    // asked before.
    QString takeFailure();

private:
    struct Kept {
        QString file;
        Draft draft;
    };
    QStringList allOf(const QString& dataFile, QString Draft::*text) const;
    bool open();
    static std::optional<QList<Kept>> read(storage::Connection& from);
    void take(const QList<Kept>& found, bool isOwn);
    bool flush();
    bool writePending();
    void leaveFile();
    void noteFailure(const QString& reason);

    QString m_folder;
    std::unique_ptr<storage::Connection> m_file; // null until it is open
    QList<Kept> m_kept;
    QSet<qint64> m_pending; // ids whose rows are not what they should be
    qint64 m_lastId = 0;
    QString m_failure;
    bool m_failureTaken = false;
};

// The drafts of one data file.
class Drafts {
public:
    // They live as long as this and its copies do.
    Drafts();
    Drafts(std::shared_ptr<DraftStore> store, const QString& dataFile);

    QList<Draft> of(const QString& form) const;
    QStringList forms() const;
    QStringList subjects() const;
    void keep(Draft* draft) const;
    void drop(qint64 id) const;
    void dropAll(const QString& form) const;
    bool isWritten() const { return m_store->isWritten(); }
    QString takeFailure() const;

private:
    std::shared_ptr<DraftStore> m_store;
    QString m_file;
};

} // namespace records
