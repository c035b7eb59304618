#!/bin/sh
# fresh_root_test.sh: installs build/packages/*.deb into a Debian root that has nothing else, uses them there as the README
# says (in_fresh_root.sh), and removes them. The root is made of the machine's own sources of packages and gone afterwards;
# what was fetched stays in build/fresh-root. The exit status is 77 where no root can be made.
set -eu
export LC_ALL=C
cd "$(dirname "$0")/../.."

root=$PWD
work=$root/build/fresh-root
given=$work/given

no_root() {
    echo "fresh_root_test: no Debian root: $*"
    exit 77
}

set -- build/packages/*.deb
[ -f "$1" ] || {
    echo "fresh_root_test: no packages; scripts/make_packages.sh makes them" >&2
    exit 1
}
command -v mmdebstrap >/dev/null || no_root "mmdebstrap is missing"
[ "$(id -u)" -eq 0 ] || unshare --user true 2>/dev/null || no_root "neither root, nor are there user namespaces"

rm -rf "$given"
mkdir -p "$given" "$work/debs"
cp build/packages/*.deb tests/packages/in_fresh_root.sh README.md "$given"
# shellcheck disable=SC2016 # what apt-get replaces
apt-get indextargets --format 'deb $(REPO_URI) $(RELEASE) $(COMPONENT)' 'Created-By: Packages' 'Origin: Debian' |
    sort -u >"$work/sources.list"
[ -s "$work/sources.list" ] || no_root "apt-get knows no source of Debian's packages; apt-get update may help"
# How this machine reaches them, and what it thinks of their dates.
apt-config dump | grep -E '^Acquire::(Check-|Retries|[a-z]+::Proxy)' >"$work/apt.conf" || true

status=0
# shellcheck disable=SC2016 # what the hooks' shell replaces
mmdebstrap --variant=apt --format=null --include=gcc,libc6-dev,pkg-config,cmake,make --aptopt="$work/apt.conf" \
    --skip=essential/unlink \
    --setup-hook='mkdir -p "$1/var/cache/apt/archives"' \
    --setup-hook="sync-in $work/debs /var/cache/apt/archives" \
    --customize-hook="sync-out /var/cache/apt/archives $work/debs" \
    --customize-hook="copy-in $given /" \
    --customize-hook='chroot "$1" sh /given/in_fresh_root.sh' \
    '' /dev/null - <"$work/sources.list" >"$work/log" 2>&1 || status=$?
if [ "$status" -ne 0 ]; then
    cat "$work/log" >&2
    grep -q 'running --customize-hook' "$work/log" || no_root "mmdebstrap fails, see above"
    echo "fresh_root_test: failed" >&2
    exit 1
fi
grep '^fresh_root_test: ' "$work/log"
