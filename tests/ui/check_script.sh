#!/bin/bash
# check_script.sh KELTERM SCRIPT [--update]
#
# Plays a screen script in the simulated terminal and compares what it prints with the script's .expected file, or
# writes that file with --update. The script's comments "# root: FOLDER" and "# options: ..." say on which terminal, a
# fresh copy of it, and how the program is started, "# status: N" that the simulated terminal is to end with another
# status than 0, and "# says: TEXT" what it then says on standard error.
set -u

kelterm=$1
script=$2
home=$(cd "$(dirname "$0")/../.." && pwd)
expected=${script%.script}.expected

root=$(sed -n 's/^# root: *//p' "$script" | head -1)
read -r -a options <<<"$(sed -n 's/^# options: *//p' "$script" | head -1)"
work=$(mktemp -d "${TMPDIR:-/tmp}/kel-ui.XXXXXX")
trap 'rm -rf "$work"' EXIT
cp -a "$home/${root:-examples/terminal}" "$work/terminal" || exit 1

timeout "${KEL_LIMIT:-120}" "$kelterm" --root "$work/terminal" --script "$script" "${options[@]}" \
  >"$work/printed" 2>"$work/said"
status=$?
cat "$work/said" >&2
if [ $status = "$(sed -n 's/^# status: *//p' "$script")" ] &&
  diff -u --label wanted --label said <(sed -n 's/^# says: //p' "$script") "$work/said" >&2; then
  status=0
fi
if [ "${3:-}" = --update ]; then
  cp "$work/printed" "$expected"
  exit $status
fi
if [ ! -f "$expected" ]; then
  echo "$expected is missing; scripts/update-expected writes it" >&2
  exit 1
fi
diff -u --label expected --label printed "$expected" "$work/printed" || exit 1
exit $status
