#!/bin/bash
# check_second_instance.sh BUILD
#
# While the program runs, starting it again brings the first one to the front and ends at once, with nothing new on the
# screen.
set -u

build=$(cd "$1" && pwd)
home=$(cd "$(dirname "$0")/../.." && pwd)
work=$(mktemp -d "${TMPDIR:-/tmp}/kel-wine.XXXXXX")
export WINEPREFIX=$work/prefix WINEDEBUG=-all LC_ALL=C.UTF-8
unset DISPLAY
finish() {
  wineserver -k 2>/dev/null
  rm -rf "$work"
}
trap finish EXIT
windows_path() { echo "Z:${1//\//\\}"; }

cp -a "$home/tests/windows/cases/roots/one" "$work/root"
"$home/scripts/wine-copy.sh" "$build/wine/base-screenless" "$WINEPREFIX" "$work/root"
cd "$work/root" || exit 1
program=$(windows_path "$build/app/KelLocalCfg.exe")
driver=$build/simulator/windows/screen_driver.exe
printf 'wait\n' >"$work/first.script"
printf 'dump\neffects\n' >"$work/second.script"

timeout 100 wine "$driver" --hold "$(windows_path "$work/held")" "$program" "$(windows_path "$work/first.script")" &
first=$!
tries=0
until [ -s "$work/held" ] || [ $((tries += 1)) -gt 600 ]; do sleep 0.05; done
timeout 60 wine "$driver" "$program" "$(windows_path "$work/second.script")" >"$work/printed"
status=$?
rm -f "$work/held"
wait $first || exit 1
cat "$work/printed"
[ $status -eq 0 ] && [ "$(cat "$work/printed")" = "exit 0" ]
