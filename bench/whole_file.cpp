#include "whole_file.h"

#include "bare_file.h"
#include "scratch_copy.h"

#include "storage/data_files/data_files.h"

#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace bench {

namespace {

constexpr double SizeLimit = 1.75;
constexpr double CompactionLimit = 1.1;

const QString NamesOfIndexes = u"SELECT name FROM sqlite_schema WHERE type = 'index' "
                               "AND sql IS NOT NULL"_s;
const QString UsedBytes =
    u"SELECT (p.page_count - f.freelist_count) * s.page_size FROM pragma_page_count AS p, "
    "pragma_freelist_count AS f, pragma_page_size AS s"_s;

// The bytes of a file's rows: those of the pages that are in use when all indexes are gone.
qint64 bytesOfRows(const QString& path, const QString& password)
{
    const ScratchCopy copy(path, u"rows"_s);
    const BareFile bare(copy.path(), password);
    bare.readAll(u"BEGIN"_s);
    for (const QString& index : bare.texts(NamesOfIndexes))
        bare.readAll(u"DROP INDEX \""_s + index + u'"');
    bare.readAll(u"COMMIT"_s);
    return bare.readNumber(UsedBytes);
}

// Both compact the same file, the program's in its place. The file is opened within both times, and
// both free the blocks of one file of its size: the program's those of the file that it replaces,
// the bare engine's those of its copy.
Times compareCompaction(const QString& path, const QString& password)
{
    const ScratchCopy copy(path, u"compacted"_s);
    const QString draft = path.chopped(4) + u"-draft.mdb"_s;
    const auto remove = [&draft] {
        QFile::remove(draft);
        QFile::remove(draft.chopped(4) + u".ldb"_s);
    };
    remove();
    const auto ours = [&] {
        QElapsedTimer timer;
        timer.start();
        if (const auto error = storage::data_files::compactInPlace(copy.path(), draft, password))
            giveUp(error->message);
        return milliseconds(timer);
    };
    const auto bare = [&] {
        QElapsedTimer timer;
        timer.start();
        BareFile(copy.path(), password).readAll(u"VACUUM INTO '"_s + draft + u'\'');
        remove();
        return milliseconds(timer);
    };
    const std::vector<double> times = medians({ours, bare});
    remove();
    return {times[0], times[1]};
}

} // namespace

void measureWholeFile(Figures& figures, const QString& path, const QString& password)
{
    const QString size = u"size of the file against its rows"_s;
    if (figures.wants(size)) {
        const qint64 file = QFileInfo(path).size();
        const qint64 rows = bytesOfRows(path, password);
        figures.report(size, static_cast<double>(file) / static_cast<double>(rows), SizeLimit,
                       QString::number(file) + u" bytes against "_s + QString::number(rows));
    }
    figures.measure(u"compaction"_s, CompactionLimit,
                    [&] { return compareCompaction(path, password); });
}

} // namespace bench
