#!/usr/bin/env bash
# Runs the program's main job on the bundled sample data from the build folder $1.
set -euo pipefail
build=${1:-build}
if [ -x "$build/vocalog" ]; then
  exec "$build/vocalog"
elif [ -x "$build/vocalog-brief" ]; then
  exec "$build/vocalog-brief" --from KSFO --to KLAX
else
  echo "run: nothing to run yet in $build" >&2
  exit 1
fi
