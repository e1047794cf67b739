#!/bin/bash
# compare_sessions.sh BUILD KELTERM [COUNT [FIRST_SEED [KEYS]]]
#
# Plays sessions of random keys on the demonstration terminal, in the simulated terminal and in the real program, and
# compares what both print and how they end. COUNT is 200 unless KEL_SESSIONS or the argument says otherwise. The last
# lines name the seeds that differ; random_session.py makes their scripts again.
set -u

build=$(cd "$1" && pwd)
kelterm=$2
count=${3:-${KEL_SESSIONS:-200}}
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

# Every `lanes`-th session from seed first + $1 on, in one prefix, each on a fresh terminal.
play_lane() {
  local lane=$work/$1 seed session status
  export WINEPREFIX=$lane/prefix
  mkdir -p "$lane"
  cp -a "$home/examples/terminal" "$lane/fresh"
  KEL_RECORDER=$build/tests/windows/recorder.exe "$home/scripts/wine-copy.sh" "$build/wine/base-screenless" \
    "$WINEPREFIX" "$lane/fresh"
  ln -sfn "$lane/windows" "$WINEPREFIX/dosdevices/d:"
  for ((seed = first + $1; seed < first + count; seed += lanes)); do
    session=$lane/$seed
    "$here/random_session.py" "$seed" "$keys" >"$session.script"
    rm -rf "$lane/linux" "$lane/windows"
    cp -a "$home/examples/terminal" "$lane/linux"
    cp -a "$lane/fresh" "$lane/windows"
    status=0
    timeout 60 "$kelterm" --root "$lane/linux" --script "$session.script" >"$session.linux" 2>"$session.error" ||
      status=$?
    { sed 's/.*\.script:/script:/' "$session.error" && echo "status $status"; } >>"$session.linux"
    status=0
    (cd "$lane/windows" && timeout 120 wine "$build/simulator/windows/screen_driver.exe" \
      "$(windows_path "$build/app/KelLocalCfg.exe")" "$(windows_path "$session.script")") \
      >"$session.windows" 2>"$session.error" || status=$?
    { sed 's/.*\.script:/script:/' "$session.error" && echo "status $status"; } >>"$session.windows"
    if ! diff -u --label "linux, seed $seed" --label "windows, seed $seed" "$session.linux" "$session.windows" \
      >"$session.diff"; then
      head -60 "$session.diff"
      echo "$seed" >>"$work/differ"
    fi
    echo "$seed" >>"$work/played"
  done
  wineserver -k 2>/dev/null
}

for ((lane = 0; lane < lanes; ++lane)); do play_lane "$lane" & done
wait
played=$(wc -l <"$work/played")
echo "$played sessions of $keys keys"
if [ -s "$work/differ" ]; then
  echo "seeds that differ: $(sort -n "$work/differ" | tr '\n' ' ')"
  cp "$work"/?/*.script "$work"/?/*.linux "$work"/?/*.windows "${KEL_KEEP:-$work}" 2>/dev/null
  rm -rf "$work"
  exit 1
fi
rm -rf "$work"
[ "$played" -eq "$count" ]
