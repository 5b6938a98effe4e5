#include "core/data/clock.h"
#include "core/data/database_password.h"
#include "core/data/messages.h"
#include "customer/data/customer_file.h"
#include "customer/data/customers.h"
#include "storage/base/waiting.h"
#include "storage/connection.h"
#include "storage/schema/definitions.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QDir>
#include <QFile>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <span>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

// Lets many copies of the program add customers to one file at once and compares the longest wait
// of one with what a queue would make it wait: the number of writers × the time that one holds the
// lock.

using namespace Qt::StringLiterals;

namespace {

using Seconds = std::chrono::duration<double>;

constexpr double WantedRatio = 5;

// What one writer saw.
struct Figures {
    int saved = 0;
    int refused = 0;
    double longestWait = 0; // seconds
    double waited = 0;
    double worked = 0; // with the waits
    double longestHold = 0;
};

class SilentMessages : public core::Messages {
public:
    core::Answer show(core::MessageStyle /*style*/, const QString& /*text*/,
                      const QString& /*title*/, const QString& /*details*/,
                      core::DefaultButton /*button*/) override
    {
        return core::Answer::Ok;
    }
    std::optional<QString> askText(const QString& /*prompt*/, const QString& /*title*/,
                                   bool /*secret*/) override
    {
        return std::nullopt;
    }
};

class Waits : public storage::WaitWatcher {
public:
    explicit Waits(Figures& figures) : m_figures(figures) { storage::watchWaits(this); }
    ~Waits() override { storage::watchWaits(nullptr); }
    Waits(const Waits&) = delete;
    Waits& operator=(const Waits&) = delete;

    void waitGoesOn() override {}
    void waitEnded(std::chrono::nanoseconds waited) override
    {
        const double seconds = Seconds(waited).count();
        m_figures.waited += seconds;
        m_figures.longestWait = std::max(m_figures.longestWait, seconds);
    }

private:
    Figures& m_figures;
};

class Pipe {
public:
    Pipe()
    {
        if (::pipe(m_ends) != 0)
            std::exit(2);
    }
    // A piece this small is written and read as one.
    template <typename Piece> void send(const Piece& piece) const
    {
        if (::write(m_ends[1], &piece, sizeof piece) != sizeof piece)
            std::exit(2);
    }
    template <typename Piece> Piece receive() const
    {
        Piece piece{};
        if (::read(m_ends[0], &piece, sizeof piece) != sizeof piece)
            std::exit(2);
        return piece;
    }

private:
    int m_ends[2] = {-1, -1};
};

Figures addMany(customer::CustomerFile& file, int adds)
{
    Figures figures;
    const Waits waits(figures);
    records::FieldValues fields;
    for (const QString& column : customer::customerTexts())
        fields.append({column, u"新しい顧客の欄"_s + QString::number(fields.size())});
    for (int i = 0; i < adds; ++i) {
        const double waitedBefore = figures.waited;
        const auto begin = std::chrono::steady_clock::now();
        const bool saved =
            addRecord(file, customer::customerTable(), {}, fields) == records::SaveResult::Saved;
        const double worked = Seconds(std::chrono::steady_clock::now() - begin).count();
        ++(saved ? figures.saved : figures.refused);
        figures.worked += worked;
        figures.longestHold =
            std::max(figures.longestHold, worked - (figures.waited - waitedBefore));
    }
    return figures;
}

// Runs in a process of its own, which all start to add at once.
[[noreturn]] void write(const QString& path, int adds, const Pipe& ready, const Pipe& go,
                        const Pipe& told)
{
    SilentMessages messages;
    const core::SystemClock clock;
    customer::CustomerFile file(messages, clock);
    const bool open = customer::OpenCustomerFile(file, path, storage::Mode::ReadWrite);
    ready.send(open);
    go.receive<char>();
    told.send(open ? addMany(file, adds) : Figures{.refused = adds});
    customer::CloseCustomerFile(file);
    std::_Exit(0);
}

std::vector<Figures> runWriters(const QString& path, int writers, int adds)
{
    const Pipe ready;
    const Pipe go;
    const Pipe told;
    for (int i = 0; i < writers; ++i) {
        const pid_t child = ::fork();
        if (child < 0)
            std::exit(2);
        if (child == 0)
            write(path, adds, ready, go, told);
    }
    for (int i = 0; i < writers; ++i)
        ready.receive<bool>();
    for (int i = 0; i < writers; ++i)
        go.send('g');
    std::vector<Figures> figures;
    figures.reserve(static_cast<std::size_t>(writers));
    for (int i = 0; i < writers; ++i)
        figures.push_back(told.receive<Figures>());
    while (::wait(nullptr) > 0) {}
    return figures;
}

bool makeFile(const QString& path)
{
    storage::Connection file;
    return file.create(path, QString::fromUtf16(core::DatabasePassword),
                       storage::schema::customerFile(storage::schema::Version::V311));
}

bool print(std::span<const Figures> writers)
{
    Figures all;
    for (const Figures& one : writers) {
        all.saved += one.saved;
        all.refused += one.refused;
        all.longestWait = std::max(all.longestWait, one.longestWait);
        all.waited += one.waited;
        all.worked += one.worked;
        all.longestHold = std::max(all.longestHold, one.longestHold);
    }
    const double held = (all.worked - all.waited) / std::max(1, all.saved + all.refused);
    const double queue = static_cast<double>(writers.size()) * held;
    std::printf("saves\t%d\nrefused\t%d\n", all.saved, all.refused);
    std::printf("one holds the lock, mean in milliseconds\t%.2f\n", held * 1e3);
    std::printf("one holds the lock, longest in milliseconds\t%.0f\n", all.longestHold * 1e3);
    std::printf("longest wait in milliseconds\t%.0f\n", all.longestWait * 1e3);
    std::printf("longest wait against a queue\t%.2f\t%.2f\n", all.longestWait / queue, WantedRatio);
    return all.refused == 0 && all.longestWait <= WantedRatio * queue;
}

} // namespace

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    QCoreApplication::setApplicationName(u"corvane_contention"_s);
    const QCommandLineOption folder(u"folder"_s, u"Where the file is written."_s, u"folder"_s,
                                    QDir::tempPath());
    const QCommandLineOption writers(u"writers"_s, u"Copies that write at once."_s, u"count"_s,
                                     u"20"_s);
    const QCommandLineOption adds(u"adds"_s, u"Customers that each adds."_s, u"count"_s, u"400"_s);
    QCommandLineParser arguments;
    arguments.setApplicationDescription(
        u"Prints how long copies that write at once wait for each other. Exit status 1 when a save "
        "was refused or a wait was longer than is wanted."_s);
    arguments.addHelpOption();
    arguments.addOptions({folder, writers, adds});
    arguments.process(application);

    const QString path = QDir(arguments.value(folder)).filePath(u"corvane_contention.mdb"_s);
    QFile::remove(path);
    if (!makeFile(path))
        return 2;
    const bool within =
        print(runWriters(path, arguments.value(writers).toInt(), arguments.value(adds).toInt()));
    QFile::remove(path);
    QFile::remove(path.chopped(4) + u".ldb"_s);
    return within ? 0 : 1;
}
