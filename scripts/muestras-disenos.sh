#!/bin/sh
# Page pictures of the invoice design families for docs/: the families test
# prints the demo company's invoice through each family (SQLite), keeps the
# PDFs, and each first page becomes a small PNG.
# Usage: scripts/muestras-disenos.sh [BUILD_DIR]   (default: build)
set -eu

raiz=$(cd "$(dirname "$0")/.." && pwd)
build=${1:-$raiz/build}
if [ ! -f "$build/build.ninja" ]; then
    cmake -S "$raiz" -B "$build" -G Ninja
fi
cmake --build "$build" --target vk_pruebas_issue

tmp=$(mktemp -d)
trap 'rm -rf "$tmp"' EXIT INT TERM
VK_DISENOS_MUESTRAS="$tmp" QT_QPA_PLATFORM=offscreen \
    "$build/tests/issue/vk_pruebas_issue" --gtest_filter='*FamiliasDemo*SQLite*' >/dev/null
mkdir -p "$raiz/docs/disenos"
for familia in general logo izquierda automocion medidas servicios alimentacion calzado \
    envases viveros; do
    pdftoppm -png -r 50 -singlefile "$tmp/$familia.pdf" "$raiz/docs/disenos/$familia"
done
# The general page the README shows, a little larger.
pdftoppm -png -r 60 -singlefile "$tmp/general.pdf" "$raiz/docs/factura-general"
ls "$raiz/docs/disenos"/*.png
