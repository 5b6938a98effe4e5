# Sourced by run.sh, test.sh and tools/make_deb.sh: the Debian packages that they need, and how missing ones are
# installed. One line each: package | command that shows it is there (else dpkg is asked) | reason.

build_packages="
g++                  | g++          | compiles the program
cmake                | cmake        | describes the build
ninja-build          | ninja        | runs the build
mold                 | mold         | links quickly
ccache               | ccache       | spares compiling the same file twice
qt6-base-dev         |              | windows, files and texts (Qt 6)
libgl-dev            |              | wanted by the headers of Qt's windows
qt6-svg-dev          |              | draws the icons
qt6-tools-dev-tools  |              | Qt's tools for forms and translations
libicu-dev           |              | Japanese sort order
fp-utils             | chmcmd       | compiles the help file"

# Wanted only while the database engine is not yet in the cache.
fetch_packages="
npm                  | npm          | fetches the source of the database engine"

run_packages="
qt6-translations-l10n |             | Qt's own texts in Japanese
fonts-noto-cjk       |              | the screens' font
fonts-ipafont-gothic |              | the printed pages' font
xdg-utils            | xdg-open     | opens files, mail and web addresses"

test_packages="
git                  | git          | lists the files to check
python3              | python3      | runs the house's own checks
clang-format-14      | clang-format-14 | checks the format
clang-tidy-14        | clang-tidy-14 | looks for common mistakes
libgtest-dev         |              | runs the tests
libgmock-dev         |              | runs the tests
desktop-file-utils   | desktop-file-validate | checks the desktop entry
appstream            | appstreamcli | checks the AppStream data
man-db               | man          | checks the manual pages
groff-base           | groff        | checks the manual pages"

# Only tools/make_deb.sh wants them.
package_packages="
librsvg2-bin         | rsvg-convert | draws the icon in fixed sizes
dpkg-dev             | dpkg-shlibdeps | finds the libraries that the package wants
lintian              | lintian      | checks the package"

is_there() { # package command
    if [ -n "$2" ]; then
        command -v "$2" >/dev/null
    else
        [ "$(dpkg-query -W -f '${db:Status-Status}' "$1" 2>/dev/null)" = installed ]
    fi
}

# Says what is missing and why, and installs it.
install_missing() { # the lists above
    local package probe reason missing=()
    while IFS='|' read -r package probe reason; do
        package=${package// /} probe=${probe// /}
        if [ -z "$package" ] || is_there "$package" "$probe"; then
            continue
        fi
        [ ${#missing[@]} -gt 0 ] || echo "These Debian packages are missing and will be installed:"
        printf '  %-22s%s\n' "$package" "$reason"
        missing+=("$package")
    done < <(printf '%s\n' "$@")
    [ ${#missing[@]} -gt 0 ] || return 0

    local install="apt-get install -y --no-install-recommends ${missing[*]}" as_root=()
    if ! command -v apt-get >/dev/null; then
        echo "This machine has no apt-get; please install them by its own means." >&2
        return 1
    fi
    if [ "$(id -u)" -ne 0 ]; then
        if ! command -v sudo >/dev/null; then
            printf 'Neither root nor sudo is at hand. Please run as root:\n  %s\n' "$install" >&2
            return 1
        fi
        as_root=(sudo)
    fi
    "${as_root[@]}" apt-get update -q || return 1
    # shellcheck disable=SC2086
    "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive $install </dev/null
}

# The packages for fetching the engine, when it has to be fetched.
packages_to_fetch() {
    tools/fetch_sqlite.sh --cached >/dev/null 2>&1 || printf '%s\n' "$fetch_packages"
}
