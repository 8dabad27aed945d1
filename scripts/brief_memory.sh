#!/usr/bin/env bash
# Peak memory (maximum resident set) of vocalog-brief on a simulator folder built from a
# world folder holding apt.dat and metar.rwx (such as the benchmarks' generated world).
# usage: scripts/brief_memory.sh BUILD_DIR WORLD_DIR FROM TO
set -euo pipefail
build=$1 world=$2 from=$3 to=$4
sim=$(mktemp -d)
trap 'rm -rf "$sim"' EXIT
mkdir -p "$sim/Resources/Earth nav data" "$sim/Aircraft"
ln -s "$(realpath "$world/apt.dat")" "$sim/Resources/Earth nav data/apt.dat"
ln -s "$(realpath "$world/metar.rwx")" "$sim/metar.rwx"
/usr/bin/time -v "$build/vocalog-brief" --sim "$sim" --from "$from" --to "$to" --seed 1 \
  2> "$sim/time.txt" > "$sim/out.txt"
wc -c < "$sim/out.txt" | sed 's/^/briefing bytes: /'
grep -E 'Maximum resident set size|Elapsed \(wall' "$sim/time.txt"
