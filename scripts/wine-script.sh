#!/bin/bash
# wine-script.sh BUILD SCRIPT ROOT [OPTIONS...]
#
# Plays a UI script against the real program under Wine, on a copy of the terminal's storage ROOT, and prints what the
# script prints. OPTIONS are those of kelterm: --screen WxH and the SOURCE. With KEL_PICTURE=FILE.png the screen at the
# end of the script is saved there. KEL_BEFORE is a Windows command to run first.
#
# Exit status: that of screen_driver; 124 when it took too long; 125 when Wine never ran it.
set -eu

build=$(cd "$1" && pwd)
script=$(realpath "$2")
root=$(cd "$3" && pwd)
shift 3
home=$(cd "$(dirname "$0")/.." && pwd)
picture=${KEL_PICTURE:-}
[ -z "$picture" ] || picture=$(realpath "$picture")

screen=240x320
if [ "${1:-}" = --screen ]; then
  screen=$2
  shift 2
fi
# The size of the screen only tells the two layouts apart, and without a screen there is but one size, a large one.
kind=screenless
if [ -n "$picture" ] || [ "${screen#*x}" -lt 240 ]; then kind=screen; fi

work=$(mktemp -d "${TMPDIR:-/tmp}/kel-wine.XXXXXX")
export WINEPREFIX=$work/prefix WINEDEBUG=-all LC_ALL=C.UTF-8
x_server=
finish() {
  wineserver -k 2>/dev/null || true
  [ -z "$x_server" ] || kill "$x_server" 2>/dev/null || true
  rm -rf "$work"
}
trap finish EXIT

windows_path() { echo "Z:${1//\//\\}"; }

wait_for_file() {
  local tries=0
  until [ -s "$1" ] || [ $((tries += 1)) -gt 1200 ]; do sleep 0.05; done
}

unset DISPLAY
if [ $kind = screen ]; then
  exec 3<>"$work/display"
  Xvfb -wr -displayfd 3 -screen 0 "${screen}x24" -nolisten tcp >/dev/null 2>&1 &
  x_server=$!
  wait_for_file "$work/display"
  DISPLAY=:$(head -1 "$work/display")
  export DISPLAY
fi

cp -a "$root" "$work/root"
KEL_RECORDER=$build/tests/windows/recorder.exe "$home/scripts/wine-copy.sh" "$build/wine/base-$kind" "$WINEPREFIX" \
  "$work/root"

if [ -n "${KEL_BEFORE:-}" ]; then
  read -r -a before <<<"$KEL_BEFORE"
  WINEPATH=$(windows_path "$build/tests/windows") timeout 60 wine "${before[@]}" >/dev/null 2>&1 ||
    echo "wine-script: $KEL_BEFORE failed" >&2
fi

hold=()
if [ -n "$picture" ]; then
  hold=(--hold "$(windows_path "$work/held")")
  {
    wait_for_file "$work/held"
    import -silent -window root "$picture" || true
    rm -f "$work/held"
  } &
  taker=$!
fi

cd "$work/root"
status=0
"$home/scripts/wine-begin.sh" "${KEL_LIMIT:-240}" "$build/simulator/windows/screen_driver.exe" "${hold[@]}" \
  "$(windows_path "$build/app/KelLocalCfg.exe")" "$(windows_path "$script")" "$@" || status=$?
[ -z "$picture" ] || wait "$taker" || true
exit $status
