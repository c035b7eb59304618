#!/bin/sh
# Shows the plug-in at work in the development host, on the release build and the documents of examples/. Fails when a
# step does not do what is told of it.
set -eu
cd "$(dirname "$0")/.."

if [ ! -x build/release/kelmora-host ]; then
    echo "demo: no build/release/kelmora-host; run: make demo" >&2
    exit 1
fi
PATH=$PWD/build/release:$PATH
resources=$(grep -c '^    ROW(' include/kelmora_resources.h)

# step WORDS COMMAND STATUS TEXT: runs a command, which must exit with the status and print the text.
step() {
    printf '\n%s\n$ %s\n' "$1" "$2"
    status=0
    output=$(eval "$2" 2>&1) || status=$?
    printf '%s\n' "$output"
    [ "$status" -eq 0 ] || echo "(exit status $status)"
    if [ "$status" -ne "$3" ]; then
        echo "demo: this should have ended with status $3" >&2
        exit 1
    fi
    case $output in
    *"$4"*) ;;
    *)
        echo "demo: this should have printed: $4" >&2
        exit 1
        ;;
    esac
}

echo "kelmora-host loads the plug-in as a gateway does, and asks it to translate the records of a sample gateway."

step "The plug-in registers a pair of translators for every resource:" \
    "kelmora-host list | tail -n 1" 0 "$resources pairs registered by libkelmora_json "
step "The Wi-Fi networks, read out as a JSON list:" \
    "kelmora-host show wireless" 0 '[{"mode": 1, "enabled": true, "id": "wlan0", '
step "One of them, as a JSON object:" \
    "kelmora-host show wireless --id wlan0.1" 0 '{"mode": 1, "enabled": false, "id": "wlan0.1", '
step "A radio before it is written to:" \
    "kelmora-host show radio --id radio1" 0 '"power": 75}'
step "A document for it:" \
    "cat examples/radio.json" 0 '"power": 50'
step "The document written into the radio, and the radio read back:" \
    "kelmora-host try radio --id radio1 examples/radio.json" 0 '"power": 50}'
step "The same document without \"power\" is refused; the error is the one that the host was given:" \
    "kelmora-host try radio --id radio1 examples/radio-missing-power.json" 1 \
    'examples/radio-missing-power.json:1:1: error: /power: power field not found (field "power", source "json")'
step "A program asks for the answer as JSON:" \
    "kelmora-host try radio --id radio1 --json examples/radio-missing-power.json" 1 \
    '"result": "rejected", "errors": [{"field": "power", "message": "power field not found", "source": "json", "pointer": "/power", '
step "A text that does not parse is refused with its line and column:" \
    "kelmora-host try radio --id radio1 examples/radio-broken.json" 1 \
    'examples/radio-broken.json:7:15: error: invalid json data'
step "A document that is accepted, but not as it was meant: what is lost, and where:" \
    "kelmora-host check wireless examples/wireless-lossy.json" 3 \
    'examples/wireless-lossy.json:5:13: warning: /ssid: 47 bytes sent, 32 kept [cut]'
step "The same document as the plug-in sees it, step by step:" \
    "kelmora-host trace wireless examples/wireless-lossy.json" 0 '/crypto'

printf '\nA gateway in the browser, over HTTP:\n$ build/release/kelmora-host serve\n'
