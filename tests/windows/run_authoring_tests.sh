#!/bin/bash
# run_authoring_tests.sh BUILD [GOOGLETEST OPTIONS...]
#
# Runs the tests of what authors use under Wine, in a prefix of their own. Left out are those that take long and ask nothing
# of the system that others do not ask, and names of files that are no text: Windows has none.
set -u

source "$(dirname "$0")/own_prefix.sh" "$1"
shift

mkdir "$work/none"
"$home/scripts/wine-copy.sh" "$build/wine/base-screenless" "$WINEPREFIX" "$work/none"
cd "$home" || exit 1
timeout 250 wine "$build/tests/authoring/authoring_test.exe" --gtest_brief=1 \
  --gtest_filter="-*/SeededFaults.*:Explorer.ReachesAllOfTheDemonstrationThatIsNotImpossible:*FileWhoseNameIsNotUtf8*" \
  "$@" >"$work/output"
status=$?
cat "$work/output"
# A program that Wine cannot run ends without a word, and well.
grep -q 'PASSED' "$work/output" || exit 1
exit $status
