#!/usr/bin/env bash
# The source folders form layers, each including headers only from itself
# and the layers below it:
#   navigation  time axis, views, zoom and scroll, synchronisation
#   trading     order, position and tick lines   (may use navigation)
#   chart       the widget and its panels        (may use both)
# A header found in a higher layer is a dependency cycle in the making.
#   check_layering.sh path/to/src
set -euo pipefail
src=$1
layers=(navigation trading chart)
declare -A level home
for i in "${!layers[@]}"; do level[${layers[$i]}]=$i; done
for dir in "${layers[@]}"; do
    for f in "$src/$dir"/*.h; do home[$(basename "$f")]=$dir; done
done
bad=0
for dir in "${layers[@]}"; do
    for f in "$src/$dir"/*.h "$src/$dir"/*.cpp; do
        while read -r header; do
            target=${home[$header]:-}
            if [ -n "$target" ] && [ "${level[$target]}" -gt "${level[$dir]}" ]; then
                echo "${f#$src/} includes $header from $target, a layer above $dir"
                bad=1
            fi
        done < <(sed -n 's/^[[:space:]]*#[[:space:]]*include[[:space:]]*"\([^"]*\)".*/\1/p' "$f")
    done
done
exit $bad
