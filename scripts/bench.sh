#!/usr/bin/env bash
# Runs every benchmark of the release build folder $1.
set -euo pipefail
build=${1:-build}
for b in "$build"/*_bench; do
  [ -x "$b" ] || continue
  echo "== $(basename "$b")"
  "$b" --benchmark_counters_tabular=true
done
