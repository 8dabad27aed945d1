#!/usr/bin/env bash
# Prints the tests' share of the code: non-blank lines of the C++ files under tests/ against
# those of the C++ sources outside tests/, bench/ and tools/ (the files git tracks or would track).
# tests/tools tests the generators under tools/, which the code count leaves out, so it is
# counted apart.
set -euo pipefail
cd "$(dirname "$0")/.."
files() { git ls-files --cached --others --exclude-standard -- '*.cpp' '*.h' | sort -u; }
count() { local n=0 f; while read -r f; do [ -f "$f" ] && n=$((n + $(grep -cv '^[[:space:]]*$' "$f" || true))); done; echo "$n"; }
tests=$(files | grep '^tests/' | grep -v '^tests/tools/' | count)
tools=$(files | grep '^tests/tools/' | count)
code=$(files | grep -v -e '^tests/' -e '^bench/' -e '^tools/' | count)
echo "tests lines: $tests"
echo "code lines:  $code"
awk -v t="$tests" -v c="$code" 'BEGIN { printf "tests share: %.1f %%\n", 100 * t / c }'
awk -v t="$tools" -v a="$tests" -v c="$code" \
    'BEGIN { printf "(tests/tools, apart: %d lines; with them %.1f %%)\n", t, 100 * (a + t) / c }'
