#!/usr/bin/env bash
# The whole program in a real X window: a first start from a fresh per-user folder shows the
# language chooser, Return accepts English; the briefing screen opens on the first airport of
# apt.dat with "untitled.acf" and 5000 feet; the aircraft button's chooser picks an aircraft; a
# typed code moves the departure; the briefing
# button composes; File > write shows the note alert and writes Vocalog.txt; File > quit ends
# with status 0 and the language saved; a second start skips the chooser; without a display the
# program says so and ends with status 1.
# usage: vocalog_program_test.sh VOCALOG_PROGRAM   (runs itself under xvfb-run)
set -euo pipefail
program=$1
if [ -z "${VOCALOG_IN_XVFB:-}" ]; then
  export VOCALOG_IN_XVFB=1
  exec xvfb-run -a -s "-screen 0 1024x768x24" "$0" "$@"
fi
work=$(mktemp -d)
pid=0
trap 'kill -9 $pid 2>/dev/null || true; rm -rf "$work"' EXIT
cd "$work"
export XDG_DATA_HOME=$work/home VOCALOG_TRACE=1 ASAN_OPTIONS=detect_leaks=0
apt="$(dirname "$program")/Resources/Earth nav data/apt.dat"
first=$(awk '$1 == 1 { print $5; exit }' "$apt")

fail() { echo "FAIL: $*"; echo "--- output"; cat out.txt; echo "--- errors"; tail -20 err.txt; exit 1; }
# Waits up to 30 s for a line of the trace matching the pattern.
await() { for _ in $(seq 300); do grep -q -- "$1" out.txt && return 0; sleep 0.1; done; fail "no trace line $1"; }
# Clicks at design units (x, y): window pixels have y downward from the top.
click() { xdotool mousemove "$1" $((768 - $2)) click 1; sleep 0.4; }
start() {
  : > out.txt
  timeout -s KILL 120 "$program" > out.txt 2> err.txt &
  pid=$!
  for _ in $(seq 300); do xdotool search --name '^Corvane$' > /dev/null 2>&1 && break; sleep 0.1; done
  window=$(xdotool search --name '^Corvane$' | head -1) || fail "no window"
  xdotool windowfocus --sync "$window"
}
quit() {  # File > quit
  click 26 759; click 44 731
  wait "$pid" && status=0 || status=$?
  [ "$status" = 0 ] || fail "quit ended with status $status"
}

start
sleep 2
[ ! -s out.txt ] || fail "the briefing screen showed before the language was chosen"
xdotool key Return
await "screen departure=$first destination=$first aircraft=untitled.acf altitude=5000 briefed=0"

click 47 684; sleep 1              # the aircraft button opens the chooser on the Aircraft folder
click 465 344                      # two rows above the middle one: C172SP.acf
await "aircraft=C172SP.acf altitude=5000"
click 309 377                      # the departure picker's code field
xdotool type --delay 80 KSEA
await "departure=KSEA destination=$first aircraft=C172SP.acf"
click 691 684                      # the briefing button
await "departure=KSEA .* briefed=1"

click 26 759; click 100 745        # File > write the briefing
sleep 1
[ ! -e Vocalog.txt ] || fail "the file was written before the note alert was closed"
xdotool key Return
for _ in $(seq 50); do [ -s Vocalog.txt ] && break; sleep 0.1; done
[ "$(tr -cd '\n' < Vocalog.txt | wc -c)" = 8 ] || fail "Vocalog.txt does not hold eight line ends"
grep -q "Seattle-Tacoma" Vocalog.txt || fail "Vocalog.txt is not a briefing from KSEA"
grep -q "this is N172SP, a C172SP" Vocalog.txt || fail "the introduction does not name the chosen aircraft"
quit
prefs="$XDG_DATA_HOME/Zephyra/Corvane 6 Language & Res.prf"
[ "$(od -An -tx1 -j21 -N4 "$prefs" | tr -d ' ')" = 00000000 ] || fail "language 0 was not saved"

start                              # a second start goes straight to the briefing screen
await "screen departure=$first"
quit

status=0                           # no display: said, and status 1 (not an invisible window)
env -u DISPLAY -u WAYLAND_DISPLAY timeout -s KILL 30 "$program" > /dev/null 2> err.txt || status=$?
[ "$status" = 1 ] || fail "without a display the program ended with status $status"
grep -q "no display" err.txt || fail "without a display the program did not say so"
echo "vocalog: chooser, pickers, briefing, file and quit all worked in a real window"
