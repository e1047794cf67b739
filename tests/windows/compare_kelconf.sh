#!/bin/bash
# compare_kelconf.sh BUILD KELCONF
#
# Asks kelconf.exe and KELCONF, the one for Linux, the same about the same files, and compares what they print, what they
# write and how they end. Between the names of a path there may be a backslash in place of a slash; nothing else differs.
set -u

source "$(dirname "$0")/own_prefix.sh" "$1"
kelconf=$2
if [ ! -x "$kelconf" ]; then
  echo "$kelconf is missing: build it first" >&2
  exit 1
fi
mkdir "$work/none" "$work/menus"
"$home/scripts/wine-copy.sh" "$build/wine/base-screenless" "$WINEPREFIX" "$work/none"
cd "$work/menus" || exit 1

asked=0
failed=0
on_windows() { timeout 100 wine "$build/tools/kelconf.exe" "$@"; }
complain() {
  echo "$*" >&2
  failed=$((failed + 1))
}

# same ARGUMENTS...: "OUT" in them is a place to write to, which is compared as it is.
same() {
  local system
  asked=$((asked + 1))
  rm -rf "$work/linux" "$work/windows"
  mkdir "$work/linux" "$work/windows"
  (timeout 100 "$kelconf" "${@//OUT/$work/linux/written}" && echo "status 0" || echo "status $?") \
    >"$work/linux/out" 2>"$work/linux/errors"
  (on_windows "${@//OUT/$(windows_path "$work/windows/written")}" && echo "status 0" || echo "status $?") \
    >"$work/windows/out" 2>"$work/windows/errors"
  for system in linux windows; do sed -i 's#\\\+#/#g' "$work/$system/out" "$work/$system/errors"; done
  diff -ru "$work/linux" "$work/windows" >"$work/difference" && return
  complain "kelconf $*:"
  head -40 "$work/difference" >&2
}

# --- the files ---

cp -a "$home"/examples/{small,terminal,forklift} .
cp -a small 'Gerät für Süd № 7'
mv 'Gerät für Süd № 7/Windows/ovu.xml' 'Gerät für Süd № 7/Menü 日本 😀.xml'
# Two spaces from the end of a tag, a type that is none, and a text that only the right reading shows.
sed -i 's/Integer/Integr/; s/Light Time/Licht für 日本 😀/' 'Gerät für Süd № 7/Menü 日本 😀.xml'
mkdir broken changed lines
head -c 300 small/Windows/ovu.xml >broken/menu.xml
cp terminal/registry.reg alone.reg
cp -a small/. changed/
sed -i 's/Light Time/Backlight Time/; s/NoDisplay/NoAccess/' changed/Windows/ovu.xml
cp -a terminal/. lines/
sed -i 's/$/\r/' lines/*.txt lines/*.reg lines/Windows/ovu.xml
cp -a forklift kept
chmod 444 kept/*.txt kept/Windows/ovu.xml

# --- the questions ---

same --version
same --help
same explore --help
same
same nonsense
same check nowhere
same check --list
for format in text json sarif; do same check --format $format terminal small broken/menu.xml alone.reg; done
same check --format sarif 'Gerät für Süd № 7/Menü 日本 😀.xml'
same check 'Gerät für Süd № 7/Menü 日本 😀.xml'
same check lines
same check --source 'HKEY_LOCAL_MACHINE\SOFTWARE\Valtorix\ZEP\CONFIGAPP' terminal
same tree lines
same tree --format json terminal
same tree alone.reg
same tree broken/menu.xml
same find terminal baud
same find 'Gerät für Süd № 7/Menü 日本 😀.xml' 'für 日本 😀'
same find --format json alone.reg wep
same why small 'Light Time'
same why --menu --format json terminal 6-1-2
same why small nothing
same diff small changed
same diff --format json alone.reg changed
same explore --scripts OUT 'Gerät für Süd № 7' --source '\Menü 日本 😀.xml'
same explore --format json --keys 1500 --scripts OUT kept
same explore --keys 100 terminal
same manual 'Gerät für Süd № 7' --source '\Menü 日本 😀.xml' --title 'für 日本 😀' -o OUT
same manual terminal -o OUT
same manual small -o nowhere/manual.html

# --- what only Windows has ---

folder=$(windows_path "$PWD/Gerät für Süd № 7")
found=$(on_windows check "$folder\\Menü 日本 😀.xml")
[[ $found == "$folder\\Menü 日本 😀.xml:"* ]] || complain "check of a full path says: $found"
uri=$(on_windows check --format sarif "$PWD/broken/menu.xml" | sed -nE 's/.*"uri": "(.*)".*/\1/p')
[ "$uri" = "file://$PWD/broken/menu.xml" ] || complain "the address of a file on this drive is $uri"
uri=$(on_windows check --format sarif "$(windows_path "$PWD/broken/menu.xml")" | sed -nE 's/.*"uri": "(.*)".*/\1/p')
[ "$uri" = "file:///Z:$PWD/broken/menu.xml" ] || complain "the address of a file on a drive is $uri"
shown() { TERM=xterm timeout 60 script -qefc "wine '$build/tools/kelconf.exe' check 'Gerät für Süd № 7/Menü 日本 😀.xml'" /dev/null </dev/null; }
[[ $(shown) == *'Gerät für Süd № 7'*$'\e[31merror\e[0m: '* ]] || complain "on a console it shows: $(shown | head -3)"
[[ $(NO_COLOR=1 shown) != *$'\e[31m'* ]] || complain "NO_COLOR does not count"
left=$(find "$WINEPREFIX" -path '*/Temp/*' -name 'kelconf.*')
[ -z "$left" ] || complain "left behind: $left"

echo "$asked questions, $failed answers differ"
[ "$failed" -eq 0 ]
