#!/usr/bin/env bash
# Installs the build into a scratch prefix, then builds the tiny host in
# tests/host against that prefix alone, once with CMake's find_package and
# once with pkg-config, and runs both offscreen.
#   build_host.sh BUILD_DIR WORK_DIR HOST_SOURCE_DIR
set -euo pipefail
build=$1 work=$2 src=$3
rm -rf "$work"
mkdir -p "$work"
prefix=$work/prefix

cmake --install "$build" --prefix "$prefix" >/dev/null
export QT_QPA_PLATFORM=offscreen

# 1. CMake package
cmake -S "$src" -B "$work/cmake" -DCMAKE_PREFIX_PATH="$prefix" -DCMAKE_BUILD_TYPE=Release >/dev/null
cmake --build "$work/cmake" >/dev/null
"$work/cmake/pricegraph-host"

# 2. pkg-config
pcdir=$(dirname "$(find "$prefix" -name pricegraph.pc | head -n1)")
export PKG_CONFIG_PATH=$pcdir
libdir=$(pkg-config --variable=libdir pricegraph)
c++ -std=c++17 -fPIC -o "$work/pricegraph-host-pc" "$src/main.cpp" \
    -DQT_NO_KEYWORDS -DQT_NO_CAST_FROM_ASCII -DQT_NO_CAST_TO_ASCII \
    $(pkg-config --cflags --libs pricegraph) -Wl,-rpath,"$libdir"
"$work/pricegraph-host-pc"
