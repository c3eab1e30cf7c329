#!/bin/sh
# Screenshots of the desktop views for docs/capturas/: a demo company in a
# temporary folder, every view opened offscreen and grabbed to a PNG.
# Usage: scripts/capturas.sh [BUILD_DIR]   (default: build-ui, else build)
set -eu

raiz=$(cd "$(dirname "$0")/.." && pwd)
build=${1:-}
if [ -z "$build" ]; then
    if [ -d "$raiz/build-ui" ]; then build="$raiz/build-ui"; else build="$raiz/build"; fi
fi
if [ ! -f "$build/build.ninja" ]; then
    cmake -S "$raiz" -B "$build" -G Ninja
fi
cmake --build "$build" --target vkfactuven vkfactuven-escritorio

tmp=$(mktemp -d)
trap 'rm -rf "$tmp"' EXIT INT TERM
# Settings and data folders of the run stay in the temporary folder too.
export XDG_CONFIG_HOME="$tmp/config" VKFACTUVEN_DATOS="$tmp" QT_QPA_PLATFORM=offscreen
"$build/app/vkfactuven" init --demo --db "$tmp/datos" >/dev/null
mkdir -p "$raiz/docs/capturas"
"$build/app/escritorio/vkfactuven-escritorio" --db "$tmp/datos" \
    --capturas "$raiz/docs/capturas" 2>&1 | grep -v propagateSizeHints || true
ls "$raiz/docs/capturas"/*.png
