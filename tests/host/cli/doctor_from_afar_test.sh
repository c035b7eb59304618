#!/bin/sh
# This machine's program looks at a plug-in for another machine, without loading it: it is right, and the program says
# which machine it is for.
#
#     sh doctor_from_afar_test.sh PROGRAM-OF-THE-RELEASE-BUILD PLUGIN
set -eu

if [ ! -x "$1" ]; then
    echo "$1 is not there: build the preset release first" >&2
    exit 1
fi

"$1" doctor "$2" >"$2.examined" || {
    cat "$2.examined" >&2
    exit 1
}
grep -q '^machine        32-bit big-endian MIPS$' "$2.examined"
grep -q '^needs          libc.so' "$2.examined"
grep -q "^exports        $(grep -c '^[a-z]' "$(dirname "$0")/../../../abi/exports.txt") functions\$" "$2.examined"
grep -q '^It is for 32-bit big-endian MIPS, so it is not loaded here; run kelmora-selftest there.$' "$2.examined"
grep -q ': nothing is wrong$' "$2.examined"

# A program for another machine is no host of it.
status=0
"$1" doctor "$2" --host "$1" >"$2.examined" || status=$?
[ "$status" -eq 1 ]
grep -q "error: $1 is for .*, and supplies nothing \[host\]" "$2.examined"
rm "$2.examined"
