#!/bin/sh
# wine-copy.sh BASE PREFIX ROOT
#
# Copies the Wine prefix BASE to PREFIX for a terminal whose storage is the folder ROOT: its drive is D:, its registry
# file is read in, and every program in it that Linux could start is replaced by one that Windows can, if
# KEL_RECORDER names one.
set -eu

base=$1
prefix=$2
root=$(cd "$3" && pwd)

rm -rf "$prefix"
mkdir -p "$prefix"
cp -al "$base/drive_c" "$prefix/drive_c"
cp "$base"/*.reg "$base/.update-timestamp" "$prefix/"
cp -a "$base/dosdevices" "$prefix/dosdevices"
ln -sfn "$root" "$prefix/dosdevices/d:"

if [ -n "${KEL_RECORDER:-}" ]; then
  find "$root" -type f -perm -u+x | while read -r program; do
    rm "$program"
    cp "$KEL_RECORDER" "$program"
  done
fi

if [ -s "$root/registry.reg" ]; then
  # Windows reads such files as UTF-16; REGEDIT4 ones are read in the PC's code page, so they go the same way.
  {
    printf '\377\376'
    sed '1s/^\xEF\xBB\xBF//; 1s/^REGEDIT4/Windows Registry Editor Version 5.00/' "$root/registry.reg" |
      iconv -f UTF-8 -t UTF-16LE
  } >"$prefix/drive_c/kel/registry.reg"
  WINEPREFIX="$prefix" WINEDEBUG=-all timeout 60 wine regedit /S 'C:\kel\registry.reg' >/dev/null 2>&1
fi
