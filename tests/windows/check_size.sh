#!/bin/bash
# check_size.sh EXECUTABLE
#
# The stripped program fits in 600 KB.
set -eu

stripped=$(mktemp)
trap 'rm -f "$stripped"' EXIT
x86_64-w64-mingw32-strip -o "$stripped" "$1"
size=$(stat -c %s "$stripped")
echo "$size bytes"
[ "$size" -le $((600 * 1024)) ]
