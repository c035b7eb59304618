#!/bin/sh
# The watching host under Valgrind's memcheck: watching_test.sh VALGRIND KELMORA-HOST. Prints what failed; exits 0 when
# nothing did.
set -u
valgrind=$1
host=$2
cd "$(dirname "$0")/../.." || exit 1

failures=0
# watched STATUS ARGUMENT...: what the host is asked, and how it ends.
watched() {
    expected=$1
    shift
    complaints=$("$valgrind" --quiet --error-exitcode=99 --leak-check=full --errors-for-leak-kinds=none "$host" "$@" 2>&1 >/dev/null)
    status=$?
    [ "$status" -eq "$expected" ] || {
        failures=$((failures + 1))
        printf 'FAILED: kelmora-host %s: status %s\n%s\n' "$*" "$status" "$complaints"
    }
}

watched 3 check wireless examples/wireless-lossy.json
watched 0 check tr369_local_agent_controller examples/tr369_local_agent_controller.json
watched 1 check radio examples/radio-missing-power.json examples/radio-broken.json
watched 0 try --json dhcp_server examples/dhcp_server.json
watched 0 try --pretty firewall_url_blocking examples/firewall_url_blocking.json
watched 0 trace easymesh examples/easymesh.json
watched 0 trace --json http_request examples/http_request.json
exit $((failures > 0))
