#!/usr/bin/env bash
# Runs the readers' fuzz target of build folder $1 for $2 seconds. The corpus (build folder's
# fuzz-corpus/) starts from the heads of the sample world's files, one per reader; findings
# are written as crash-* files into the build folder.
set -euo pipefail
build=$1 seconds=${2:-300}
sim=data/sim corpus=$build/fuzz-corpus
mkdir -p "$corpus"
seed() { { printf "\\x$(printf %02x "$1")"; head -c 4000 "$2"; } > "$corpus/seed-$1"; }
seed 0 "$sim/Resources/Earth nav data/apt.dat"
seed 1 "$sim/metar.rwx"
seed 2 "$sim/Aircraft/C172SP.acf"
"$build/vocalog-gen-prefs" --out "$corpus/prefs.prf" >/dev/null && seed 3 "$corpus/prefs.prf" && rm "$corpus/prefs.prf"
cd "$build"
./fuzz_readers fuzz-corpus -max_len=6000 -max_total_time="$seconds" -print_final_stats=1
