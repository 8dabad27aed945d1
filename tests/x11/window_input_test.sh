#!/usr/bin/env bash
# Real X input through the whole window path: a pointer click and keys typed with xdotool
# into vocalog-gl-check's window on a private Xvfb display must reach the program as the
# key classes, key codes, design-unit clicks and typed text below.
# usage: window_input_test.sh GL_CHECK_PROGRAM   (runs itself under xvfb-run)
set -euo pipefail
program=$1
if [ -z "${VOCALOG_IN_XVFB:-}" ]; then
  export VOCALOG_IN_XVFB=1
  exec xvfb-run -a -s "-screen 0 1024x768x24" "$0" "$@"
fi
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cd "$work"
ASAN_OPTIONS=detect_leaks=0 "$program" --input 30 shot.ppm > out.txt 2> err.txt &
pid=$!
for _ in $(seq 200); do grep -q '^ready' out.txt && break; sleep 0.1; done
window=$(xdotool search --name '^Corvane$' | head -1)
xdotool windowfocus --sync "$window"
xdotool mousemove 100 668 click 1          # window pixels, y down: design units (100, 100)
sleep 0.3
xdotool type --delay 50 'aB1!'
xdotool key BackSpace Left shift+Up ctrl+c F1 KP_1 minus period
wait "$pid" || { echo "the program failed:"; cat out.txt err.txt; exit 1; }

expected=$(printf '%s\n' 'click 100 100' \
  'key 0 97' 'key 0 16' 'key 0 66' 'key 0 49' 'key 0 16' 'key 0 33' 'key 0 8' \
  'key 1 31488' 'key 0 16' 'key 1 50000' 'key 3 17' 'key 3 99' 'key 0 112' 'key 1 21248' \
  'key 0 45' 'key 0 46' "typed \"aB1$(printf '\021')cpa.\"")
actual=$(sed -n '/^ready$/,$p' out.txt | tail -n +2)
if [ "$actual" != "$expected" ]; then
  echo "window input differs from what was typed:"
  diff <(echo "$expected") <(echo "$actual") || true
  cat err.txt
  exit 1
fi
echo "window input: $(echo "$actual" | wc -l) events as typed"
