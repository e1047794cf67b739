#!/bin/bash
# check_imports.sh BUILD
#
# Holds what the program's objects import against the list of functions that Windows CE has.
set -eu

build=$1
home=$(cd "$(dirname "$0")/../.." && pwd)
list=$home/platform/win32/ce_api.txt

objects=()
for floor in base platform config values model rules ui app; do
  while IFS= read -r object; do objects+=("$object"); done < <(find "$build/$floor" -name '*.obj')
done
if [ ${#objects[@]} -lt 50 ]; then
  echo "only ${#objects[@]} objects in $build: it is not built" >&2
  exit 1
fi

imports=$(x86_64-w64-mingw32-nm -u "${objects[@]}" 2>/dev/null | sed -n 's/^ *U __imp_//p' | sort -u)
allowed=$(sed -e '/^#/d' -e 's/ .*//' "$list" | sort -u)
foreign=$(comm -23 <(echo "$imports") <(echo "$allowed"))
if [ -n "$foreign" ]; then
  echo "not in $(basename "$list"): $(echo $foreign)" >&2
  exit 1
fi
