#!/usr/bin/env bash
# Installs the build into a scratch prefix, then builds the tiny host in
# tests/host against that prefix alone, once with CMake's find_package and
# once with pkg-config, and runs both offscreen. WORK_DIR is kept between
# runs so that an unchanged library costs only the checks.
#   build_host.sh BUILD_DIR WORK_DIR HOST_SOURCE_DIR
set -euo pipefail
build=$1 work=$2 src=$3
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
host=$work/pricegraph-host-pc
if [ ! "$host" -nt "$src/main.cpp" ] || [ ! "$host" -nt "$libdir/libpricegraph.so" ] ||
   [ ! "$host" -nt "$(pkg-config --variable=includedir pricegraph)/pricegraph.h" ]; then
    c++ -std=c++17 -fPIC -o "$host" "$src/main.cpp" \
        -DQT_NO_KEYWORDS -DQT_NO_CAST_FROM_ASCII -DQT_NO_CAST_TO_ASCII \
        $(pkg-config --cflags --libs pricegraph) -Wl,-rpath,"$libdir"
fi
"$host"
