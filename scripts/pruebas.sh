#!/usr/bin/env bash
# Runs every test through CTest; CTest starts and stops the PostgreSQL cluster.
set -euo pipefail
build=${1:-build}
export QT_QPA_PLATFORM=offscreen
ctest --test-dir "$build" --output-on-failure -j "$(nproc)"
