#!/bin/sh
# pkg_config_host.sh PACKAGE WORK COMPILER SOURCES [EMULATOR]: builds and runs the host in a folder.
set -e
package=$1 work=$2 compiler=$3 source=$4 emulator=$5
PKG_CONFIG_LIBDIR=$(dirname "$(find "$package" -name vorncomctl.pc)")
export PKG_CONFIG_LIBDIR
mkdir -p "$work"
# shellcheck disable=SC2046,SC2086
$compiler -o "$work/host.exe" "$source"/*.cpp $(pkg-config --cflags --libs vorncomctl)
cp "$package"/bin/*.dll "$work" 2>/dev/null || true
LD_LIBRARY_PATH=$(pkg-config --variable=libdir vorncomctl) $emulator "$work/host.exe"
