#!/usr/bin/env bash
# Adds up the lines "figure: KIND of WHAT: N tried, M violations" of test logs. Usage: scripts/figures.sh LOG...
set -euo pipefail
awk '
  /^figure: / {
    print substr($0, 9)
    if (match($0, /: [0-9]+ tried, [0-9]+ violations/)) {
      split(substr($0, RSTART + 2, RLENGTH), words, " ")
      kind = substr($0, 9, RSTART - 9)
      sub(/ (of|among) .*/, "", kind)
      tried[kind] += words[1]
      violations[kind] += words[3]
    }
  }
  END {
    print "in all:"
    for (kind in tried) printf "  %s: %d tried, %d violations\n", kind, tried[kind], violations[kind]
  }' "$@"
