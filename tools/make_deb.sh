#!/usr/bin/env bash
# Makes a Debian package of the program for this machine's architecture and release:
# make_deb.sh [FOLDER]. The package is left in FOLDER (else build/), its path is printed last.
# DEBFULLNAME and DEBEMAIL name its maintainer.
set -euo pipefail
out=$(readlink -m "${1:-$(dirname "$0")/../build}")
cd "$(dirname "$(readlink -f "$0")")/.."
. tools/packages.sh

install_missing "$build_packages" "$package_packages" "$(packages_to_fetch)" || exit 1
cmake --preset release --log-level=WARNING >/dev/null
cmake --build --preset release --target corvane templates help_file icons
version=$(dpkg-parsechangelog --file packaging/changelog --show-field Version)

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
stage=$work/debian/corvane
mkdir -p "$stage/DEBIAN" "$out"
# Files are everybody's to read, whatever the mask of who makes the package.
umask 022
DESTDIR=$stage cmake --install build/release --prefix /usr --component program --strip >/dev/null
find "$stage/usr/share" -type f -exec chmod 644 {} +
gzip -9n "$stage"/usr/share/man/man1/*.1 "$stage"/usr/share/man/ja/man1/*.1

docs=$stage/usr/share/doc/corvane
mkdir -p "$docs"
cp packaging/copyright "$docs/copyright"
python3 tools/notices.py "$(tools/fetch_sqlite.sh)/sqlite3.c" | gzip -9n >"$docs/notices.gz"
gzip -9nc packaging/changelog >"$docs/changelog.gz"
chmod 644 "$docs"/*

maintainer=$(dpkg-parsechangelog --file packaging/changelog --show-field Maintainer)
[ -z "${DEBEMAIL:-}" ] || maintainer="${DEBFULLNAME:-Corvane} <$DEBEMAIL>"
cat >"$work/debian/control" <<EOF
Source: corvane
Maintainer: $maintainer

Package: corvane
Architecture: any
EOF
# The icons are drawn by a plug-in of libqt6svg6, which no library names.
libraries=$(cd "$work" && dpkg-shlibdeps -O debian/corvane/usr/bin/corvane | sed 's/^shlibs:Depends=//')
cat >"$stage/DEBIAN/control" <<EOF
Package: corvane
Version: $version
Architecture: $(dpkg --print-architecture)
Maintainer: $maintainer
Installed-Size: $(du -k --apparent-size -s "$stage/usr" | cut -f1)
Depends: $libraries, libqt6svg6, fonts-noto-cjk, qt6-translations-l10n, xdg-utils
Recommends: fonts-ipafont-gothic
Suggests: fcitx5-frontend-qt6
Section: misc
Priority: optional
Homepage: https://www.example.jp/
Description: customers and repairs of a small Japanese shop
 Corvane 3 keeps the customers of a shop that sells and repairs, with their
 cases, logs and schedule, in encrypted data files. Several people can work on
 the same file at the same time, and everything can be done by keyboard.
 .
 The windows and the help are in Japanese.
EOF
(cd "$stage" && find usr -type f -print0 | sort -z | xargs -0 md5sum >DEBIAN/md5sums)
package=$out/corvane_${version}_$(dpkg --print-architecture).deb
dpkg-deb --root-owner-group --build "$stage" "$package" >/dev/null
lintian --allow-root --fail-on error "$package" >&2
printf '%s\n' "$package"
