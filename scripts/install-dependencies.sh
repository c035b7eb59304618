#!/bin/sh
# install-dependencies.sh WANTED...: installs what is wanted and not there yet, says what, and is silent when nothing is
# missing. WANTED is a group of the table below. Installs on Debian 12 or a relative of it, as root or through a sudo
# that asks for no password; elsewhere it says what is missing.
#
# Exit status: 0 when everything is there, 1 when nothing can be built, 3 when something else that was wanted is missing
# (which is said on stderr, and written to build/missing.txt for `make check` to repeat).
set -u
cd "$(dirname "$0")/.." || exit 1

# GROUP PACKAGE PROBE: a command or a header that comes with the package tells whether it is there on another
# distribution; - where nothing does.
table() {
    cat <<'EOT'
library     g++                 g++
library     cmake               cmake
library     ninja-build         ninja
library     libjansson-dev      jansson.h
host        libcli11-dev        CLI/CLI.hpp
host        libfmt-dev          fmt/color.h
host        rapidjson-dev       rapidjson/document.h
host        libelf-dev          gelf.h
host        libcpp-httplib-dev  httplib.h
host        pkg-config          pkg-config
host        libjs-codemirror    -
test        googletest          gmock/gmock.h
test        ccache              ccache
test        pkg-config          pkg-config
test        python3             python3
test        python3-jsonschema  -
test        node-typescript     tsc
test        valgrind            valgrind
test        locales             localedef
sanitize    clang               clang++
sanitize    libclang-rt-14-dev  -
sanitize    llvm                llvm-symbolizer
mips        g++-mips-linux-gnu  mips-linux-gnu-g++
mips        qemu-user           qemu-mips
mips        dpkg-dev            dpkg-source
machines    g++-arm-linux-gnueabihf arm-linux-gnueabihf-g++
machines    g++-s390x-linux-gnu s390x-linux-gnu-g++
lint        clang-format        clang-format
lint        clang-tidy          clang-tidy
lint        shellcheck          shellcheck
lint        mandoc              mandoc
lint        python3-clang-14    -
bench       python3             python3
bench       valgrind            valgrind
bench       libbenchmark-dev    benchmark/benchmark.h
packages    debhelper           dh
packages    dpkg-dev            dpkg-buildpackage
packages    lintian             lintian
packages    mmdebstrap          mmdebstrap
docs        python3             python3
docs        python3-jinja2      -
browser     chromium            chromium
browser     chromium-driver     chromedriver
browser     python3-selenium    -
libraries   libcjson-dev        cjson/cJSON.h
libraries   libjson-c-dev       json-c/json.h
libraries   rapidjson-dev       rapidjson/document.h
libraries   nlohmann-json3-dev  nlohmann/json.hpp
coverage    gcovr               gcovr
EOT
}

groups=" $* "

mkdir -p build
: >build/missing.txt

say() { echo "install-dependencies: $*" >&2; }

# wanted GROUP
wanted() {
    case $groups in *" $1 "*) return 0 ;; esac
    return 1
}

# packages_of_wanted: PACKAGE PROBE, once each.
packages_of_wanted() {
    table | while read -r group package probe; do
        ! wanted "$group" || echo "$package $probe"
    done | awk '!seen[$1]++'
}

# there PROBE: a command, or a header that the compiler finds.
there() {
    case $1 in
    -) true ;;
    *.h | *.hpp) echo "#include <$1>" | c++ -E -x c++ - >/dev/null 2>&1 ;;
    *) command -v "$1" >/dev/null ;;
    esac
}

# missing: the wanted packages that are not there, on one line.
if command -v dpkg-query >/dev/null && command -v apt-get >/dev/null; then
    debian=true
    missing() {
        packages_of_wanted | cut -d ' ' -f 1 >build/wanted.txt
        # shellcheck disable=SC2046 # names of packages are words
        dpkg-query -W -f '${db:Status-Status} ${Package}\n' $(cat build/wanted.txt) 2>/dev/null |
            sed -n 's/^installed //p' | awk 'NR == FNR { there[$1]; next } !($1 in there)' - build/wanted.txt |
            paste -s -d ' ' -
    }
else
    debian=false
    missing() {
        packages_of_wanted | while read -r package probe; do
            there "$probe" || echo "$package"
        done | paste -s -d ' ' -
    }
fi

# as_root COMMAND...: runs it as root, directly or through sudo without asking for a password.
as_root() {
    if [ "$(id -u)" -eq 0 ]; then
        "$@"
    else
        sudo -n "$@"
    fi
}

apt_install() {
    as_root env DEBIAN_FRONTEND=noninteractive apt-get install -y -q --no-install-recommends "$@" >build/apt.log 2>&1
}

# install PACKAGE...
install() {
    if ! as_root true 2>/dev/null; then
        say "neither root nor a sudo that asks for no password; not installing: $*"
        return
    fi
    say "installing: $*"
    # Known package lists may be old or absent; an old one still serves when the update fails.
    as_root apt-get update -q >build/apt.log 2>&1 || say "apt-get update failed, see build/apt.log"
    apt_install "$@" && return
    say "not all at once, see build/apt.log; one by one"
    for package in "$@"; do
        apt_install "$package" || say "failed: $package, see build/apt.log"
    done
}

# fetch_source PACKAGE[=VERSION]: the source of a package, to build/PACKAGE-source. apt checks its signature; sources, lists
# and caches are temporary, made from the system's own list of sources, so that no system configuration changes.
# shellcheck disable=SC2016 # what apt-get replaces
fetch_source() {
    package=${1%%=*}
    say "fetching the source of $1 for the MIPS builds"
    work=$(mktemp -d) || return 1
    (
        cd "$work" &&
            mkdir -p lists/partial &&
            apt-get indextargets --format 'deb-src $(REPO_URI) $(RELEASE) $(COMPONENT)' \
                'Created-By: Packages' 'Origin: Debian' | sort -u >sources.list &&
            cat >apt.conf <<EOT &&
Dir::Etc::SourceList "$work/sources.list";
Dir::Etc::SourceParts "/dev/null";
Dir::State::Lists "$work/lists";
Dir::Cache::pkgcache "";
Dir::Cache::srcpkgcache "";
EOT
            export APT_CONFIG="$work/apt.conf" &&
            apt-get update -q &&
            apt-get source -q --download-only "$1" &&
            dpkg-source -x "$package"_*.dsc source
    ) >"build/$package-source.log" 2>&1 &&
        rm -rf "build/$package-source" &&
        mv "$work/source" "build/$package-source"
    status=$?
    rm -rf "$work"
    return $status
}

# need_source PACKAGE FILE [VERSION]: fetches the source where its FILE is not there, and says when it cannot be had.
need_source() {
    [ ! -f "build/$1-source/$2" ] || return 0
    if ! $debian || ! there mips-linux-gnu-g++ || ! there dpkg-source || ! fetch_source "$1${3:+=$3}"; then
        say "missing: the source package of $1, from a Debian mirror that carries sources; see build/$1-source.log"
        echo "the source package of $1" >>build/missing.txt
    fi
}

lacking=$(missing)
if [ -n "$lacking" ] && $debian; then
    # shellcheck disable=SC2086 # names of packages are words
    install $lacking
    lacking=$(missing)
fi
for package in $lacking; do
    echo "$package" >>build/missing.txt
done
if [ -n "$lacking" ]; then
    $debian && how="apt-get install $lacking" || how="no Debian system: install the counterparts of $lacking"
    say "missing: $how"
fi
for package in g++ cmake ninja-build libjansson-dev; do
    case " $lacking " in *" $package "*)
        say "cannot build without $package"
        exit 1
        ;;
    esac
done

# Of the JSON library exactly the version that the native build uses; of musl the distribution's.
if wanted mips; then
    need_source jansson CMakeLists.txt "$(dpkg-query -W -f '${source:Version}' libjansson-dev 2>/dev/null)"
    need_source musl configure
fi
[ ! -s build/missing.txt ] || exit 3
