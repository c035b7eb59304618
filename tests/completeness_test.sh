#!/bin/sh
# completeness_test.sh LIBRARY NM CC: every row of the resources' list has its unit, its record, its tests, its sample, its
# two declarations and its two exports, and nothing of these is there without a row. The documents name the version of
# the header.
set -eu
export LC_ALL=C

library=$1
nm=$2
cc=$3
root=$(cd "$(dirname "$0")/.." && pwd)
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
trap 'exit 1' HUP INT TERM
status=0

# compare WHAT EXPECTED ACTUAL: two files of names, in any order, are equal.
compare() {
    sort "$2" >"$work/expected"
    sort "$3" >"$work/actual"
    diff "$work/expected" "$work/actual" >"$work/diff" || {
        echo "$1: < is missing, > has no row:"
        grep '^[<>]' "$work/diff"
        status=1
    }
}

cd "$root"
printf '#include "kelmora_resources.h"\n#define ROW(number, name, group, directions) number name group directions;\nKELMORA_RESOURCES(ROW)\n' |
    "$cc" -E -P -I include - | tr ';' '\n' | sed 's/^ *//; /^$/d' >"$work/rows"
[ -s "$work/rows" ] || {
    echo "there are no rows"
    status=1
}

awk '{ print "translators/" $3 "/" $2 ".cpp" }' "$work/rows" >"$work/units"
find translators -name '*.cpp' >"$work/found"
compare "units" "$work/units" "$work/found"

awk '{ print "tests/translators/" $3 "/" $2 "_test.cpp" }' "$work/rows" >"$work/tests"
find tests/translators -name '*.cpp' >"$work/found"
compare "tests of the units" "$work/tests" "$work/found"

while read -r number name group _; do
    grep -q "^struct kelmora_$name {" "include/records/$group.h" || {
        echo "record $number: no struct kelmora_$name in include/records/$group.h"
        status=1
    }
    grep -q "gateway.add(\"$name\"," host/gateway/samples/*.cpp || {
        echo "sample $number: none of $name in host/gateway/samples/"
        status=1
    }
done <"$work/rows"

# The translators among the exports, the declarations of the header, and the registrations.
awk '{ print $2 "_to_translator"; print $2 "_from_translator" }' "$work/rows" >"$work/translators"
"$nm" -D --defined-only "$library" | awk '{ sub(/@.*/, "", $NF); print $NF }' | grep '_translator$' >"$work/found"
compare "exports" "$work/translators" "$work/found"
printf '#include "kelmora_json.h"\n' | "$cc" -E -P -I include - | tr ';' '\n' |
    sed -n 's/.*[ *]\([a-z0-9_]*_translator\) *(.*/\1/p' >"$work/found"
compare "declarations" "$work/translators" "$work/found"
grep '_translator$' abi/exports.txt >"$work/found"
compare "abi/exports.txt" "$work/translators" "$work/found"

version=$(sed -n 's/^#define KELMORA_JSON_VERSION "\(.*\)"$/\1/p' include/kelmora_json.h)
other_versions=$(grep -noE '(libkelmora_json\.so\.|kelmora-(json|json-dev|host)[-_])[0-9][0-9.]*[0-9]' ./*.md bench/README.md docs/*.1 |
    grep -v "[-._]$version\$" || true)
newest=$(sed -n 's/^## \([0-9][0-9.]*\).*/\1/p' CHANGELOG.md | head -n 1)
[ -z "$other_versions" ] || {
    echo "these name another version than $version:"
    echo "$other_versions"
    status=1
}
[ "$newest" = "$version" ] || {
    echo "CHANGELOG.md begins with $newest, not with $version"
    status=1
}
packaged=$(sed -n '1s/^kelmora-json (\(.*\)) .*/\1/p' debian/changelog)
[ "$packaged" = "$version" ] || {
    echo "debian/changelog begins with $packaged, not with $version"
    status=1
}

exit $status
