#!/usr/bin/env bash
# Sets everything up (Debian 12, as root the first time), then opens the demo
# terminal. Without a display it renders a snapshot instead and says where.
# Extra arguments go to the demo (e.g. --data FILE.csv).
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/setup.sh
BUILD=${BUILD_DIR:-build}
demo="$BUILD/demo/pricegraph-demo"
if [ -n "${DISPLAY:-}" ] || [ -n "${WAYLAND_DISPLAY:-}" ]; then
    exec "$demo" "$@"
fi
out="$PWD/$BUILD/pricegraph-demo.png"
"$demo" --snapshot "$out" "$@"
echo "No display: the demo was rendered to $out"
