#!/bin/sh
# install_test.sh BUILD LIBDIR INCLUDEDIR PLUGINDIR POINTERS: installs the build tree as a packager would, looks at what
# is there, and builds and runs against it. LIBDIR and INCLUDEDIR are below the prefix, PLUGINDIR is so or absolute;
# POINTERS is the KELMORA_HOST_PRIVATE_POINTERS of the build. CMAKE, CMAKE_GENERATOR, CC, WARNINGS (compiler options) and
# JANSSON_LIBRARY (a file) come from the environment.
set -eu
export LC_ALL=C

build=$1
prefix=/opt/gateway
libdir=$prefix/$2
includedir=$prefix/$3
pointers=$5
here=$(cd "$(dirname "$0")" && pwd)
root=$(cd "$here/../.." && pwd)
cmake=${CMAKE:-cmake}
version=$(sed -n 's/^#define KELMORA_JSON_VERSION "\(.*\)"$/\1/p' "$root/include/kelmora_json.h")
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

{
    (cd "$root/include" && find . -name '*.h') | sed "s|^\.|$includedir/kelmora_json|"
    cat <<EOT
$includedir/kelmora_json/kelmora_layout.h
$plugindir/libkelmora_json.so.$version
$libdir/pkgconfig/kelmora_json.pc
$libdir/cmake/kelmora_json/kelmora_json-config.cmake
$libdir/cmake/kelmora_json/kelmora_json-config-version.cmake
EOT
    for program in kelmora-host kelmora-selftest; do
        [ ! -f "$build/$program" ] || echo "$prefix/bin/$program"
        echo "$prefix/share/man/man1/$program.1"
    done
    (cd "$root" && find schemas types -type f) | sed "s|^|$prefix/share/kelmora_json/|"
    [ ! -d "$root/build/docs" ] ||
        (cd "$root/build/docs" && find . -type f) | sed "s|^\.|$prefix/share/doc/kelmora_json/reference|"
} | sort >"$stage/expected"
(cd "$stage/root" && find . ! -type d) | sed 's/^\.//' | sort >"$stage/installed"
diff -u "$stage/expected" "$stage/installed" || fail "other files were installed than expected (-)"

export PKG_CONFIG_LIBDIR="$stage/root$libdir/pkgconfig"
unset PKG_CONFIG_PATH PKG_CONFIG_SYSROOT_DIR
equal "pkg-config's version" "$version" "$(pkg-config --modversion kelmora_json)"
equal "pkg-config's prefix" "$prefix" "$(pkg-config --variable=prefix kelmora_json)"
equal "pkg-config's libdir" "$libdir" "$(pkg-config --variable=libdir kelmora_json)"
equal "pkg-config's includedir" "$includedir" "$(pkg-config --variable=includedir kelmora_json)"
plugin=$(pkg-config --variable=plugindir kelmora_json)/$(pkg-config --variable=plugin kelmora_json)
[ -f "$stage/root$plugin" ] || fail "pkg-config's plug-in $plugin is not there"

export PKG_CONFIG_SYSROOT_DIR="$stage/root"
# shellcheck disable=SC2046,SC2086 # options are words
"$CC" $(pkg-config --cflags kelmora_json) -DEXPECTED_POINTERS="$pointers" $WARNINGS \
    -c "$here/consumer/consumer.c" -o "$stage/consumer.o"

if ! {
    "$cmake" -S "$here/consumer" -B "$stage/consumer" -DCMAKE_C_COMPILER="$CC" -DCMAKE_C_FLAGS="$WARNINGS" \
        -Dkelmora_json_DIR="$stage/root$libdir/cmake/kelmora_json" -DCMAKE_LIBRARY_PATH="$(dirname "$JANSSON_LIBRARY")" \
        -DEXPECTED_VERSION="$version" -DEXPECTED_PLUGIN="$moved_plugindir/libkelmora_json.so.$version" \
        -DEXPECTED_POINTERS="$pointers" -DHOST="$root/examples/host.c" &&
        "$cmake" --build "$stage/consumer"
} >"$stage/cmake.log" 2>&1; then
    cat "$stage/cmake.log" >&2
    fail "the CMake package cannot be used"
fi
"$stage/consumer/host" "$stage/root$plugin" "$root/examples" >"$stage/host.out" || fail "the host that CMake built failed"

# jansson_of_another_machine OPTION...: the one that the package takes in a build for another machine.
mkdir "$stage/another"
cat >"$stage/another/CMakeLists.txt" <<'EOT'
cmake_minimum_required(VERSION 3.25)
project(another LANGUAGES C)
find_package(kelmora_json REQUIRED)
message("jansson: ${kelmora_json_JANSSON}")
EOT
jansson_of_another_machine() {
    rm -rf "$stage/another/build"
    "$cmake" -S "$stage/another" -B "$stage/another/build" -DCMAKE_SYSTEM_NAME=Linux -DCMAKE_C_COMPILER="$CC" \
        -Dkelmora_json_DIR="$stage/root$libdir/cmake/kelmora_json" "$@" 2>&1 | sed -n 's/^jansson: //p'
}
equal "jansson of another machine" kelmora_json_JANSSON-NOTFOUND "$(jansson_of_another_machine)"
equal "jansson that is named" "$JANSSON_LIBRARY" \
    "$(jansson_of_another_machine -DCMAKE_LIBRARY_PATH="$(dirname "$JANSSON_LIBRARY")")"

# The installed program finds the plug-in that was installed with it, wherever the tree below the prefix is.
host=$stage/root$prefix/bin/kelmora-host
if [ -f "$host" ] && [ "$plugindir" != "$4" ]; then
    "$host" list >"$stage/list" || fail "the installed kelmora-host does not run"
    grep -q " registered by libkelmora_json $version" "$stage/list" || fail "the installed kelmora-host lists nothing"

    # It tells a host that has what the plug-in imports from one whose linker left jansson out.
    status=0
    "$host" doctor --host "$stage/consumer/host" >"$stage/doctor" 2>&1 || status=$?
    if ! grep -q 'built without libelf' "$stage/doctor"; then
        [ "$status" -eq 0 ] || { cat "$stage/doctor" >&2 && fail "the doctor refuses the host that CMake built"; }
        # shellcheck disable=SC2046 # options are words
        "$CC" $(pkg-config --cflags kelmora_json) "$root/examples/host.c" -o "$stage/lacking" -Wl,--export-dynamic -ldl
        if "$host" doctor --host "$stage/lacking" >"$stage/doctor"; then fail "the doctor takes a host without jansson"; fi
        grep -q 'lacking does not load jansson, and does not export these of its functions: json_array, ' "$stage/doctor" ||
            fail "the doctor does not say that jansson is missing"
        if grep -q "of the host's functions" "$stage/doctor"; then fail "the doctor misses functions that are there"; fi
    fi
fi
