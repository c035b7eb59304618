#!/bin/sh
# install_test.sh BUILD LIBDIR INCLUDEDIR PLUGINDIR POINTERS: installs the build tree as a packager would, looks at what
# is there and compiles against it. LIBDIR and INCLUDEDIR are below the prefix, PLUGINDIR is so or absolute; POINTERS is
# the KELMORA_HOST_PRIVATE_POINTERS of the build. CMAKE, CMAKE_GENERATOR and CC in the environment choose the tools.
set -eu
export LC_ALL=C

build=$1
prefix=/opt/gateway
libdir=$prefix/$2
includedir=$prefix/$3
pointers=$5
here=$(cd "$(dirname "$0")" && pwd)
cmake=${CMAKE:-cmake}
cc=${CC:-cc}
stage=$(mktemp -d)
trap 'rm -rf "$stage"' EXIT
trap 'exit 1' HUP INT TERM

# moved_plugindir: where the package says that the plug-in is, once the tree below the prefix was moved.
case $4 in
    /*) plugindir=$4 moved_plugindir=$4 ;;
    *) plugindir=$prefix/$4 moved_plugindir=$stage/root$prefix/$4 ;;
esac

fail() {
    echo "install_test: $*" >&2
    exit 1
}

# equal WHAT EXPECTED ACTUAL
equal() { [ "$2" = "$3" ] || fail "$1 is '$3', not '$2'"; }

DESTDIR=$stage/root "$cmake" --install "$build" --prefix "$prefix" >"$stage/install.log"

sort >"$stage/expected" <<EOT
$plugindir/libkelmora_json.so.1.3.0
$includedir/kelmora_json/kelmora_host.h
$includedir/kelmora_json/kelmora_json.h
$includedir/kelmora_json/kelmora_records.h
$includedir/kelmora_json/kelmora_resources.h
$includedir/kelmora_json/records/device.h
$includedir/kelmora_json/records/diagnostics.h
$includedir/kelmora_json/records/firewall.h
$includedir/kelmora_json/records/ipv6.h
$includedir/kelmora_json/records/pon.h
$includedir/kelmora_json/records/qos.h
$includedir/kelmora_json/records/remote_mgmt.h
$includedir/kelmora_json/records/routing.h
$includedir/kelmora_json/records/wan_lan.h
$includedir/kelmora_json/records/wireless.h
$libdir/pkgconfig/kelmora_json.pc
$libdir/cmake/kelmora_json/kelmora_json-config.cmake
$libdir/cmake/kelmora_json/kelmora_json-config-version.cmake
EOT
(cd "$stage/root" && find . ! -type d) | sed 's/^\.//' | sort >"$stage/installed"
diff -u "$stage/expected" "$stage/installed" || fail "other files were installed than expected (-)"

export PKG_CONFIG_LIBDIR="$stage/root$libdir/pkgconfig"
unset PKG_CONFIG_PATH PKG_CONFIG_SYSROOT_DIR
equal "pkg-config's version" 1.3.0 "$(pkg-config --modversion kelmora_json)"
equal "pkg-config's prefix" "$prefix" "$(pkg-config --variable=prefix kelmora_json)"
equal "pkg-config's libdir" "$libdir" "$(pkg-config --variable=libdir kelmora_json)"
equal "pkg-config's includedir" "$includedir" "$(pkg-config --variable=includedir kelmora_json)"
equal "what pkg-config links" "" "$(pkg-config --libs kelmora_json)"
plugin=$(pkg-config --variable=plugindir kelmora_json)/$(pkg-config --variable=plugin kelmora_json)
[ -f "$stage/root$plugin" ] || fail "pkg-config's plug-in $plugin is not there"

export PKG_CONFIG_SYSROOT_DIR="$stage/root"
# shellcheck disable=SC2046 # the flags are words on purpose
"$cc" $(pkg-config --cflags kelmora_json) -DEXPECTED_POINTERS="$pointers" -Wall -Wextra -Werror \
    -c "$here/consumer/consumer.c" -o "$stage/consumer.o"

if ! {
    "$cmake" -S "$here/consumer" -B "$stage/consumer" -DCMAKE_C_COMPILER="$cc" \
        -Dkelmora_json_DIR="$stage/root$libdir/cmake/kelmora_json" \
        -DEXPECTED_PLUGIN="$moved_plugindir/libkelmora_json.so.1.3.0" -DEXPECTED_POINTERS="$pointers" &&
        "$cmake" --build "$stage/consumer"
} >"$stage/cmake.log" 2>&1; then
    cat "$stage/cmake.log" >&2
    fail "the CMake package cannot be used"
fi
