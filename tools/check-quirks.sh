#!/usr/bin/env bash
# Checks docs/quirks.md against the tests: every test it names as pinning a
# quirk or a departure (`Suite.Name`) must exist in tests/, and every row must
# name one unless it says why there is "no unit test".
set -euo pipefail
cd "$(dirname "$0")/.."
doc=docs/quirks.md
status=0
mapfile -t names < <(grep -oE '`[A-Z][A-Za-z0-9_]*\.[A-Z][A-Za-z0-9_]*`' "$doc" | tr -d '`' | sort -u)
for name in "${names[@]}"; do
  suite=${name%%.*}
  test=${name#*.}
  if ! grep -rqE "^TEST(_F|_P)?\($suite, *$test\)" tests; then
    echo "$doc names $name, but no such test is in tests/" >&2
    status=1
  fi
done
while IFS= read -r row; do
  if ! grep -qE '`[A-Z][A-Za-z0-9_]*\.[A-Z][A-Za-z0-9_]*`|no unit test' <<<"$row"; then
    echo "$doc: a row names no pinning test: ${row:0:80}..." >&2
    status=1
  fi
done < <(grep -E '^\| [A-Z]' "$doc" | grep -vE '^\| Subsystem \|')
echo "${#names[@]} pinning tests named in $doc"
exit $status
