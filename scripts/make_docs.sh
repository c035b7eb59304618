#!/bin/sh
# Makes the reference of all resources, in build/docs; with the target's offsets where its program is built and can run.
set -eu
cd "$(dirname "$0")/.."

if [ -x build/mips/kelmora-host ] && command -v qemu-mips >/dev/null; then
    exec /usr/bin/python3 -B scripts/make_docs.py build/release/kelmora-host build/docs \
        --mips-host 'qemu-mips -L /usr/mips-linux-gnu build/mips/kelmora-host'
fi
exec /usr/bin/python3 -B scripts/make_docs.py build/release/kelmora-host build/docs
