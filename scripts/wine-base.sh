#!/bin/sh
# wine-base.sh screenless|screen BUILD
#
# Makes BUILD/wine/base-KIND: a Wine prefix with the device server of that build registered, to be copied for each run.
set -eu

kind=$1
build=$(cd "$2" && pwd)
home=$(cd "$(dirname "$0")/.." && pwd)
base=$build/wine/base-$kind

export WINEDEBUG=-all WINEPREFIX="$base"
mkdir -p "$build/wine"
rm -rf "$base".*
"$home/scripts/wine-prefix.sh" "$kind" "$base"
mkdir -p "$base/drive_c/kel"
cp "$build/simulator/windows/kel_device.dll" "$base/drive_c/kel/"
env -u DISPLAY timeout 60 wine regsvr32 /s 'C:\kel\kel_device.dll' >/dev/null 2>&1 || true
timeout 60 wineserver -k || true
timeout 60 wineserver -w
if ! grep -q -i 'B12CD332-AF57-11D2-A541-00C04F8F3EBB' "$base/system.reg"; then
  echo "wine-base: the device server was not registered" >&2
  exit 1
fi
