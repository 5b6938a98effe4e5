#include "reading.h"

#include "bare_file.h"

namespace bench {

void require(bool holds, const storage::Connection& file)
{
    if (!holds || !file.errors().isEmpty())
        giveUp(file.lastError().message);
}

qint64 readRows(storage::Recordset& rows, qint64 atMost)
{
    const int fields = rows.fieldCount();
    qint64 count = 0;
    // Not one step further than asked for: it would read the next page.
    for (bool onRow = !rows.eof(); onRow; onRow = ++count < atMost && rows.moveNext()) {
        for (int field = 0; field < fields; ++field)
            const QString value = rows.value(field).toText();
    }
    return count;
}

QList<core::ListRow> readPage(core::ListSource& list)
{
    return list.rows(0, static_cast<int>(list.count()));
}

} // namespace bench
