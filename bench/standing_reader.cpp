#include "standing_reader.h"

#include "bare_file.h"
#include "scratch_copy.h"

#include "storage/connection.h"
#include "storage/recordset.h"

#include <QBitArray>

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace bench {

namespace {

using Clock = std::chrono::steady_clock;
using Seconds = std::chrono::duration<double>;

constexpr double WaitLimit = 5;
constexpr Seconds Standing{13};
constexpr int AddsBeside = 100;

const QString CountLogs = u"SELECT count(*) AS 件数, max(ログ更新ID) AS 最後 FROM ログ"_s;
const QString AllLogs = u"SELECT ログ更新ID, 記録者 FROM ログ"_s;
const QString InOrder = u" ORDER BY 記録者 DESC, ログ更新ID"_s;
const QString AddLog = u"INSERT INTO ログ (ログID, 記録者) VALUES (?, '新しい記録者')"_s;
constexpr int NumberAbove = 200'000'000; // above the numbers of a sample

void open(storage::Connection& file, const QString& path, const QString& password)
{
    if (!file.open(path, password))
        giveUp(file.lastError().message);
}

// A process of its own that adds rows at even distances.
class Writer {
public:
    Writer(const QString& path, const QString& password)
    {
        if (::pipe(m_ends) != 0)
            giveUp(u"No pipe."_s);
        m_child = ::fork();
        if (m_child < 0)
            giveUp(u"No process."_s);
        if (m_child == 0)
            write(path, password);
    }

    // Waits for the end; the longest add in seconds.
    double longest()
    {
        double seconds = 0;
        int status = 0;
        const bool told = ::read(m_ends[0], &seconds, sizeof seconds) == sizeof seconds;
        ::waitpid(m_child, &status, 0);
        ::close(m_ends[0]);
        ::close(m_ends[1]);
        if (!told || status != 0)
            giveUp(u"A save was refused while a reader stood open."_s);
        return seconds;
    }

private:
    [[noreturn]] void write(const QString& path, const QString& password) const
    {
        double longest = 0;
        storage::Connection file;
        bool saved = file.open(path, password);
        const auto begin = Clock::now();
        for (int i = 0; i < AddsBeside && saved; ++i) {
            std::this_thread::sleep_until(begin + Standing * i / AddsBeside);
            const auto before = Clock::now();
            saved = file.execute(AddLog, {storage::Value(NumberAbove + i)});
            longest = std::max(longest, Seconds(Clock::now() - before).count());
        }
        saved = saved && ::write(m_ends[1], &longest, sizeof longest) == sizeof longest;
        std::_Exit(saved ? 0 : 1);
    }

    int m_ends[2] = {-1, -1};
    pid_t m_child = -1;
};

struct LogsInFile {
    qint64 number = 0;
    qint64 last = 0; // update ID
};

// Counted before anybody writes: one statement over all rows would keep the writer waiting.
LogsInFile countLogs(const QString& path, const QString& password)
{
    storage::Connection file;
    open(file, path, password);
    storage::Recordset counted;
    if (!counted.open(CountLogs, file))
        giveUp(file.lastError().message);
    return {counted.value(u"件数").toInteger(), counted.value(u"最後").toInteger()};
}

// Reads all rows in the time that it has to stand open.
void readSlowly(storage::Connection& file, const QString& statement, const LogsInFile& logs)
{
    constexpr qint64 RowsBetweenLooks = 1000;
    const qint64 rows = logs.number;
    QBitArray seen(logs.last + 1);
    const auto begin = Clock::now();
    storage::Recordset reader;
    if (!reader.open(statement, file))
        giveUp(file.lastError().message);
    qint64 read = 0;
    for (; !reader.eof(); reader.moveNext()) {
        const qint64 row = reader.value(0).toInteger();
        if (row >= seen.size())
            continue; // added behind the opening
        if (seen.testBit(row))
            giveUp(u"A row was read twice."_s);
        seen.setBit(row);
        if (++read % RowsBetweenLooks == 0)
            std::this_thread::sleep_until(
                begin + Standing * static_cast<double>(read) / static_cast<double>(rows));
    }
    if (read != rows || !file.errors().isEmpty())
        giveUp(u"Not every row was read."_s);
}

Times compareSaves(const QString& path, const QString& password, const QString& statement)
{
    const ScratchCopy alone(path, u"alone"_s);
    const ScratchCopy beside(path, u"beside"_s);
    const LogsInFile logs = countLogs(beside.path(), password);
    Times times;
    times.other = Writer(alone.path(), password).longest() * 1e3;
    // Made before the file is open here: what is open in one process may not be used in another.
    Writer writer(beside.path(), password);
    storage::Connection file;
    open(file, beside.path(), password);
    readSlowly(file, statement, logs);
    times.ours = writer.longest() * 1e3;
    return times;
}

} // namespace

void measureStandingReader(Figures& figures, const QString& path, const QString& password)
{
    const QString name = u"longest save beside a standing reader"_s;
    figures.measure(name, WaitLimit, [&] { return compareSaves(path, password, AllLogs); });
    // All addresses are found and sorted in one statement, which nobody writes beside.
    const QString inOrder = name + u" with an order, in milliseconds (for information)"_s;
    if (figures.wants(inOrder))
        figures.inform(inOrder, compareSaves(path, password, AllLogs + InOrder).ours);
}

} // namespace bench
