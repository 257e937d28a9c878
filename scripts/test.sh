#!/usr/bin/env bash
# Sets everything up (Debian 12, as root the first time), then runs every
# test offscreen; a failing test prints its output.
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/setup.sh
cd "${BUILD_DIR:-build}"
ctest --output-on-failure -j2 "$@"
