#!/bin/sh
# Installs what building, testing and linting need, and fetches the JSON library's source for the MIPS build.
# Debian 12 or a relative of it, as root or through sudo. Silent when everything is there already.
#
# Exit status: 0 when everything is there, 1 when a native build is impossible, 3 when only optional parts are
# missing (what and how to get it is said on stderr, and written to build/missing.txt for `make check` to repeat).
set -u
cd "$(dirname "$0")/.." || exit 1

required="g++ cmake ninja-build pkg-config binutils libjansson-dev googletest libcli11-dev libfmt-dev rapidjson-dev"
optional="ccache clang clang-format clang-tidy libclang-rt-14-dev llvm g++-mips-linux-gnu qemu-user dpkg-dev gcovr python3 locales mandoc"
optional="$optional python3-clang-14" # for scripts/generate_fields.py
optional="$optional valgrind libbenchmark-dev libcjson-dev libjson-c-dev nlohmann-json3-dev" # for bench/
jansson_source=build/jansson-source

mkdir -p build
: >build/missing.txt

say() { echo "install-dependencies: $*" >&2; }

# leave_out WHAT HOW: an optional part that could not be had.
leave_out() {
    say "cannot get $1; $2"
    echo "$1 ($2)" >>build/missing.txt
}

installed() { dpkg-query -W -f '${Status}' "$1" 2>/dev/null | grep -q 'ok installed'; }

missing_of() {
    for package in "$@"; do
        installed "$package" || printf '%s ' "$package"
    done
}

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

install_packages() {
    # shellcheck disable=SC2086 # the lists are words on purpose
    missing=$(missing_of $required $optional)
    [ -n "$missing" ] || return 0
    if ! as_root true 2>/dev/null; then
        say "neither root nor a sudo that asks for no password; not installing: $missing"
        return 0
    fi
    say "installing: $missing"
    # Known package lists may be old or absent; a stale one still serves when the update fails.
    as_root apt-get update -q >build/apt.log 2>&1 || say "apt-get update failed, see build/apt.log"
    # shellcheck disable=SC2086
    apt_install $missing && return 0
    say "not all at once, see build/apt.log; one by one"
    for package in $missing; do
        apt_install "$package" || say "failed: $package, see build/apt.log"
    done
}

# The source package of exactly the version that the native build uses. apt checks its signature; sources, lists and
# caches are temporary, made from the system's own list of sources, so that no system configuration changes.
fetch_jansson_source() {
    [ -f "$jansson_source/CMakeLists.txt" ] && return 0
    version=$(dpkg-query -W -f '${source:Version}' libjansson-dev) || return 1
    say "fetching the source of jansson $version for the MIPS build"
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
            apt-get source -q --download-only "jansson=$version" &&
            dpkg-source -x jansson_*.dsc source
    ) >build/jansson-source.log 2>&1 &&
        rm -rf "$jansson_source" &&
        mv "$work/source" "$jansson_source"
    status=$?
    rm -rf "$work"
    return $status
}

if command -v dpkg-query >/dev/null && command -v apt-get >/dev/null; then
    install_packages
    # shellcheck disable=SC2086
    lacking=$(missing_of $required)
    if [ -n "$lacking" ]; then
        say "cannot build without: $lacking"
        exit 1
    fi
    for package in $optional; do
        installed "$package" || leave_out "$package" "apt-get install $package"
    done
    if installed g++-mips-linux-gnu && installed dpkg-dev; then
        fetch_jansson_source || leave_out "the source package of jansson" \
            "needs the network and a Debian mirror that carries sources; see build/jansson-source.log"
    fi
else
    say "this is no Debian system; nothing was installed"
    leave_out "Debian's packages" "install the counterparts of: $required $optional"
fi
[ ! -s build/missing.txt ] || exit 3
