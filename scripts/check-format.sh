#!/usr/bin/env bash
# Checks that every C++ source of the project is formatted by the root .clang-format. Prints the
# files that are not and exits 1; `scripts/check-format.sh --fix` formats them in place.
set -euo pipefail
cd "$(dirname "$0")/.."
mapfile -d '' files < <(find src tests tools bench \( -name '*.cpp' -o -name '*.h' \) -print0 | sort -z)
if [ "${1:-}" = "--fix" ]; then
  clang-format -i "${files[@]}"
  exit 0
fi
status=0
for f in "${files[@]}"; do
  if ! clang-format "$f" | cmp -s - "$f"; then
    echo "not formatted: $f (bash scripts/check-format.sh --fix)"
    status=1
  fi
done
[ $status -eq 0 ] && echo "format: all ${#files[@]} C++ files follow .clang-format"
exit $status
