#!/bin/bash
# check-tidy.sh BUILD [FILE...]
#
# Runs the checks of .clang-tidy over the product's sources, or those named, as BUILD compiles them.
set -eu
cd "$(dirname "$0")/.."

build=$1
shift
[ $# -gt 0 ] || mapfile -t files < <(find app authoring base config model platform/host rules simulator tools ui values -name '*.cpp' \
  -not -path '*/windows/*' -not -name win_main.cpp | sort)
[ $# -eq 0 ] || files=("$@")
printf '%s\n' "${files[@]}" | xargs -P "$(nproc)" -n 4 clang-tidy-14 -p "$build" --quiet --extra-arg=-Wno-unknown-warning-option --warnings-as-errors='*' \
  2> >(grep -v -E 'warnings? (generated|treated)|^Suppressed|^Use -header' >&2)
