#!/bin/sh
# make_contract_files.sh [--check]: makes schemas/ and types/ from the plug-in; with --check says instead what in them
# is not as the plug-in has it, and fails if anything is.
set -eu
cd "$(dirname "$0")/.."

host=build/release/kelmora-host
[ -x "$host" ] || {
    echo "make_contract_files.sh: $host is not built" >&2
    exit 2
}

made=$(mktemp -d)
trap 'rm -rf "$made"' EXIT
mkdir "$made/schemas" "$made/types"
"$host" schema --all "$made/schemas"
"$host" types >"$made/types/kelmora.d.ts"

if [ "${1:-}" = --check ]; then
    if diff -ru schemas "$made/schemas" && diff -u types/kelmora.d.ts "$made/types/kelmora.d.ts"; then
        exit 0
    fi
    echo "schemas/ or types/ is not as the plug-in has it: make it anew with scripts/make_contract_files.sh" >&2
    exit 1
fi

mkdir -p schemas types
rm -f schemas/*.schema.json
cp "$made"/schemas/* schemas/
cp "$made/types/kelmora.d.ts" types/
