#!/bin/sh
# wine-prefix.sh screenless|screen FOLDER
#
# Makes a Wine prefix in FOLDER: a copy of a template, which is made once and kept in build/wine. In a "screenless" one
# windows work but nothing is drawn, and no display is needed; a "screen" one draws on $DISPLAY.
set -eu

kind=$1
folder=$2
home=$(cd "$(dirname "$0")/.." && pwd)
template=$home/build/wine/template-$kind

export WINEDEBUG=-all WINEDLLOVERRIDES='mscoree,mshtml=;winemenubuilder.exe='


make_template() (
  fresh=$template.$$
  rm -rf "$fresh"
  mkdir -p "$fresh"
  unset DISPLAY
  export WINEPREFIX="$fresh"
  timeout 120 wine wineboot -i >/dev/null 2>&1
  timeout 60 wineserver -w
  # A crash must end the program, and no window manager is waited for.
  settings=$fresh/drive_c/settings.reg
  {
    printf 'REGEDIT4\n\n'
    printf '[HKEY_CURRENT_USER\\Software\\Wine\\WineDbg]\n"ShowCrashDialog"=dword:00000000\n\n'
    # Nothing here needs these services, and starting them takes longer than a test. The network has to be there.
    for service in Eventlog MountMgr PlugPlay; do
      printf '[HKEY_LOCAL_MACHINE\\System\\CurrentControlSet\\Services\\%s]\n"Start"=dword:00000004\n\n' "$service"
    done
    printf '[HKEY_CURRENT_USER\\Software\\Wine\\X11 Driver]\n"Managed"="N"\n"Decorated"="N"\n\n'
    if [ "$kind" = screenless ]; then
      printf '[HKEY_CURRENT_USER\\Software\\Wine\\Drivers]\n"Graphics"="null"\n\n'
    fi
  } >"$settings"
  timeout 60 wine regedit /S 'C:\settings.reg' >/dev/null 2>&1
  timeout 60 wineserver -w
  rm "$settings"
  ln -sf /usr/share/wine/fonts/* "$fresh/drive_c/windows/Fonts/"
  echo disable >"$fresh/.update-timestamp"
  mv -T "$fresh" "$template" 2>/dev/null || rm -rf "$fresh"
)

mkdir -p "$home/build/wine"
if [ ! -d "$template" ]; then
  (
    flock 9
    [ -d "$template" ] || make_template
  ) 9>"$template.lock"
fi

# What is never written to is shared with the template.
rm -rf "$folder"
mkdir -p "$folder"
cp -al "$template/drive_c" "$folder/drive_c"
cp "$template"/*.reg "$template/.update-timestamp" "$folder/"
cp -a "$template/dosdevices" "$folder/dosdevices"
