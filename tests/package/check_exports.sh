#!/usr/bin/env bash
# The shared library's dynamic symbol table holds PriceGraph and nothing
# else: its members, meta-object, vtable, type information and thunks.
#   check_exports.sh path/to/libpricegraph.so
set -euo pipefail
lib=$1
symbols=$(nm -DC --defined-only "$lib" | sed -E 's/^[0-9a-f]+ //')
[ -n "$symbols" ] || { echo "no defined symbols in $lib"; exit 1; }

# "A PRICEGRAPH_0" is the version node itself.
foreign=$(printf '%s\n' "$symbols" | grep -Ev \
    -e '^A PRICEGRAPH_0$' \
    -e '^[TWDBRV] PriceGraph::' \
    -e '^[TW] non-virtual thunk to PriceGraph::' \
    -e '^[VDR] (vtable|typeinfo|typeinfo name) for PriceGraph(@@PRICEGRAPH_0)?$' || true)
if [ -n "$foreign" ]; then
    echo "symbols other than PriceGraph's are exported:"
    printf '%s\n' "$foreign"
    exit 1
fi

for want in 'PriceGraph::PriceGraph(QWidget\*)' 'PriceGraph::AddSeries(QString, long, long, long, long, bool)' \
            'PriceGraph::cursorTypeChanged(long)' 'PriceGraph::staticMetaObject' \
            'PriceGraph::qt_metacall(' 'PriceGraph::OnPlotClose(Plot\*)' \
            'PriceGraph::ValueFromY(long, long)' 'vtable for PriceGraph'; do
    printf '%s\n' "$symbols" | grep -q -- "$want" || { echo "missing export: $want"; exit 1; }
done

soname=$(objdump -p "$lib" | awk '/SONAME/ {print $2}')
case "$soname" in
    libpricegraph.so.[0-9]*) ;;
    *) echo "unexpected SONAME '$soname'"; exit 1 ;;
esac
echo "$(printf '%s\n' "$symbols" | wc -l) symbols, all PriceGraph's; SONAME $soname"
