#!/bin/sh
# What is learned of the resources on the machine that this build is for is what is learned on this machine.
#
#     sh same_contracts_test.sh PROGRAM-OF-THE-RELEASE-BUILD [EMULATOR...] PROGRAM
set -eu

here=$1
shift
if [ ! -x "$here" ]; then
    echo "$here is not there: build the preset release first" >&2
    exit 1
fi

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
"$here" >"$work/here"
"$@" >"$work/there"
[ "$(grep -c '"keys"' "$work/here")" -gt 90 ]
diff "$work/here" "$work/there"
