#!/bin/sh
# in_fresh_root.sh: what fresh_root_test.sh does inside the root. Beside it are the packages and the README, of which the
# commands are taken as they stand there.
set -eu
export LC_ALL=C DEBIAN_FRONTEND=noninteractive
cd "$(dirname "$0")"

given=$PWD
examples=/usr/share/doc/kelmora-host/examples
version=$(dpkg-deb -f kelmora-json_*.deb Version)

fail() {
    echo "fresh_root_test: $*" >&2
    exit 1
}

# ends STATUS COMMAND...: the command ends with that status.
ends() {
    expected=$1
    shift
    status=0
    "$@" >said 2>&1 || status=$?
    [ "$status" -eq "$expected" ] || { cat said >&2 && fail "$* ends with $status, not with $expected"; }
}

# said TEXT: the last command did.
said() { grep -qF -- "$1" said || { cat said >&2 && fail "nothing is said of: $1"; }; }

# ---- installing

dpkg-query -W -f '${Package}\n' | sort >packages_before
apt-get install -q -y --no-install-recommends ./*.deb
[ "$(dpkg-query -W -f '${db:Status-Status} ' 'kelmora-*')" = "installed installed installed " ] || fail "not installed"
dpkg -V kelmora-host kelmora-json kelmora-json-dev

# ---- loading it into a host, as the README says

# shellcheck disable=SC2016 # what stands there
compile=$(sed -n 's/.*`\(cc $(pkg-config --cflags [^`]*\)`.*/\1/p' README.md)
find_package=$(sed -n 's/^    \(find_package(kelmora_json .*)\)$/\1/p' README.md)
link=$(sed -n 's/^    \(target_link_libraries(my-host .*)\)$/\1/p' README.md)
for found in "$compile" "$find_package" "$link"; do
    [ -n "$found" ] || fail "the README does not say how to build a host"
done

mkdir my-host
cp /usr/share/doc/kelmora-json-dev/examples/host.c my-host/
(cd my-host && eval "$compile")
cat >my-host/CMakeLists.txt <<EOT
cmake_minimum_required(VERSION 3.16)
project(my-host C)
$find_package
add_executable(my-host host.c)
$link
file(WRITE \${CMAKE_BINARY_DIR}/plugin "\${kelmora_json_PLUGIN}")
EOT
cmake -S my-host -B my-host/build
cmake --build my-host/build

# serves PROGRAM PLUGIN: it serves every resource.
rows=$(grep -c '^    ROW(' /usr/include/kelmora_json/kelmora_resources.h)
serves() {
    ends 0 "$1" "$2" "$examples"
    said '"ssid": "Attic workshop"'
    served=$(grep -cE '^[0-9]+ [a-z0-9_]+$' said)
    [ "$served" -eq "$rows" ] || fail "$1 serves $served resources, not $rows"
}
plugin=$(pkg-config --variable=plugindir kelmora_json)/$(pkg-config --variable=plugin kelmora_json)
serves my-host/a.out "$plugin"
serves my-host/build/my-host "$(cat my-host/build/plugin)"

# ---- the programs

ends 0 kelmora-host list
said " registered by libkelmora_json $version"
ends 0 kelmora-host check radio "$examples/radio.json"
ends 3 kelmora-host check wireless "$examples/wireless-lossy.json"
said "47 bytes sent, 32 kept [cut]"
ends 0 kelmora-host doctor
ends 0 kelmora-host doctor "$plugin" --host my-host/a.out
ends 0 kelmora-selftest "$plugin"
said " passed, 0 failed"

kelmora-host serve --port 0 >url 2>served &
server=$!
trap 'kill $server' EXIT
tries=50
until grep -q 'http://' url; do
    tries=$((tries - 1))
    [ $tries -gt 0 ] || fail "the server does not tell its URL: $(cat url served)"
    sleep 0.2
done
url=$(grep -o 'http://127\.0\.0\.1:[0-9]*' url)
# fetched PATH TEXT: the server has a file with that text there.
fetched() {
    /usr/lib/apt/apt-helper -o APT::Sandbox::User=root -o Acquire::http::Proxy=DIRECT download-file "$url$1" fetched
    grep -qF -- "$2" fetched || fail "no $2 at $1"
    rm fetched
}
fetched / '<title>'
fetched /page/codemirror/lib/codemirror.js 'CodeMirror'
fetched /docs/index.html 'libkelmora_json: resources'
fetched /docs/resources/radio.html 'opMode'
kill $server
trap - EXIT

# ---- removing

apt-get purge -q -y kelmora-host kelmora-json kelmora-json-dev
apt-get autoremove -q -y --purge
dpkg-query -W -f '${Package}\n' | sort >packages_after
diff packages_before packages_after || fail "other packages are there than before (<)"
left=$(find / -xdev -path "$given" -prune -o -path /proc -prune -o -path /sys -prune -o -iname '*kelmora*' -print)
[ -z "$left" ] || fail "what purging left: $left"

echo "fresh_root_test: installed, used and purged"
