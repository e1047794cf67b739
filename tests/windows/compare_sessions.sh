#!/bin/bash
# compare_sessions.sh BUILD KELTERM [COUNT [FIRST_SEED [KEYS]]]
#
# Plays sessions of random keys on the demonstration terminal, in the simulated terminal and in the real program, and
# compares what both print and how they end. COUNT is 100 unless KEL_SESSIONS or the argument says otherwise. A session
# that runs out of time says so and is played again alone, with five times as much of it. The last lines name the seeds
# that differ and those that took too long even so; random_session.py makes their scripts again.
set -u

build=$(cd "$1" && pwd)
kelterm=$2
count=${3:-${KEL_SESSIONS:-100}}
first=${4:-1}
keys=${5:-40}
home=$(cd "$(dirname "$0")/../.." && pwd)
here=$home/tests/windows

if [ ! -x "$kelterm" ]; then
  echo "$kelterm is missing: build the simulated terminal first" >&2
  exit 1
fi
work=$(mktemp -d "${TMPDIR:-/tmp}/kel-wine.XXXXXX")
export WINEDEBUG=-all LC_ALL=C.UTF-8
unset DISPLAY
windows_path() { echo "Z:${1//\//\\}"; }

# Programs under Wine wait more than they work: twice as many at a time as the machine has cores.
lanes=$((2 * $(nproc)))

# A session that takes longer is no difference.
readonly linux_limit=60 windows_limit=120 took_too_long=124

prepare_lane() {
  local lane=$1
  export WINEPREFIX=$lane/prefix
  mkdir -p "$lane"
  rm -rf "$lane/fresh"
  cp -a "$home/examples/terminal" "$lane/fresh"
  KEL_RECORDER=$build/tests/windows/recorder.exe "$home/scripts/wine-copy.sh" "$build/wine/base-screenless" \
    "$WINEPREFIX" "$lane/fresh"
  ln -sfn "$lane/windows" "$WINEPREFIX/dosdevices/d:"
  # On a busy machine a second and more pass between two sessions: the desktop of one would go under the next.
  wine "$build/tests/windows/desktop_holder.exe" "$(windows_path "$lane/held")" >/dev/null 2>&1 &
  local tries=0
  until [ -s "$lane/held" ] || [ $((tries += 1)) -gt 1200 ]; do sleep 0.05; done
}

# play_session LANE SEED PATIENCE: on a fresh terminal. Differences are printed and noted in "differ", a session that took
# PATIENCE times the limits in "late".
play_session() {
  local lane=$1 seed=$2 patience=$3 session=$1/$2 linux=0 windows=0
  "$here/random_session.py" "$seed" "$keys" >"$session.script"
  rm -rf "$lane/linux" "$lane/windows"
  cp -a "$home/examples/terminal" "$lane/linux"
  cp -a "$lane/fresh" "$lane/windows"
  timeout $((patience * linux_limit)) "$kelterm" --root "$lane/linux" --script "$session.script" >"$session.linux" \
    2>"$session.error" || linux=$?
  { sed 's/.*\.script:/script:/' "$session.error" && echo "status $linux"; } >>"$session.linux"
  (cd "$lane/windows" && "$home/scripts/wine-begin.sh" $((patience * windows_limit)) \
    "$build/simulator/windows/screen_driver.exe" "$(windows_path "$build/app/KelLocalCfg.exe")" "$(windows_path "$session.script")") \
    >"$session.windows" 2>"$session.error" || windows=$?
  grep '^wine-begin:' "$session.error" | sed "s/^/seed $seed: /"
  { sed '/^wine-begin:/d; s/.*\.script:/script:/' "$session.error" && echo "status $windows"; } >>"$session.windows"
  if [ $linux -eq $took_too_long ] || [ $windows -eq $took_too_long ]; then
    echo "seed $seed ran out of time"
    echo "$seed" >>"$work/late"
    return
  fi
  echo "$seed" >>"$work/played"
  diff -u --label "linux, seed $seed" --label "windows, seed $seed" "$session.linux" "$session.windows" \
    >"$session.diff" && return
  head -40 "$session.diff"
  echo "the real program's side of it:"
  grep '^+' "$session.diff" | head -40
  echo "$seed" >>"$work/differ"
}

# Every `lanes`-th session from seed first + $1 on, in one prefix.
play_lane() {
  local lane=$work/$1 seed
  prepare_lane "$lane"
  for ((seed = first + $1; seed < first + count; seed += lanes)); do play_session "$lane" "$seed" 1; done
  wineserver -k 2>/dev/null
}

# With the machine for itself, as far as this test can give it that.
play_late_ones() {
  local lane=$work/alone late seed
  late=$(sort -n "$work/late")
  rm "$work/late"
  prepare_lane "$lane"
  for seed in $late; do
    echo "seed $seed is played again alone"
    play_session "$lane" "$seed" 5
  done
  wineserver -k 2>/dev/null
}

touch "$work/played"
for ((lane = 0; lane < lanes; ++lane)); do play_lane "$lane" & done
wait
[ ! -s "$work/late" ] || play_late_ones
played=$(wc -l <"$work/played")
echo "$played sessions of $keys keys"
[ ! -s "$work/late" ] || echo "seeds that took too long: $(sort -n "$work/late" | tr '\n' ' ')"
if [ -s "$work/differ" ]; then
  echo "seeds that differ: $(sort -n "$work/differ" | tr '\n' ' ')"
  [ -z "${KEL_KEEP:-}" ] || cp "$work"/*/*.script "$work"/*/*.linux "$work"/*/*.windows "$KEL_KEEP"
fi
status=0
if [ -s "$work/differ" ] || [ "$played" -ne "$count" ]; then status=1; fi
rm -rf "$work"
exit $status
