#!/bin/sh
# wine-copy.sh BASE PREFIX ROOT
#
# Copies the Wine prefix BASE to PREFIX for a terminal whose storage is the folder ROOT: its drive is D:, its registry
# file is read in, and every program in it that Linux could start is replaced by one that Windows can, if
# KEL_RECORDER names one. The prefix' server runs from now on, until `wineserver -k`: it neither has to start for each
# program nor ends just when the next one comes.
set -eu

base=$(cd "$1" && pwd)
prefix=$2
root=$(cd "$3" && pwd)

export WINEDEBUG=-all

copy_prefix() {
  rm -rf "$3"
  mkdir -p "$3"
  cp -al "$1/drive_c" "$3/drive_c"
  cp "$2"/*.reg "$1/.update-timestamp" "$3/"
  cp -a "$1/dosdevices" "$3/dosdevices"
}

# The registry that a file makes of BASE's is kept: many terminals have the same.
import_registry() (
  fresh=$2.$$
  copy_prefix "$base" "$base" "$fresh"
  # Windows reads such files as UTF-16; REGEDIT4 ones are read in the PC's code page, so they go the same way.
  {
    printf '\377\376'
    sed '1s/^\xEF\xBB\xBF//; 1s/^REGEDIT4/Windows Registry Editor Version 5.00/' "$1" | iconv -f UTF-8 -t UTF-16LE
  } >"$fresh/drive_c/kel/registry.reg"
  export WINEPREFIX="$fresh"
  timeout 60 wine regedit /S 'C:\kel\registry.reg' >/dev/null 2>&1 ||
    { echo "wine-copy: $1 cannot be read in" >&2 && rm -rf "$fresh" && exit 1; }
  timeout 60 wineserver -w
  mkdir "$fresh.registry"
  mv "$fresh"/*.reg "$fresh.registry/"
  rm -rf "$fresh"
  mv -T "$fresh.registry" "$2"
)

registry=$base
if [ -s "$root/registry.reg" ]; then
  registry=$base.$(sha256sum "$root/registry.reg" | cut -c 1-16)
  (
    flock 9
    [ -d "$registry" ] || import_registry "$root/registry.reg" "$registry"
  ) 9>"$base.lock"
fi
copy_prefix "$base" "$registry" "$prefix"
ln -sfn "$root" "$prefix/dosdevices/d:"

if [ -n "${KEL_RECORDER:-}" ]; then
  find "$root" -type f -perm -u+x | while read -r program; do
    rm "$program"
    cp "$KEL_RECORDER" "$program"
  done
fi

WINEPREFIX="$prefix" wineserver -p
