#!/bin/bash
# check-format.sh [--fix]
#
# Names the sources that .clang-format would change, and fails when there are any; with --fix it changes them.
set -eu
cd "$(dirname "$0")/.."

mode=(--dry-run --Werror)
[ "${1:-}" != --fix ] || mode=(-i)
find app authoring base bench config model platform rules simulator snmp tests tools ui values -name '*.h' -o -name '*.cpp' | sort |
  xargs clang-format-14 "${mode[@]}"
