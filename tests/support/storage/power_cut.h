#pragma once

#include <QByteArray>
#include <QList>
#include <QString>
#include <QStringList>

#include <functional>
#include <map>
#include <sys/types.h>

// What a power cut may make of the steps that the disk was not yet made to keep.
enum class Unsynced { Lost, Kept, Half };

// Records every step that this process takes on the files of one folder, by the engine or by
// itself: it stands under the calls of the system (file_calls.cpp). From the record, the folder can
// be made as a power cut at any moment may leave it. A file's content is kept once the file was
// synced, a name once its folder was, which is all that a file system promises.
class PowerCut {
public:
    // What the folder holds now is on the disk. Nothing in it may be open.
    explicit PowerCut(const QString& folder);
    ~PowerCut();
    PowerCut(const PowerCut&) = delete;
    PowerCut& operator=(const PowerCut&) = delete;

    // Tells that what was done until now is saved, as the program tells its user.
    void acknowledge();

    // Replays a cut before each step, behind the last one, and with the unsynced steps lost, kept,
    // and half of them lost. `look` says what it finds in a folder; after each cut that has to be
    // one of two: states[n] and states[n + 1], n being the number of acknowledgements until then.
    // Gives one line for each cut after which it is something else, and stops when there are so
    // many.
    QStringList complaints(const QStringList& states,
                           const std::function<QString(const QString& folder)>& look,
                           int atMost = 10) const;

    // For file_calls.cpp. What is going on in the watched folder; null when none is watched.
    static PowerCut* watching();
    void opened(int descriptor, const QByteArray& path, int flags);
    void written(int descriptor, off_t offset, QByteArrayView bytes);
    void cut(int descriptor, off_t size);
    void synced(int descriptor);
    void closed(int descriptor);
    void unlinked(const QByteArray& path);
    void renamed(const QByteArray& from, const QByteArray& to);

private:
    enum class Kind { Create, Unlink, Rename, SyncFolder, Write, Cut, SyncFile, Acknowledge };
    struct Step {
        Kind kind;
        int file = -1;
        QByteArray name = {};  // in the folder
        QByteArray other = {}; // the new name, or what is written
        qsizetype offset = 0;  // or the new size
    };
    using Files = std::map<QByteArray, QByteArray>; // by their names

    QByteArray nameOf(const QByteArray& path) const; // empty: not in the folder
    bool isKept(qsizetype step, qsizetype until) const;
    Files filesAfter(qsizetype steps, Unsynced unsynced, quint32 seed) const;
    static void apply(const Step& step, std::map<QByteArray, int>* names,
                      std::map<int, QByteArray>* contents);

    QByteArray m_folder;
    std::map<QByteArray, int> m_namesBefore;
    std::map<int, QByteArray> m_contentsBefore;
    std::map<QByteArray, int> m_names; // as they are now
    std::map<int, int> m_open;         // the file by its descriptor, -1 for the folder
    int m_fileCount = 0;
    QList<Step> m_steps;
};
