#!/bin/bash
# check-tidy.sh BUILD [FILE...]
#
# Runs the checks of .clang-tidy over the product's sources, or those named, as BUILD compiles them. A build that compiles
# many sources together is gone through several times faster; misc-unused-using-decls then sees nothing.
set -eu -o pipefail
cd "$(dirname "$0")/.."

build=$1
shift
files=("$@")
if [ $# -eq 0 ]; then
  mapfile -t files < <(sed -n 's/^ *"file": "\(.*\)",\{0,1\}$/\1/p' "$build/compile_commands.json" |
    grep -v -E '/(tests|bench)/|cmake_pch' | sort)
fi
if [ ${#files[@]} -eq 0 ]; then
  echo "check-tidy: $build compiles nothing" >&2
  exit 2
fi
printf '%s\n' "${files[@]}" | xargs -P "$(nproc)" -n 1 clang-tidy-14 -p "$build" --quiet \
  --extra-arg=-Wno-unknown-warning-option --warnings-as-errors='*' \
  2> >(grep -v -E 'warnings? (generated|treated)|^Suppressed|^Use -header' >&2)
