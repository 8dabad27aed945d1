#!/usr/bin/env bash
# The file chooser in a real X window: xdotool presses the aircraft file button of
# vocalog-chooser-check on a private Xvfb display, walks into a folder and picks a file, climbs
# with the up button as far as it goes, cancels, and walks two folders down with Return.
# usage: file_chooser_test.sh CHOOSER_PROGRAM [screenshot.ppm]   (runs itself under xvfb-run)
set -euo pipefail
program=$1
shot=${2:-}
if [ -z "${VOCALOG_IN_XVFB:-}" ]; then
  export VOCALOG_IN_XVFB=1
  exec xvfb-run -a -s "-screen 0 1024x768x24" "$0" "$@"
fi
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
export HOME=$work XDG_DATA_HOME=$work/data   # the program's preference files stay in here
cd "$work"
ASAN_OPTIONS=detect_leaks=0 "$program" 60 ${shot:+"$shot"} > out.txt 2> err.txt &
pid=$!
# A fresh per-user folder: start-up first asks for the language; Return accepts English.
for _ in $(seq 300); do xdotool search --name '^Corvane$' > /dev/null 2>&1 && break; sleep 0.1; done
sleep 1
xdotool key Return
for _ in $(seq 300); do grep -q '^ready' out.txt && break; sleep 0.1; done
prog=$(sed -n 's/^ready //p' out.txt)
[ -n "$prog" ] || { echo "the program did not start:"; cat out.txt err.txt; kill "$pid" 2>/dev/null; exit 1; }
window=$(xdotool search --name '^Corvane$' | head -1)
xdotool windowfocus --sync "$window"

# Window pixels, y down. The open dialog's panel lies at (337, 156) in design units, so a panel
# point (x, y) is pixel (337 + x, 612 - y); list rows are 10 units apart around y = 168.
press() { xdotool mousemove "$1" "$2" click 1; sleep 0.4; }
button() { press 283 368; sleep 0.4; }    # the file button's hot spot, left of the name
row() { press 465 $((444 + 10 * $1)); }   # k rows below the selected one
up() { press 500 325; }
cancel() { press 500 560; }
enter() { xdotool key Return; sleep 0.4; }

button; sleep 0.6                      # Aircraft: Baron58, C172SP, CitationCJ4, [Jets], KingAir350, Singles, Twins
row 2                                  # into Singles: M20J Mooney, [PA28-181 Archer]
row -1                                 # picks M20J Mooney
button; up; up; up; cancel             # one step up to the program folder, no further; cancel
button; enter; enter; enter            # Return into Jets, Business, then picks Learjet 45
xdotool type '.'
wait "$pid" || { echo "the program failed:"; cat out.txt err.txt; exit 1; }

a=${prog}Aircraft
expected=$(printf '%s\n' 'screen 998' "folder $a/" ${shot:+"shot $shot"} "folder $a/Singles/" \
  "button M20J Mooney.acf|$a/Singles/M20J Mooney.acf" 'screen 0' \
  'screen 998' "folder $a/" "folder $prog" "button M20J Mooney.acf|$a/Singles/M20J Mooney.acf" 'screen 0' \
  'screen 998' "folder $a/" "folder $a/Jets/" "folder $a/Jets/Business/" \
  "button Learjet 45.acf|$a/Jets/Business/Learjet 45.acf" 'screen 0')
actual=$(sed -n '/^ready/,$p' out.txt | tail -n +2)
if [ "$actual" != "$expected" ]; then
  echo "the chooser did not answer as expected:"
  diff <(echo "$expected") <(echo "$actual") || true
  cat err.txt
  exit 1
fi
echo "file chooser: $(echo "$actual" | grep -c '^button') choices through $(echo "$actual" | grep -c '^folder') folders"
