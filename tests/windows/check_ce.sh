#!/bin/bash
# check_ce.sh
#
# Compiles what is written for Windows CE, as far as a PC's compiler and headers can: the branches behind UNDER_CE must be
# right, and what the platform's layer then imports must be functions that Windows CE has, with none of their desktop twins.
set -eu

home=$(cd "$(dirname "$0")/../.." && pwd)
list=$home/platform/win32/ce_api.txt
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

for source in "$home"/platform/win32/*.cpp; do
  i686-w64-mingw32-g++-posix -std=c++20 -O0 -msse2 -Wall -Wextra -Wshadow -Werror -DUNDER_CE -DUNICODE -D_UNICODE \
    -I"$home" -include "$home/tests/windows/ce_calls.h" -c "$source" -o "$work/$(basename "$source").obj"
done

# In a line of two names the second is the one of Windows CE.
allowed=$(sed -e '/^#/d' -e 's/^[^ ]* \+//' "$list" | sort -u)
imports=$(i686-w64-mingw32-nm -u "$work"/*.obj 2>/dev/null | sed -nE 's/^ *U __imp__([A-Za-z0-9]+)(@[0-9]+)?$/\1/p' | sort -u)
if ! grep -qx EventModify <<<"$imports"; then
  echo "the imports of Windows CE do not show" >&2
  exit 1
fi
foreign=$(comm -23 <(echo "$imports") <(echo "$allowed"))
if [ -n "$foreign" ]; then
  echo "not in $(basename "$list") for Windows CE: $(echo $foreign)" >&2
  exit 1
fi
