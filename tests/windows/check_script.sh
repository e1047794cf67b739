#!/bin/bash
# check_script.sh BUILD SCRIPT
#
# Plays a screen script against the real program and compares what it prints with the script's .expected file. The
# script's comments "# root: FOLDER" and "# options: ..." say on which terminal, and how, the program is started, and
# "# before: COMMAND" what Windows command is run first.
set -u

build=$1
script=$2
home=$(cd "$(dirname "$0")/../.." && pwd)
expected=${script%.script}.expected

root=$(sed -n 's/^# root: *//p' "$script" | head -1)
read -r -a options <<<"$(sed -n 's/^# options: *//p' "$script" | head -1)"
KEL_BEFORE=$(sed -n 's/^# before: *//p' "$script" | head -1)
export KEL_BEFORE
printed=$(mktemp)
trap 'rm -f "$printed"' EXIT

"$home/scripts/wine-script.sh" "$build" "$script" "$home/${root:-examples/terminal}" "${options[@]}" >"$printed"
status=$?
if [ ! -f "$expected" ]; then
  echo "$expected is missing" >&2
  exit 1
fi
if ! diff -u --label expected --label windows "$expected" "$printed"; then
  echo "the real program's side ended with $status" >&2
  exit 1
fi
exit $status
