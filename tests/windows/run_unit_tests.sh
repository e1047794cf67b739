#!/bin/bash
# run_unit_tests.sh BUILD [GOOGLETEST OPTIONS...]
#
# Runs the platform's tests under Wine, in a prefix of their own and an empty folder.
set -u

source "$(dirname "$0")/own_prefix.sh" "$1"
shift

mkdir "$work/root"
"$home/scripts/wine-copy.sh" "$build/wine/base-screenless" "$WINEPREFIX" "$work/root"
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
