#!/bin/sh
# Makes the reference of all resources, in build/docs.
set -eu
cd "$(dirname "$0")/.."

exec /usr/bin/python3 -B scripts/make_docs.py build/release/kelmora-host build/docs
