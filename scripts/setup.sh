#!/usr/bin/env bash
# Installs what the build needs on Debian 12 (as root), configures and builds.
# Cheap to run again: packages already present are not fetched, and an
# existing build tree is only brought up to date.
set -euo pipefail
cd "$(dirname "$0")/.."

PACKAGES=(build-essential cmake pkg-config qtbase5-dev libqwt-qt5-dev fonts-roboto
          libqcustomplot-dev valgrind clang libclang-rt-14-dev)
missing=()
for p in "${PACKAGES[@]}"; do
    dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q 'install ok installed' || missing+=("$p")
done
if [ ${#missing[@]} -gt 0 ]; then
    if [ "$(id -u)" -ne 0 ]; then
        echo "missing packages: ${missing[*]} (run as root to install them)" >&2
        exit 1
    fi
    echo "installing: ${missing[*]}"
    export DEBIAN_FRONTEND=noninteractive
    apt-get update -qq
    apt-get install -y -qq --no-install-recommends "${missing[@]}" >/dev/null
fi

BUILD=${BUILD_DIR:-build}
if [ ! -f "$BUILD/CMakeCache.txt" ]; then
    cmake -S . -B "$BUILD" -DCMAKE_BUILD_TYPE=RelWithDebInfo >/dev/null
fi
cmake --build "$BUILD" -j"$(nproc)"
