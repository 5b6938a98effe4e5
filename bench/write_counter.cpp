#include "write_counter.h"

#include "bare_file.h"

#include <sqlite3.h>

namespace bench {

using namespace Qt::StringLiterals;

namespace {

constexpr char Plain[] = "unix";
constexpr char Counting[] = "counting";
constexpr char Encrypting[] = "multipleciphers-unix";
constexpr char EncryptingOnCounting[] = "multipleciphers-counting";

// What the operating system's layer does with a data file, and the same with its writes counted.
const sqlite3_io_methods* plainMethods = nullptr;
sqlite3_io_methods countingMethods;
sqlite3_vfs countingLayer;
qint64 written = 0;

int countedWrite(sqlite3_file* file, const void* bytes, int count, sqlite3_int64 offset)
{
    written += count;
    return plainMethods->xWrite(file, bytes, count, offset);
}

int openCounted(sqlite3_vfs* layer, const char* name, sqlite3_file* file, int flags, int* given)
{
    const int code = sqlite3_vfs_find(Plain)->xOpen(layer, name, file, flags, given);
    if (code != SQLITE_OK || (flags & SQLITE_OPEN_MAIN_DB) == 0)
        return code;
    plainMethods = file->pMethods;
    countingMethods = *plainMethods;
    countingMethods.xWrite = countedWrite;
    file->pMethods = &countingMethods;
    return code;
}

} // namespace

WriteCounter::WriteCounter()
{
    written = 0;
    sqlite3_initialize();
    countingLayer = *sqlite3_vfs_find(Plain);
    countingLayer.zName = Counting;
    countingLayer.pNext = nullptr;
    countingLayer.xOpen = openCounted;
    if (sqlite3_vfs_register(&countingLayer, 0) != SQLITE_OK
        || sqlite3mc_vfs_create(Counting, 1) != SQLITE_OK)
        giveUp(u"What the engine writes cannot be counted."_s);
}

WriteCounter::~WriteCounter()
{
    sqlite3_vfs_register(sqlite3_vfs_find(Encrypting), 1);
    sqlite3mc_vfs_destroy(EncryptingOnCounting);
    sqlite3_vfs_unregister(&countingLayer);
}

qint64 WriteCounter::bytes() const
{
    return written;
}

} // namespace bench
