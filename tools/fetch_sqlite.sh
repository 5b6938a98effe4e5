#!/usr/bin/env bash
# Prints the folder that holds the SQLite amalgamation, fetching it once through npm's configured
# registry into the user's cache. Every file is held to its SHA-256. With --cached nothing is fetched.
set -euo pipefail

package=better-sqlite3-multiple-ciphers
version=12.11.1
tarball_sum=01388c78f46ce63c6aec021f67b364cc67bd637edba64f7add0c0230ce5f777a
file_sums="\
670d8d053176b53a68073b168f8e68fb72db67bdf964a0eb130338e9391198b9  sqlite3.c
8270c30673c9dccb08f0516ae63b64f898a09bc92b76d850cd912b0c1461dbe5  sqlite3.h
a3ca6e430c8e97edf8cbd66867ac178ab179a41d85c04cad48889a8b84806dcd  sqlite3ext.h"

fail() {
    printf 'fetch_sqlite: %s\n' "$@" >&2
    printf 'fetch_sqlite: with no network, unpack the package elsewhere and configure with\n' >&2
    printf 'fetch_sqlite:   cmake --preset dev -DCORVANE_SQLITE_DIR=<folder with sqlite3.c>\n' >&2
    exit 1
}

intact() { (cd "$1" 2>/dev/null && sha256sum --check --status <<<"$file_sums" 2>/dev/null); }

if [ -n "${CORVANE_SQLITE_DIR:-}" ]; then
    intact "$CORVANE_SQLITE_DIR" ||
        fail "CORVANE_SQLITE_DIR names $CORVANE_SQLITE_DIR, which lacks files of $package $version."
    printf '%s\n' "$CORVANE_SQLITE_DIR"
    exit 0
fi

cache=${XDG_CACHE_HOME:-${HOME:+$HOME/.cache}}
cache=${cache:-$(dirname "$0")/../.cache}/corvane
target=$cache/sqlite3mc-$version
if intact "$target"; then
    printf '%s\n' "$target"
    exit 0
fi

[ "${1:-}" != --cached ] || fail "the amalgamation is not in $cache yet."
command -v npm >/dev/null || fail "npm is not installed (Debian package npm)."
mkdir -p "$cache" || fail "the cache folder $cache cannot be made."
work=$(mktemp -d "$cache/fetch.XXXXXX") || fail "the cache folder $cache cannot be written."
trap 'rm -rf "$work"' EXIT

(cd "$work" && npm pack --loglevel=error "$package@$version" >/dev/null) ||
    fail "npm could not fetch $package $version; its messages stand above."
archive=$work/$package-$version.tgz
[ -f "$archive" ] || fail "npm left no $package-$version.tgz."
sha256sum --check --status <<<"$tarball_sum  $archive" ||
    fail "the fetched package is not the expected one: its SHA-256 is" \
        "$(sha256sum "$archive" | cut -d ' ' -f 1) where $tarball_sum was expected."

mkdir "$work/out"
tar -xzf "$archive" -C "$work/out" --strip-components=3 package/deps/sqlite3 ||
    fail "the fetched package cannot be unpacked."
intact "$work/out" || fail "a file in the fetched package has another SHA-256 than expected."

# Another run may have finished meanwhile; its copy is as good.
rm -rf "$target"
mv -T "$work/out" "$target" 2>/dev/null || intact "$target" || fail "$target cannot be written."
printf '%s\n' "$target"
