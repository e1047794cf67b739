# Sourced by a test that runs programs under Wine: BUILD, its argument, becomes `build`; `work` is a folder of the test's own
# for a prefix without a screen, and both go when the test ends.

build=$(cd "$1" && pwd)
home=$(cd "$(dirname "${BASH_SOURCE[0]}")/../.." && pwd)
work=$(mktemp -d "${TMPDIR:-/tmp}/kel-wine.XXXXXX")
export WINEPREFIX=$work/prefix WINEDEBUG=-all LC_ALL=C.UTF-8
unset DISPLAY
finish() {
  wineserver -k 2>/dev/null
  rm -rf "$work"
}
trap finish EXIT
windows_path() { echo "Z:${1//\//\\}"; }
