#!/bin/sh
# layout_header_test.sh BUILD CC CXX [OTHER]: the header of static assertions in the folder BUILD holds in every language
# that it is for, and refuses records that are laid out otherwise, saying which. OTHER is the same header of another
# build, for another machine: it is the same text.
set -eu
export LC_ALL=C

build=$1
cc=$2
cxx=$3
root=$(cd "$(dirname "$0")/../.." && pwd)
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
trap 'exit 1' HUP INT TERM
status=0

fail() {
    echo "layout_header_test: $*"
    status=1
}

warnings="-Wall -Wextra -Wpedantic -Wconversion -Wshadow -Wcast-qual -Wundef -Werror"
values=$(sed -n 's/^#define \(KELMORA_[A-Z0-9_]*\) \([0-9][0-9]*\)$/-D\1=\2/p' "$build/kelmora_config.h")
printf '#include "kelmora_layout.h"\n#include "kelmora_layout.h"\nextern int something;\n' >"$work/host.c"
cp "$work/host.c" "$work/host.cpp"
cp -R "$root/include" "$work/include"
cp "$build/kelmora_layout.h" "$work/include"

# compiles COMPILER OPTION...
compiles() {
    # shellcheck disable=SC2086 # options are words
    "$@" $warnings $values -I "$work/include" -fsyntax-only >"$work/log" 2>&1
}

# holds COMPILER OPTION...
holds() {
    compiles "$@" || {
        fail "does not compile: $*"
        cat "$work/log"
    }
}
holds "$cc" -std=c99 "$work/host.c"
holds "$cc" -std=c11 "$work/host.c"
holds "$cxx" -std=c++11 -Wold-style-cast "$work/host.cpp"
holds "$cxx" -std=c++20 -Wold-style-cast "$work/host.cpp"

# refused WHAT SAID COMPILER OPTION...: it does not compile, and the compiler says so.
refused() {
    what=$1
    said=$2
    shift 2
    if compiles "$@"; then
        fail "$what is not refused by $*"
    elif ! grep -q "$said" "$work/log"; then
        fail "$what is refused for something else"
        cat "$work/log"
    fi
}
refused "packing" 'struct kelmora_radio: opMode is not where the plug-in has it' "$cc" -std=c11 -fpack-struct=1 "$work/host.c"
refused "packing" 'struct kelmora_radio: opMode is not where the plug-in has it' "$cxx" -std=c++11 -fpack-struct=1 "$work/host.cpp"
refused "packing" 'kelmora_layout_of_kelmora_radio_field_opMode' "$cc" -std=c99 -fpack-struct=1 "$work/host.c"

# A host whose header has another width, and one that has another order.
sed -i 's/^\( *char ssid\)\[33\]/\1[32]/' "$work/include/records/wireless.h"
refused "another width" 'struct kelmora_wireless: ssid is not where the plug-in has it' "$cc" -std=c11 "$work/host.c"
cp "$root/include/records/wireless.h" "$work/include/records/wireless.h"
holds "$cc" -std=c11 "$work/host.c"
awk '/struct kelmora_telnet \{/ { print; getline first; getline; print; print first; next } { print }' \
    "$root/include/records/device.h" >"$work/include/records/device.h"
refused "another order" 'struct kelmora_telnet: enable is not where the plug-in has it' "$cc" -std=c11 "$work/host.c"

[ -z "${4-}" ] || diff "$4" "$build/kelmora_layout.h" >"$work/log" || {
    fail "is not the same for both machines"
    head "$work/log"
}
exit $status
