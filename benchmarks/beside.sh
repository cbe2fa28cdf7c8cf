#!/usr/bin/env bash
# The balance and an account card out of 800,000 rows of a journal, beside what ledger and sqlite3 take for the
# same data, where they are installed. Usage: benchmarks/beside.sh (after ./bench has built bench_books)
set -euo pipefail
cd "$(dirname "$0")/.."
program=build/release/bin/bench_books
[ -x "$program" ] || { echo "build $program first: ./bench" >&2; exit 1; }
folder=$(mktemp -d -p "$([ -d /dev/shm ] && echo /dev/shm || echo /tmp)" tarvex-beside-XXXXXX)
trap 'rm -rf "$folder"' EXIT

# The rows of bench_books: entries of five lines that balance, over two thousand accounts.
python3 - "$folder" <<'PYTHON'
import sys
folder = sys.argv[1]
with open(folder + "/rows.csv", "w") as table, open(folder + "/journal.ledger", "w") as journal:
    for row in range(800_000):
        entry, line = row - row % 5, row % 5
        day = "2003-%02d-%02d" % (1 + row // (800_000 // 12 + 1), 1 + row // 2400 % 28)
        account = 100 + row * 7919 % 2000
        amount = 4 * (entry % 997 + 1) if line == 0 else -(entry % 997 + 1)
        if line == 0:
            journal.write("\n%s * Fattura n. %d\n" % (day.replace("-", "/"), entry // 5))
        journal.write("    Conto:%05d    %d.00\n" % (account, amount))
        table.write("%s,%05d,%d\n" % (day, account, amount))
PYTHON

seconds() { local start; start=$(date +%s.%N); "$@" >/dev/null; echo "$(date +%s.%N) $start" | awk '{printf "%.2f s\n", $1 - $2}'; }

TMPDIR=$(dirname "$folder") "$program" --benchmark_filter='theBalance|anAccountCard' 2>/dev/null | grep -E '^(the|an)'
if command -v sqlite3 >/dev/null; then
  sqlite3 "$folder/rows.db" 'create table mc(day text, account text, amount real)' \
    ".mode csv" ".import $folder/rows.csv mc" 'create index byAccount on mc(account, day)'
  printf 'sqlite3: balance '; seconds sqlite3 "$folder/rows.db" 'select account, sum(amount) from mc group by account'
  printf 'sqlite3: card    '; seconds sqlite3 "$folder/rows.db" "select * from mc where account = '00777' order by day"
fi
if command -v ledger >/dev/null; then
  printf 'ledger:  balance '; seconds ledger -f "$folder/journal.ledger" balance
  printf 'ledger:  card    '; seconds ledger -f "$folder/journal.ledger" register '^Conto:00777'
fi
