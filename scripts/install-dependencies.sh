#!/bin/bash
# install-dependencies.sh [run|test|package]
#
# Installs what is missing on a Debian 12 machine: for "run" what building and starting the simulated terminal takes, for
# "test" (the default) what all tests take besides, for "package" what making and trying the packages takes. Does nothing,
# and needs no rights, when all is there.
set -eu

packages=(cmake g++ libcli11-dev libncurses-dev libsnmp-dev libssl-dev libyaml-cpp-dev ninja-build nlohmann-json3-dev pkg-config)
if [ "${1:-}" = package ]; then
  packages+=(bash-completion debhelper dpkg-dev fonts-wine g++-mingw-w64-x86-64-posix git imagemagick lintian
    mingw-w64-tools mmdebstrap python3 unzip wine wine64 xdotool xvfb)
elif [ "${1:-test}" = test ]; then
  packages+=(ccache chromium clang-14 clang-format-14 clang-tidy-14 file fonts-wine googletest imagemagick libbenchmark-dev libclang-rt-14-dev
    libgtest-dev libpugixml-dev man-db mandoc mingw-w64-tools g++-mingw-w64-i686-posix g++-mingw-w64-x86-64-posix python3
    python3-jsonschema python3-pysnmp4 snmp snmpd tidy tmux wine wine64 xvfb)
fi

missing=()
for package in "${packages[@]}"; do
  [ "$(dpkg-query -W -f='${db:Status-Status}' "$package" 2>/dev/null)" = installed ] || missing+=("$package")
done
[ ${#missing[@]} -gt 0 ] || exit 0

echo "installing: ${missing[*]}" >&2
as_root=()
[ "$(id -u)" = 0 ] || as_root=(sudo)
export DEBIAN_FRONTEND=noninteractive
"${as_root[@]}" apt-get update -q >&2
"${as_root[@]}" apt-get install -q -y --no-install-recommends "${missing[@]}" >&2
