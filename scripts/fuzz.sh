#!/usr/bin/env bash
# Fuzzes each file reader of build folder $1 for its share of $2 seconds, two readers at a time
# (one per core), each from seeds that reach its decoding code; then prints per reader its
# executions, libFuzzer's coverage and the share of its own functions the corpus reaches
# (functions the compiler inlined everywhere count as not reached). The bitmap reader, the
# slowest (pictures up to 1024 x 1024 whatever the file's length), gets a double share.
# Findings are written as <build>/findings/<reader>-crash-* files.
set -euo pipefail
build=$1 seconds=${2:-300}
readers=(menu bitmap apt weather aircraft prefs text)
sim=data/sim corpus=$build/fuzz-corpus
unit=$(( seconds * 2 / (${#readers[@]} + 1) ))
[ "$unit" -ge 5 ] || unit=5
rm -rf "$build/fuzz-logs" && mkdir -p "$build/fuzz-logs" "$build/findings"
for r in "${readers[@]}"; do mkdir -p "$corpus/$r"; done

# Seeds: heads of the sample world's files, and for the weather reader, reports of the
# stations its fuzz world holds; bitmaps and menus start with their mode byte.
head -c 6000 "$sim/Resources/Earth nav data/apt.dat" > "$corpus/apt/head"
{ printf 'I\n600 Version\n'; sed -n '5000,5060p' "$sim/Resources/Earth nav data/apt.dat"; } > "$corpus/apt/middle"
head -c 4000 "$sim/metar.rwx" > "$corpus/weather/head"
grep -E ' [0-9/]+SM | (VV|FG|BR|TS|RA|SN)|[+-][A-Z]{2}' "$sim/metar.rwx" |
  awk 'BEGIN { split("AGGH AGGM ANYN AQBC AYBA AYBK AYBM AYCH AYDU", c) }
       NR <= 80 { sub(/^(METAR |SPECI )?[A-Z0-9]{4} /, c[NR % 9 + 1] " "); print }' > "$corpus/weather/stations"
head -c 8000 "$sim/Aircraft/C172SP.acf" > "$corpus/aircraft/c172sp"
"$build/vocalog-gen-prefs" --out "$corpus/prefs/prefs.prf" >/dev/null
python3 - "$corpus/bitmap" <<'EOF'
import struct, sys
def bmp(w, h):
    row = (w * 3 + 3) // 4 * 4
    pix = bytes((x * 40 + y * 7) % 256 for y in range(h) for x in range(row))
    return b'BM' + struct.pack('<IHHIIiiHHIIiiII', 54 + len(pix), 0, 0, 54, 40, w, h, 1, 24, 0, len(pix), 0, 0, 0, 0) + pix
for mode, (w, h) in enumerate([(4, 4), (3, 5), (16, 8), (2, 32), (1, 1), (32, 16)]):
    open(f'{sys.argv[1]}/seed-{mode}', 'wb').write(bytes([mode]) + bmp(w, h))
EOF
for lang in "$sim"/Resources/menus/*/; do
  { printf '\000'; cat "$lang"Vocalog.txt; } > "$corpus/menu/$(basename "$lang")"
done
for lang in "$sim"/Resources/text/*/; do cp "$lang"Vocalog.txt "$corpus/text/$(basename "$lang")"; done

# The source files whose functions count as each reader's own.
declare -A own=(
  [apt]="apt_scan.cpp file_reader.cpp file_stream.cpp" [weather]="metar_decode.cpp weather.cpp phrasing.cpp composer.cpp"
  [aircraft]="aircraft.cpp" [prefs]="sim_prefs.cpp prefs.cpp" [bitmap]="bitmap.cpp bitmap_read.cpp bitmap_pixels.cpp"
  [menu]="menu_file.cpp menu_table.cpp" [text]="text_table.cpp")

share_of() { case $1 in bitmap) echo $((2 * unit)) ;; *) echo "$unit" ;; esac; }
fuzz_one() {
  local r=$1 len=6000
  [ "$r" = aircraft ] && len=8000  # its engine kind lies at byte 6172
  VOCALOG_FUZZ_READER=$r "$build/fuzz_readers" "$corpus/$r" -max_len=$len -max_total_time="$(share_of "$r")" \
    -print_final_stats=1 -artifact_prefix="$build/findings/$r-" >"$build/fuzz-logs/$r.log" 2>&1 || true
}
export -f fuzz_one share_of
export build corpus unit
echo "fuzz: ${#readers[@]} readers, $unit s each (bitmap $((2 * unit)) s), two at a time"
printf '%s\n' "${readers[@]}" | xargs -P 2 -I{} bash -c 'fuzz_one {}'

printf '%-9s %12s %9s %6s %7s  %-22s %s\n' reader executions exec/s cov ft "own functions reached" findings
for r in "${readers[@]}"; do
  log=$build/fuzz-logs/$r.log
  execs=$(sed -n 's/^stat::number_of_executed_units: //p' "$log")
  rate=$(awk -v n="${execs:-0}" -v s="$(share_of "$r")" 'BEGIN { printf "%d", n / s }')
  last=$(grep -E '^#[0-9]+.*cov: ' "$log" | tail -1)
  cov=$(sed -n 's/.* cov: \([0-9]*\).*/\1/p' <<<"$last") ft=$(sed -n 's/.* ft: \([0-9]*\).*/\1/p' <<<"$last")
  VOCALOG_FUZZ_READER=$r "$build/fuzz_readers" "$corpus/$r" -runs=0 -print_coverage=1 >"$build/fuzz-logs/$r.cov" 2>&1 || true
  funcs=$(awk -v files="${own[$r]}" '
    BEGIN { n = split(files, f, " "); for (i = 1; i <= n; ++i) want["/" f[i]] = 1 }
    /^(COVERED|UNCOVERED)_FUNC:/ { src = $NF; sub(/:[0-9]+$/, "", src); m = src; sub(/.*\//, "/", m)
      if (m in want) { ++all; if ($1 == "COVERED_FUNC:") ++hit } }
    END { printf "%d of %d", hit, all }' "$build/fuzz-logs/$r.cov")
  found=$(find "$build/findings" -name "$r-*" | wc -l)
  printf '%-9s %12s %9s %6s %7s  %-22s %s\n' "$r" "${execs:-?}" "$rate" "${cov:-?}" "${ft:-?}" "$funcs" "$found"
done
