#!/usr/bin/env bash
# Compiles the help pages of docs/help: make_help.sh FILE.chm
# The compiler takes only pages in code page 932 and file names in ASCII.
set -euo pipefail
target=$(readlink -f "$(dirname "$1")")/$(basename "$1")
pages=$(dirname "$(readlink -f "$0")")/../docs/help
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

titled() { # page
    sed -n 's/.*<title>\(.*\)<\/title>.*/\1/p' "$1"
}
order=$(grep -o 'href="[a-z]*\.html"' "$pages/index.html" | cut -d'"' -f2)
for page in index.html $order; do
    sed 's/charset="utf-8"/charset="shift_jis"/' "$pages/$page" | iconv -f UTF-8 -t CP932 >"$work/$page"
done
{
    echo '<html><body><ul>'
    for page in index.html $order; do
        printf '<li><object type="text/sitemap"><param name="Name" value="%s">' "$(titled "$pages/$page")"
        printf '<param name="Local" value="%s"></object>\n' "$page"
    done
    echo '</ul></body></html>'
} | iconv -f UTF-8 -t CP932 >"$work/help.hhc"
{
    printf '[OPTIONS]\nCompatibility=1.1 or later\nCompiled file=help.chm\nContents file=help.hhc\n'
    printf 'Default topic=index.html\nFull-text search=No\nLanguage=0x411\n'
    printf 'Title=%s\n\n[FILES]\n' "$(titled "$pages/index.html")"
    printf '%s\n' index.html $order
} | iconv -f UTF-8 -t CP932 >"$work/help.hhp"

(cd "$work" && chmcmd help.hhp) >"$work/log" 2>&1 || true
if [ ! -s "$work/help.chm" ]; then
    cat "$work/log" >&2
    exit 1
fi
cp "$work/help.chm" "$target"
