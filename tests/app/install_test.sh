#!/usr/bin/env bash
# Installs the build, and builds and runs an outside project against it: by CMake package and by pkg-config.
set -eu
build=$1
source=$2
samples=$3
compiler=$4
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
# Longer than a path is on other systems.
tree=$work/$(printf 'deep-%.0s' {1..50})/$(printf 'deeper-%.0s' {1..10})
cmake --install "$build" --prefix "$tree" >/dev/null
cmake -S "$source/outside" -B "$work/outside" -G Ninja -DCMAKE_PREFIX_PATH="$tree" -DCMAKE_CXX_COMPILER="$compiler" >/dev/null
cmake --build "$work/outside" >/dev/null
"$work/outside/outside" "$samples/drawings/office-floor.dxf"

# The example of an application module, built outside and loaded by the host.
cmake -S "$source/../../examples/attredit" -B "$work/attredit" -G Ninja -DCMAKE_PREFIX_PATH="$tree" -DCMAKE_CXX_COMPILER="$compiler" >/dev/null
cmake --build "$work/attredit" >/dev/null
cmake -S "$source/../../examples/pipetag" -B "$work/pipetag" -G Ninja -DCMAKE_PREFIX_PATH="$tree" -DCMAKE_CXX_COMPILER="$compiler" >/dev/null
cmake --build "$work/pipetag" >/dev/null
"$tree/bin/zu" run-command "$work/pipetag/libpipetag.so" PIPETAGLIST "$samples/drawings/office-floor.dxf" </dev/null 2>&1 |
  grep -q "The drawing has no tags"
# Two of the 58 elements lie on a locked layer.
told=$("$work/attredit/run_attredit" "$work/attredit/libattredit.so" "$samples/drawings/office-floor.dxf" 110 "$work/edited.dxf" 2>&1)
test "$told" = "attredit: 56 elements raised by 100
attredit: 110 goes
attredit: 110 is replaced by 10E"
grep -q "S401|2800|" "$work/edited.dxf"

libraries=$(dirname "$(find "$tree" -name libZuComn.so | head -1)")
export PKG_CONFIG_PATH="$libraries/pkgconfig"
"$compiler" -std=c++20 "$source/outside/main.cpp" -o "$work/by-pkg-config" $(pkg-config --cflags --libs zucomn)
LD_LIBRARY_PATH="$libraries" "$work/by-pkg-config" "$samples/drawings/office-floor.dxf"
told=$(LC_ALL=en_US.UTF-8 "$tree/bin/zu" elements "$samples/drawings/office-floor.dxf" --json 2>&1 >/dev/null)
test -z "$told"
test -f "$libraries/1033/ZuComn.strings"
