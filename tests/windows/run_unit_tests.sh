#!/bin/bash
# run_unit_tests.sh BUILD [GOOGLETEST OPTIONS...]
#
# Runs the platform's tests under Wine, in a prefix of their own and an empty folder.
set -u

build=$(cd "$1" && pwd)
shift
home=$(cd "$(dirname "$0")/../.." && pwd)
work=$(mktemp -d "${TMPDIR:-/tmp}/kel-wine.XXXXXX")
export WINEPREFIX=$work/prefix WINEDEBUG=-all LC_ALL=C.UTF-8
unset DISPLAY
finish() {
  wineserver -k 2>/dev/null
  rm -rf "$work"
}
trap finish EXIT

mkdir "$work/root"
"$home/scripts/wine-copy.sh" "$build/wine/base-screenless" "$WINEPREFIX" "$work/root"
windows_path() { echo "Z:${1//\//\\}"; }
KEL_RECORDER=$(windows_path "$build/tests/windows/recorder.exe")
KEL_PROGRAM=$(windows_path "$build/app/KelLocalCfg.exe")
export KEL_RECORDER KEL_PROGRAM
cd "$work/root" || exit 1
timeout 200 wine "$build/tests/windows/windows_test.exe" "$@" >"$work/output"
status=$?
cat "$work/output"
# A program that Wine cannot run ends without a word, and well.
grep -q 'PASSED' "$work/output" || exit 1
exit $status
