#!/bin/sh
# Runs the fuzz target of the SQL compiler: fuzz/run.sh [SECONDS]
# Needs clang. What it finds is kept in build/fuzz/corpus; a fault ends the run and is kept as
# build/fuzz/crash-* (or timeout-*, oom-*).
set -eu
cd "$(dirname "$0")/.."
seconds=${1:-600}
build=build/fuzz

cmake --preset fuzz
cmake --build "$build" --target sql_front_end

# The statements of the tests are the seeds.
rm -rf "$build/seeds"
mkdir -p "$build/seeds" "$build/corpus"
cat tests/storage/sql/corpus.txt tests/storage/sql/meaning.txt tests/storage/sql/refused.txt \
    | awk -v folder="$build/seeds" '
        /^@ / { letter = substr($2, 1, 1); next }
        /^(#|\t|$)/ { next }
        { file = sprintf("%s/%04d", folder, ++count); printf "%s%s", letter, $0 > file; close(file) }'

exec "$build/bin/sql_front_end" -max_total_time="$seconds" -timeout=10 -max_len=4096 \
    -dict=fuzz/sql_front_end.dict -artifact_prefix="$build/" -print_final_stats=1 \
    "$build/corpus" "$build/seeds"
