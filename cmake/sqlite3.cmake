# The embedded engine: the SQLite amalgamation with encryption, fetched by tools/fetch_sqlite.sh and
# built once without our warnings. Its version and check sums stand in that script.

find_package(Threads REQUIRED)

set(fetch ${PROJECT_SOURCE_DIR}/tools/fetch_sqlite.sh)
if(CORVANE_SQLITE_DIR)
    set(fetch ${CMAKE_COMMAND} -E env CORVANE_SQLITE_DIR=${CORVANE_SQLITE_DIR} ${fetch})
endif()
execute_process(COMMAND ${fetch} OUTPUT_VARIABLE CORVANE_SQLITE_SOURCE
    OUTPUT_STRIP_TRAILING_WHITESPACE RESULT_VARIABLE fetch_result)
if(NOT fetch_result EQUAL 0)
    message(FATAL_ERROR "The SQLite amalgamation is missing; the lines above say why.")
endif()

add_library(sqlite3 STATIC ${CORVANE_SQLITE_SOURCE}/sqlite3.c)
target_include_directories(sqlite3 SYSTEM PUBLIC ${CORVANE_SQLITE_SOURCE})
target_compile_options(sqlite3 PRIVATE -O2 -w)
target_compile_definitions(sqlite3 PRIVATE
    CODEC_TYPE=CODEC_TYPE_AEGIS   # the cipher of a new file
    SQLITE_THREADSAFE=2           # one connection is used by one thread at a time
    SQLITE_DQS=0                  # "name" is a name, never a text
    SQLITE_DEFAULT_FOREIGN_KEYS=0
    SQLITE_DEFAULT_MEMSTATUS=0
    SQLITE_LIKE_DOESNT_MATCH_BLOBS
    SQLITE_OMIT_DEPRECATED
    SQLITE_OMIT_LOAD_EXTENSION
    SQLITE_OMIT_SHARED_CACHE
    SQLITE_TEMP_STORE=3           # sorts of encrypted data never reach the disk in the clear
    SQLITE_USE_URI=0
    HAVE_USLEEP=1)
target_link_libraries(sqlite3 PUBLIC Threads::Threads m)
