#!/usr/bin/env bash
# velmarin-package from the command line: key sizes below the floor are refused where keys are
# made, where packages are signed and where the build takes a key; an existing key is never
# overwritten; the build's public key file alone verifies the build's package; errors are one line.
# Usage: package-tool.sh VELMARIN_PACKAGE BUILD_PRESETS_DIR FACTORY_SOURCES_DIR
set -uo pipefail
tool=$1 presets=$2 sources=$3
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
failures=0
check() { # NAME EXPECTED_STATUS EXPECTED_TEXT COMMAND...
  local name=$1 status=$2 text=$3; shift 3
  "$@" >"$work/out" 2>"$work/err"
  local got=$?
  local said
  said=$(cat "$work/out" "$work/err")
  if [ "$got" != "$status" ] || [[ "$said" != *"$text"* ]]; then
    echo "FAIL $name: status $got, said: $said"; failures=$((failures + 1))
  elif [ "$status" != 0 ] && [ "$(wc -l <"$work/err")" != 1 ]; then
    echo "FAIL $name: error is not one line: $(cat "$work/err")"; failures=$((failures + 1))
  fi
}

# A 272-bit key, far below the floor (the fuzz targets' own key).
cat >"$work/weak.key" <<'KEY'
public=10001,aa96e0b61a14ee1bbfdc0515cca37704caf267bc3fe303e898aae48014511d08316d
private=48b94794fa6b7fd2dea90a95ef86a47faadeb2433f00c5b5934db8ad14252283e3b5,aa96e0b61a14ee1bbfdc0515cca37704caf267bc3fe303e898aae48014511d08316d
KEY
check "keygen below the floor" 2 "from 2048" "$tool" keygen --bits 1024 --out "$work/new.key"
[ -e "$work/new.key" ] && { echo "FAIL a refused keygen wrote a key"; failures=$((failures + 1)); }
check "keygen over an existing key" 2 "never overwritten" "$tool" keygen --out "$work/weak.key"
grep -q '^public=10001,aa96' "$work/weak.key" || { echo "FAIL the existing key changed"; failures=$((failures + 1)); }
check "keygen keeping an existing key" 0 "" "$tool" keygen --keep-existing --out "$work/weak.key"
check "signing with a weak key" 2 "272 bits" "$tool" build --key "$work/weak.key" --presets "$sources" --out "$work/weak.q41pkg"
[ -e "$work/weak.q41pkg" ] && { echo "FAIL a weak key signed a package"; failures=$((failures + 1)); }
check "the build taking a weak key" 2 "at least 2048" "$tool" public-key --key "$work/weak.key" --cpp "$work/key.cpp"

count=$(find "$sources" -maxdepth 1 -name '*.vmprs2' | wc -l)
check "verify with the public key file" 0 ": $count entries" "$tool" verify --key "$presets/velmarin-package.pub" "$presets/Velmarin Factory.q41pkg"
grep -q '^private=' "$presets/velmarin-package.pub" && { echo "FAIL the public key file holds the secret"; failures=$((failures + 1)); }
check "verify a missing file" 2 "no such file" "$tool" verify --key "$presets/velmarin-package.pub" "$work/missing.q41pkg"
check "verify with another key" 2 "not a package signed with this key" "$tool" verify --key "$work/weak.key" "$presets/Velmarin Factory.q41pkg"
check "help" 0 "Usage" "$tool" --help
check "unknown command" 2 "unknown command" "$tool" frobnicate
exit $((failures > 0))
