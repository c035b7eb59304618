#!/bin/sh
# abi_test.sh LIBRARY NM READELF CC: holds the shared object to its interface, as abi/ and the public header state it.
# NM, READELF and CC are those for the machine that LIBRARY was built for.
set -eu
export LC_ALL=C

library=$1
nm=$2
readelf=$3
cc=$4
root=$(cd "$(dirname "$0")/../.." && pwd)
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
trap 'exit 1' HUP INT TERM
status=0

# fail WHAT [DETAILS]: one finding.
fail() {
    echo "$library: $1"
    [ -z "${2-}" ] || echo "$2" | sed 's/^/    /'
    status=1
}

# list FILE: the sorted names of a list in abi/.
list() { sed '/^#/d; /^$/d' "$root/abi/$1" | sort; }

# compare WHAT EXPECTED ACTUAL: two sorted files of names are equal.
compare() {
    difference=$(comm -23 "$2" "$3" | sed 's/^/missing: /' && comm -13 "$2" "$3" | sed 's/^/surplus: /')
    [ -z "$difference" ] || fail "$1" "$difference"
}

list exports.txt >"$work/exports"
list imports.txt >"$work/imports"

"$nm" -D --defined-only "$library" >"$work/nm"
awk '{ sub(/@.*/, "", $NF); print $NF }' "$work/nm" | sort >"$work/defined"
compare "exports other symbols than abi/exports.txt says" "$work/exports" "$work/defined"

# Each visible declaration starts a line of its own; its name is what stands in front of the first parenthesis.
"$cc" -E -I "$root/include" "$root/include/kelmora_json.h" >"$work/header"
grep -v '^#' "$work/header" | tr '\n' ' ' |
    awk '{ gsub(/__attribute__ *\(\(visibility *\("default"\)\)\)/, "\n"); print }' |
    sed -n '1d; s/^[^(;]*[^A-Za-z0-9_(;]\([A-Za-z_][A-Za-z0-9_]*\) *(.*/\1/p' | sort >"$work/declared"
compare "the public header declares other functions than abi/exports.txt says" "$work/exports" "$work/declared"

"$nm" -D --undefined-only "$library" >"$work/nm"
awk '{ sub(/@.*/, "", $NF); print $NF }' "$work/nm" | sort >"$work/undefined"
surplus=$(comm -13 "$work/imports" "$work/undefined")
[ -z "$surplus" ] || fail "imports symbols that abi/imports.txt does not allow" "$surplus"

"$readelf" -W -d "$library" >"$work/dynamic"
needed=$(sed -n 's/.*(NEEDED).*\[\(.*\)\].*/\1/p' "$work/dynamic")
case $needed in
    libc.so.6 | libc.so) ;; # glibc's, or musl's
    *) fail "needs other libraries than libc alone" "$needed" ;;
esac
tags=$(grep -E '\(TEXTREL\)|\(FLAGS\).*TEXTREL' "$work/dynamic" || true)
[ -z "$tags" ] || fail "has relocations in its code" "$tags"
tags=$(grep -E '\(BIND_NOW\)|\(FLAGS\).*BIND_NOW|\(FLAGS_1\).*NOW' "$work/dynamic" || true)
[ -z "$tags" ] || fail "binds all its imports when it is loaded" "$tags"

# An import is bound at its first call when a jump slot (x86-64) or a stub (MIPS: the symbol has an address) stands for
# it. A relocation of any other kind is resolved, or fails, when the library is loaded.
"$readelf" -W -r "$library" >"$work/relocations"
"$readelf" -W --dyn-syms "$library" >"$work/symbols"
{
    awk '$3 ~ /_JUMP_SLOT?$/ { sub(/@.*/, "", $5); print $5 }' "$work/relocations"
    awk '$7 == "UND" && $2 ~ /[1-9a-f]/ { sub(/@.*/, "", $8); print $8 }' "$work/symbols"
} | sort >"$work/lazy"
eager=$(comm -23 "$work/undefined" "$work/lazy")
[ -z "$eager" ] || fail "does not leave these imports to their first call" "$eager"
eager=$(awk '$3 ~ /^R_/ && $3 !~ /_JUMP_SLOT?$/ { print $3, $5 }' "$work/relocations")
[ -z "$eager" ] || fail "has relocations to resolve when it is loaded" "$eager"

# The sections that may be written to are the loader's.
"$readelf" -W -S "$library" >"$work/readelf"
sed -n 's/^ *\[ *[0-9]*\] *//p' "$work/readelf" | awk '$7 ~ /^[A-Za-z]+$/ { print $1, $7 }' >"$work/sections"
grep -q '^\.text AX' "$work/sections" || fail "has no section for code"
writable=$(awk '$2 ~ /W/ && $1 !~ /^\.(dynamic|got|got\.plt|rld_map)$/ { print $1 }' "$work/sections")
[ -z "$writable" ] || fail "has writable data of its own" "$writable"

"$readelf" -W -l "$library" >"$work/segments"
stack=$(awk '$1 == "GNU_STACK" { print $7 }' "$work/segments")
[ "$stack" = RW ] || fail "does not ask for a stack that is not executable" "GNU_STACK ${stack:-missing}"

exit $status
