#!/bin/bash
# check_witnesses.sh BUILD SCRIPT
#
# Plays a screen script against the real program while other programs look on: one waits for each event that the script's
# .expected file says is pulsed, and must be woken; those that are started write down how, which must be what that file
# says.
set -u

source "$(dirname "$0")/own_prefix.sh" "$1"
script=$(realpath "$2")
expected=${script%.script}.expected
root=$(sed -n 's/^# root: *//p' "$script" | head -1)

# until_true COMMAND...: false when it does not hold within a minute
until_true() {
  local tries=0
  until "$@"; do
    [ $((tries += 1)) -le 1200 ] || return 1
    sleep 0.05
  done
}
complain() {
  echo "$*" >&2
  failed=yes
}

cp -a "$home/${root:-examples/terminal}" "$work/root"
KEL_RECORDER=$build/tests/windows/recorder.exe "$home/scripts/wine-copy.sh" "$build/wine/base-screenless" "$WINEPREFIX" \
  "$work/root"
cd "$work/root" || exit 1
failed=

mapfile -t events < <(sed -n 's/^pulse //p' "$expected" | sort -u)
for event in "${events[@]}"; do
  timeout 100 wine "$build/tests/windows/event_waiter.exe" "$event" "$(windows_path "$work/$event")" &
  until_true grep -qs waiting "$work/$event" || complain "$event: its waiter did not start"
done

# Their command lines as they stand in the effects: a program in quotes, and what follows it.
sed -n 's/^start "\(.*\)" "\(.*\)" -> 0x00000000$/"\1" \2/p' "$expected" | sed 's/ $//' >"$work/starts"
[ ${#events[@]} -gt 0 ] || [ -s "$work/starts" ] || complain "$script has nothing to see"
KEL_RECORD=$(windows_path "$work/record")
export KEL_RECORD
"$home/scripts/wine-begin.sh" 120 "$build/simulator/windows/screen_driver.exe" "$(windows_path "$build/app/KelLocalCfg.exe")" \
  "$(windows_path "$script")" >"$work/printed" || complain "the script failed"

for event in "${events[@]}"; do
  until_true grep -qs woken "$work/$event" || complain "$event: whoever waits for it was not woken"
done
recorded() {
  [ ! -f "$work/record" ] || iconv -f UTF-16LE -t UTF-8 "$work/record" 2>/dev/null | sed 's/ *$//' | sort
}
all_recorded() { [ "$(recorded)" = "$(sort "$work/starts")" ]; }
until_true all_recorded || complain "started: $(recorded); expected: $(cat "$work/starts")"
[ -z "$failed" ]
