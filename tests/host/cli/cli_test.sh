#!/bin/sh
# End-to-end tests of kelmora-host: cli_test.sh COMMAND..., the words that run it, the program last
# ("build/release/kelmora-host", "qemu-mips -L /usr/mips-linux-gnu build/mips/kelmora-host"). The plug-in lies beside
# the program. Prints what failed; exits 0 when nothing did.
set -u

if [ $# -eq 0 ]; then
    echo "usage: cli_test.sh COMMAND..." >&2
    exit 2
fi

examples=$(cd "$(dirname "$0")/../../../examples" && pwd) || exit 1
resources=$(grep -c '^    ROW(' "$examples/../include/kelmora_resources.h")
version=$(sed -n 's/^#define KELMORA_JSON_VERSION "\(.*\)"$/\1/p' "$examples/../include/kelmora_json.h")
work=$(mktemp -d) || exit 1
trap 'rm -rf "$work"' EXIT

launcher=
program=
for word in "$@"; do
    [ -z "$program" ] || launcher="$launcher '$program'"
    program=$word
done
host() { eval "$launcher '$program'" '"$@"'; }

cases=0
failures=0

# try ARGUMENT...: what the checks below are about. The input is the caller's.
try() {
    cases=$((cases + 1))
    case="kelmora-host $*"
    host "$@" >"$work/out" 2>"$work/err"
    status=$?
}

fail() {
    failures=$((failures + 1))
    printf '%s\n  %s\n' "FAILED: $case" "$1"
    printf '  exit status: %s\n  stdout: %s\n  stderr: %s\n' "$status" "$(cat "$work/out")" "$(cat "$work/err")"
}

status_is() {
    [ "$status" -eq "$1" ] || fail "expected exit status $1"
}

# out_is LINES, err_is LINES: that and an end of line; nothing at all for the empty text.
is() {
    if [ -n "$2" ]; then printf '%s\n' "$2"; fi >"$work/expected"
    cmp -s "$work/$1" "$work/expected" || fail "expected on std$1: $2"
}
out_is() { is out "$1"; }
err_is() { is err "$1"; }

has() {
    grep -qF -e "$2" "$work/$1" || fail "expected somewhere on std$1: $2"
}
out_has() { has out "$1"; }
err_has() { has err "$1"; }

# succeeds OUT, fails_with STATUS ERR: the whole of what the program says.
succeeds() {
    status_is 0
    out_is "$1"
    err_is ""
}
fails_with() {
    status_is "$1"
    out_is ""
    err_is "$2"
}

radio0='{"id": "radio0", "enabled": true, "opMode": 2, "frequency": 1, "configuredChannel": 0, "channel": 6, "extension": 1, "bandwidth": 20, "mu_mimo": false, "beamforming": true, "ofdma": true, "twt": false, "power": 100}'
radio1='{"id": "radio1", "enabled": true, "opMode": 2, "frequency": 2, "configuredChannel": 36, "channel": 36, "extension": 1, "bandwidth": 80, "mu_mimo": true, "beamforming": true, "ofdma": true, "twt": true, "power": 75}'
written='"enabled": true, "opMode": 3, "frequency": 2, "configuredChannel": 100, "channel": 100, "extension": 2, "bandwidth": 160, "mu_mimo": true, "beamforming": false, "ofdma": true, "twt": false, "power": 50}'
survey0='{
                "bandwidth": 20,
                "channel": 11,
                "cipher": 4,
                "crypto": 4,
                "extension": 0,
                "mac": "9c:c7:a6:5e:20:b4",
                "op_mode": 1,
                "signal_level": -45,
                "ssid": "Villa Kunterbunt"
}'

# ---- list

try list
status_is 0
err_is ""
[ "$(wc -l <"$work/out")" -eq $((resources + 2)) ] || fail "expected a header, $resources resources and the totals"
out_has "NUMBER  RESOURCE                          DIRECTIONS  SHOWN AS          GROUP"
out_has "     5  radio                             both        list or object    wireless"
out_has "    20  site_survey                       read-only   list or object    wireless"
out_has "    12  telnet                            write-only  an object         device"
tail -n 1 "$work/out" | grep -q "^$resources pairs registered by libkelmora_json $version: numbers 0 to $((resources - 1))\$" ||
    fail "expected the totals last"

try list --group pon
status_is 0
[ "$(grep -c '  pon$' "$work/out")" -eq 8 ] || fail "expected the eight resources of the group"
tail -n 1 "$work/out" | grep -q "^8 pairs of the group pon registered by libkelmora_json $version: numbers 35 to 38, 40 to 42 and 45\$" ||
    fail "expected the totals of the group last"

try list --group wireless --json
status_is 0
err_is ""
[ "$(wc -l <"$work/out")" -eq 1 ] || fail "expected one line"
out_has '[{"number": 0, "resource": "wireless", "directions": "both", "shape": "list or object", "group": "wireless"}, {"number": 5,'
out_has ' {"number": 20, "resource": "site_survey", "directions": "read-only", "shape": "list or object", "group": "wireless"}, {"number": 22,'

try list --group garden
status_is 2
out_is ""
err_has 'kelmora-host: error: no group "garden"; the groups are device, diagnostics, firewall, ipv6, '

try list --group wirless
fails_with 2 'kelmora-host: error: no group "wirless"; similar: wireless'

# ---- show

try show radio
succeeds "[$radio0, $radio1]"

try show radio --id radio1
succeeds "$radio1"

try show wireless --id wlan0.1
succeeds '{"mode": 1, "enabled": false, "id": "wlan0.1", "ieee_std": 6, "interfaceID": "wlan0.1", "radioID": "radio0", "broadcast": true, "ssid": "Nordlicht Gäste", "bssid": "02:1a:11:f0:3c:03", "cipher": 4, "crypto": 4, "key": "welcome to our house", "wps": false, "isRoot": true, "client_mode_rssi": -80, "guest_network": true}'

try show site_survey --id 0
succeeds "$survey0"

try show radio --id radio9
fails_with 2 'kelmora-host: error: radio has no record of the id "radio9"; similar: radio0 and radio1'

try show radios
fails_with 2 'kelmora-host: error: no resource "radios"; similar: radio'

try show system --id x
fails_with 2 'kelmora-host: error: system has no record of the id "x"; the only one is 0'

try show raido
fails_with 2 'kelmora-host: error: no resource "raido"; similar: radio'

try show radio --json
status_is 2
out_is '{"error": "show has no option \"--json\"; see kelmora-host show --help", "status": 2}'
err_is ""

# ---- try: accepted

try try radio "$examples/radio.json"
succeeds '{"id": "radio0", '"$written"

try try radio --id radio1 "$examples/radio.json"
succeeds '{"id": "radio1", '"$written"

try try radio --id radio1 --json "$examples/radio.json"
succeeds '{"file": "'"$examples"'/radio.json", "resource": "radio", "result": "lossless", "record": {"id": "radio1", '"$written"', "errors": [], "findings": []}'

try try radio --id radio1 <"$examples/radio.json"
succeeds '{"id": "radio1", '"$written"

try try radio - --id radio1 <"$examples/radio.json"
succeeds '{"id": "radio1", '"$written"

printf '%s\n' "$radio1" >"$work/radio1.json"
try try radio "$work/radio1.json"
status_is 0
out_is '{"id": "radio0", '"${radio1#*, }"
err_is "$work/radio1.json:1:2: note: /id: \"id\" is shown, but never taken [read-only]"

try try wireless --id wlan1 "$examples/wireless.json"
succeeds '{"mode": 2, "enabled": true, "id": "wlan1", "ieee_std": 8, "interfaceID": "wlan2", "radioID": "radio1", "broadcast": false, "ssid": "Attic workshop", "bssid": "02:1a:11:f0:3c:02", "cipher": 6, "crypto": 7, "key": "forty-two paper boats", "wps": true, "isRoot": false, "client_mode_rssi": -62, "guest_network": true}'

try try radio /dev/null
status_is 0
out_is "$radio0"
err_is "/dev/null:1:1: warning: an empty document: it is accepted, and nothing is stored [empty]"

echo "no JSON at all" >"$work/plain"
try try site_survey "$work/plain"
status_is 0
out_is "$survey0"
err_is "$work/plain:1:1: warning: site_survey is read-only: nothing of a document is taken [ignored]"

# ---- try: rejected

try try radio "$examples/radio-missing-power.json"
fails_with 1 "$examples/radio-missing-power.json:1:1: error: /power: power field not found (field \"power\", source \"json\") [rejected]"

try try radio --json "$examples/radio-missing-power.json"
status_is 1
out_is '{"file": "'"$examples"'/radio-missing-power.json", "resource": "radio", "result": "rejected", "errors": [{"field": "power", "message": "power field not found", "source": "json", "pointer": "/power", "line": 1, "column": 1}], "findings": []}'
err_is ""

try try radio "$examples/radio-broken.json"
fails_with 1 "$examples/radio-broken.json:7:15: error: invalid json data: '}' expected near '\"extension\"' [syntax]"

try try radio --json "$examples/radio-broken.json"
status_is 1
out_has '"result": "rejected", "errors": [{"field": "", "message": "invalid json data", "source": "json", "pointer": "", "line": 7, "column": 15, "detail": "'
out_has "'}' expected near '\\\"extension\\\"'\"}], \"findings\": []}"
err_is ""

try try radio <"$examples/radio-broken.json"
fails_with 1 "<stdin>:7:15: error: invalid json data: '}' expected near '\"extension\"' [syntax]"

try try radio <"$examples/radio-missing-power.json"
fails_with 1 '<stdin>:1:1: error: /power: power field not found (field "power", source "json") [rejected]'

tr '}' '\0' <"$examples/radio.json" >"$work/nul"
try try radio "$work/nul"
fails_with 1 "$work/nul:14:1: error: NUL byte in the text [rejected]"

printf '{}\0' >"$work/nul"
try try radio --json <"$work/nul"
status_is 1
out_is '{"file": "<stdin>", "resource": "radio", "result": "rejected", "errors": [{"field": "", "message": "NUL byte in the text", "source": "kelmora-host", "pointer": "", "line": 1, "column": 3}], "findings": []}'
err_is ""

# ---- check: nothing lost, something lost, rejected, and the worst of several

try check radio "$examples/radio.json"
succeeds ""

printf '{"enabled": 1,\n "opMode": "7", "frequency": 4294967297, "configuredChannel": 0,\n "chanel": 1, "channel": 1, "extension": 0, "bandwidth": 20, "power": 1}' >"$work/faulty"
try check radio "$work/faulty"
status_is 3
out_is "$work/faulty:1:13: warning: /enabled: an integer where true or false is taken: false is stored [wrong-type]
$work/faulty:2:12: warning: /opMode: a string where an integer is taken: 0 is stored [wrong-type]
$work/faulty:2:30: warning: /frequency: 4294967297 does not fit into 32 unsigned bits: 1 is stored [wrapped]
$work/faulty:3:2: warning: /chanel: no such key; the nearest is \"channel\" [unknown]"
err_is ""

try try radio "$work/faulty"
status_is 0
err_has "[wrapped]"
out_has '{"id": "radio0", "enabled": false, "opMode": 0, "frequency": 1, '

try check radio "$examples/radio.json" "$work/faulty" "$examples/radio-missing-power.json"
status_is 1
out_has "radio-missing-power.json:1:1: error: /power: power field not found"

try check radio "$work/missing.json" "$work/faulty"
status_is 4
out_has "[wrapped]"
err_is "$work/missing.json: error: No such file or directory"

try check radio --json "$examples/radio.json" "$work/missing.json"
status_is 4
out_is '{"file": "'"$examples"'/radio.json", "resource": "radio", "result": "lossless", "errors": [], "findings": []}
{"file": "'"$work"'/missing.json", "error": "No such file or directory", "status": 4}'
err_is ""

cd "$examples/.." || exit 1
try check wireless examples/wireless-lossy.json
status_is 3
out_is "$(sed -n 's/^    \(examples\/wireless-lossy.json:.*\)/\1/p' README.md)"
[ "$(wc -l <"$work/out")" -eq 4 ] || fail "expected the four faults that the README tells of"

printf '{"ssid": "\303\244", "ssid": "\303\244"}' >"$work/twice"
try check wireless --json "$work/twice"
status_is 1
out_has '"findings": [{"code": "repeated", "severity": "warning", "pointer": "/ssid", "line": 1, "column": 2, "sent": "'

try check radio --json --nonsense
status_is 2
out_is '{"error": "check has no option \"--nonsense\"; see kelmora-host check --help", "status": 2}'

# ---- trace

try trace radio "$examples/radio-missing-power.json"
status_is 0
out_has "2:16   /enabled            boolean  true    enabled = true  (bytes 0..0)"
out_has 'error: power field not found (field "power", source "json")'
out_has "rejected; what is stored above stays stored"
err_is ""

try trace radio --json "$examples/radio.json"
status_is 0
out_has '{"pointer": "/power", "line": 13, "column": 14, "found": true, "read_as": ["integer"], "value": 50, "stored": [{"block": "", "field": "power", "offset": 32, "size": 4, "bytes": "'

try trace radio "$examples/radio-broken.json"
status_is 1
err_has "$examples/radio-broken.json:7:15: error: "

# ---- describe, schema and types

try describe radio
status_is 0
out_has 'power              integer  0..4294967295  yes       uint32_t power'
err_is ""

try describe radio --json
status_is 0
out_has '{"resource": "radio", "group": "wireless", "number": 5, "directions": "both", "input": {"keys": [{"path": "/enabled", '

try describe --key global_upload
status_is 0
out_has 'qos input /global_upload: integer, -2147483648..2147483647; upstream rate of the line'

try describe
fails_with 2 'kelmora-host: error: RESOURCE is missing, or --key; see kelmora-host describe --help'

try describe radio --key ssid
status_is 2

try schema radio --direction input
status_is 0
out_has '": "urn:kelmora:radio:input",'

try schema radio
fails_with 2 'kelmora-host: error: --direction must be output, input or accept; see kelmora-host schema --help'

try schema radio --direction both
fails_with 2 'kelmora-host: error: --direction must be output, input or accept; see kelmora-host schema --help'

try schema
fails_with 2 'kelmora-host: error: RESOURCE is missing, or --all; see kelmora-host schema --help'

try schema --all "$work/schemas"
succeeds ""
for direction in output input accept; do
    [ -s "$work/schemas/radio.$direction.schema.json" ] || fail "no schema of radio for $direction"
done
[ ! -e "$work/schemas/telnet.output.schema.json" ] || fail "a schema of what is never written"

try schema --all "$work/faulty/schemas"
status_is 4
err_has "cannot be written"

try types
status_is 0
out_has 'export interface RadioInput {'

# ---- layout

try layout limits --target mips
status_is 0
err_is ""
out_has 'struct kelmora_limits: 32 bytes at multiples of 4 on mips'
out_has '        12      4  wifi_limits    struct kelmora_limits_wifi_limit *'
out_has 'struct kelmora_limits_wifi_limit: 16 bytes at multiples of 4 on mips'

try layout limits --json
status_is 0
out_has '{"resource": "limits", "records": [{"name": "kelmora_limits", "kind": "struct", '
out_has '"size": {"mips": 32, "x86-64": 40}, "alignment": {"mips": 4, "x86-64": 8}, '

try layout
status_is 0
out_has 'struct kelmora_resource: '
out_has 'struct kelmora_wireless: 408 bytes at multiples of 4 on mips, 408 bytes at multiples of 4 on x86-64'

try layout --json
status_is 0
[ "$(grep -o '"resource": ' "$work/out" | wc -l)" -eq "$resources" ] || fail "expected all resources"

try layout --header
status_is 0
err_is ""
out_has 'KELMORA_LAYOUT_FIELD(kelmora_limits, wifi_limits, 12, 4, 16, 8);'

try layout vlan
status_is 2
err_has 'kelmora-host: error: no resource "vlan"'

# No plug-in is needed for it.
try layout radio --plugin /nowhere/x.so
status_is 0

# ---- doctor, where it is built with libelf

try doctor
if grep -q 'built without libelf' "$work/err"; then
    fails_with 4 'kelmora-host: error: this program was built without libelf, which reads such files'
else
    # The plug-in of a build with sanitizers needs what they bring along; what is wrong with it stands at its end.
    if grep -q '^needs          libc.so.6$' "$work/out"; then
        status_is 0
        err_is ""
        out_has "exports        $(grep -c '^[a-z]' "$examples/../abi/exports.txt") functions"
        out_has 'binds          each import at its first call'
        out_has 'writable data  none'
        out_has "version        $version"
        out_has "registers      $resources pairs, in this order"
        out_has '  0 wireless, 1 session, 2 interface, '
        tail -n 1 "$work/out" | grep -q ': nothing is wrong$' || fail "expected that nothing is wrong"

        try doctor --json --host "$program"
        status_is 0
        [ "$(wc -l <"$work/out")" -eq 1 ] || fail "expected one line"
        out_has '"result": "right", "machine": {"name": "'
        out_has "\"registrations\": [{\"number\": 0, \"resource\": \"wireless\"}, {\"number\": 1, \"resource\": \"session\"}, "
        out_has '], "faults": []}'

        try doctor --host /bin/true
        status_is 1
        err_is ""
        out_has 'error: /bin/true does not load jansson, and does not export these of its functions: json_array, '
    fi

    try doctor "$examples/radio.json"
    status_is 1
    err_is ""
    out_is "$examples/radio.json: error: it is no shared object [file]
$examples/radio.json: 1 thing is wrong"

    try doctor --plugin /bin/true --json
    status_is 1
    out_is '{"plugin": "/bin/true", "result": "wrong", "faults": [{"code": "file", "message": "it is a program, no shared object", "symbols": []}]}'
fi

try doctor /nowhere/x.so
fails_with 4 'kelmora-host: error: cannot read /nowhere/x.so: No such file or directory'

# ---- pretty

try show radio --id radio1 --pretty
status_is 0
out_has '  "power": 75'
err_is ""

# ---- resources whose payload is 8 raw bytes

try show backup_restore
succeeds "00 00 00 02 68 4b 11 f0"

try show upgrade_by_file
status_is 0
out_is ""
err_is 'kelmora-host: warning: upgrade_by_file is write-only: there is nothing to show'

printf '\0{\n\377"}\0\1' >"$work/block"
try try backup_restore "$work/block"
succeeds "00 7b 0a ff 22 7d 00 01"

try try backup_restore --json <"$work/block"
succeeds '{"file": "<stdin>", "resource": "backup_restore", "result": "lossless", "record": "00 7b 0a ff 22 7d 00 01", "errors": [], "findings": []}'

try try upgrade_by_file "$work/block"
status_is 0
out_is ""
err_is 'kelmora-host: note: upgrade_by_file is write-only: there is no record to show'

printf '{"a":1}\n\0' >"$work/block"
try try backup_restore "$work/block"
fails_with 1 "$work/block: error: backup_restore takes exactly 8 raw bytes, no JSON; there are 9 [rejected]"

try try upgrade_by_file --json /dev/null
status_is 1
out_is '{"file": "/dev/null", "resource": "upgrade_by_file", "result": "rejected", "errors": [{"field": "", "message": "upgrade_by_file takes exactly 8 raw bytes, no JSON; there are 0", "source": "kelmora-host", "pointer": ""}], "findings": []}'
err_is ""

# ---- the help says which documents are always arrays, and which are always objects

host show --help | tr -s ' \n' ' ' >"$work/help"
# documented BEGIN END: the words between two of the help's, in lines.
documented() {
    sed "s/.*$1//; s/$2.*//; s/ and /,/; s/[ :]//g" "$work/help" | tr ',' '\n' | sort
}

# shown_as WHAT: the resources of which the list says so.
shown_as() {
    host list | awk -v what="$1" 'index($0, what) { print $2 }' | sort
}

case="the help of kelmora-host show"
[ "$(shown_as "always a list")" = "$(documented 'always arrays, also with --id: those of ' '\. Two')" ] ||
    fail "expected these as always arrays: $(shown_as "always a list")"
[ "$(shown_as "always an object")" = "$(documented 'always objects: those of ' '\. backup')" ] ||
    fail "expected these as always objects: $(shown_as "always an object")"

# ---- long lists

awk 'BEGIN { printf "{\"mode\": 1, \"mac_list\": [\"02:00:00:00:00:01\""; for (i = 1; i < 70000; ++i) printf ",\"\""; print "]}" }' \
    >"$work/long"
try try wlan_access_control "$work/long"
status_is 0
err_is ""

# ---- a document that is accepted although something in it is reported

printf '{"enabled": true, "endpoint_id": "e", "periodic_notific_interval": 1, "mtp": [{"enabled": true, "protocol": 7}]}' \
    >"$work/controller.json"
try try tr369_local_agent_controller "$work/controller.json"
status_is 0
out_has '{"enabled": true, "protocol": 7}]}'
err_has "$work/controller.json:1:109: warning: /mtp/0/protocol: invalid protocol (field \"mtp.protocol\", source \"json\") [reported]"
err_has "$work/controller.json:1:78: note: /mtp: 2 entries were there, 1 came, 3 are there now [entries]"

# ---- the command line is wrong

try
fails_with 2 'kelmora-host: error: a command is missing; the commands are list, show, check, try, trace, describe, schema, types, layout, doctor and serve; see kelmora-host --help'

try get radio
fails_with 2 'kelmora-host: error: no command "get"; the commands are list, show, check, try, trace, describe, schema, types, layout, doctor and serve; see kelmora-host --help'

try lst
fails_with 2 'kelmora-host: error: no command "lst"; similar: list; see kelmora-host --help'

try try
fails_with 2 'kelmora-host: error: RESOURCE is missing; see kelmora-host try --help'

try try teapot "$examples/radio.json"
fails_with 2 'kelmora-host: error: no resource "teapot"; kelmora-host list names them all'

try try radio --id radio9 "$work/missing.json"
fails_with 2 'kelmora-host: error: radio has no record of the id "radio9"; similar: radio0 and radio1'

try try radio --id radio0 --id radio1 "$examples/radio.json"
fails_with 2 'kelmora-host: error: --id is given more than once; see kelmora-host try --help'

try try radio "$examples/radio.json" b c
fails_with 2 'kelmora-host: error: 2 arguments too many: "b" and "c"; see kelmora-host try --help'

try show radio --plugin ""
fails_with 2 'kelmora-host: error: the PATH of --plugin is empty; see kelmora-host --help'

# ---- the environment fails

try try radio "$work/missing.json"
fails_with 4 "$work/missing.json: error: No such file or directory"

try try radio "$work"
fails_with 4 "$work: error: Is a directory"

try try radio <"$work"
fails_with 4 "<stdin>: error: Is a directory"

try try radio <&-
fails_with 4 "<stdin>: error: Bad file descriptor"

try try radio "$examples/radio.json" --plugin "$work/missing.so"
fails_with 4 "kelmora-host: error: cannot load $work/missing.so: No such file or directory"

try --plugin "$examples/radio.json" list
fails_with 4 "kelmora-host: error: cannot load $examples/radio.json: it is no shared object"

head -c 20000 "$(dirname "$program")/libkelmora_json.so.$version" >"$work/cut.so"
try --plugin "$work/cut.so" list
status_is 4
out_is ""
err_has "kelmora-host: error: cannot load $work/cut.so: it is cut short: it has 20000 bytes, and its segments take "

# Some shared object that the program can load: its C library, or under an emulator the one of the cross compiler.
other=$(ldd "$program" 2>/dev/null | awk '$1 == "libc.so.6" { print $3 }')
[ -n "$other" ] || other=$(ls /usr/mips-linux-gnu/lib/libc.so.6)
try --plugin "$other" show radio
status_is 4
out_is ""
err_has "libc.so.6 is no libkelmora_json: it does not export kelmora_json_init"

for target in /dev/full -; do
    for arguments in "list" "show radio" "try radio --json $examples/radio.json" "check radio $examples/radio-broken.json" "trace radio $examples/radio.json" "--help" "--version"; do
        cases=$((cases + 1))
        case="kelmora-host $arguments >$target"
        : >"$work/out"
        # shellcheck disable=SC2086 # the arguments are words
        if [ "$target" = - ]; then
            host $arguments >&- 2>"$work/err"
        else
            host $arguments >"$target" 2>"$work/err"
        fi
        status=$?
        status_is 4
        err_is "kelmora-host: error: the output cannot be written"
    done
done

# ---- help and version

try --version
succeeds "kelmora-host $version"

try --help
status_is 0
err_is ""
out_has "Examples:"
out_has "Exit status:"

try try --help
status_is 0
err_is ""
out_has "--id ID"

# ---- no plug-in beside the program

cp "$program" "$work/kelmora-host"
program=$work/kelmora-host
try list
fails_with 4 "kelmora-host: error: cannot load $work/libkelmora_json.so.$version: No such file or directory"

if [ "$failures" -ne 0 ]; then
    echo "$failures checks failed in $cases cases"
    exit 1
fi
echo "$cases cases passed"
