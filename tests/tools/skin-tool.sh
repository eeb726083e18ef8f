#!/usr/bin/env bash
# velmarin-skin from the command line: a pack run twice gives the same bytes, lint says "ok" for a
# good package and one line per problem for a bad one, and every wrong command line is one error
# line with status 2.
# Usage: skin-tool.sh VELMARIN_SKIN
set -uo pipefail
tool=$(cd "$(dirname "$1")" && pwd)/$(basename "$1")
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
failures=0
fail() { echo "FAIL $*"; failures=$((failures + 1)); }
check() { # NAME EXPECTED_STATUS EXPECTED_TEXT COMMAND...
  local name=$1 status=$2 text=$3; shift 3
  (cd "$work" && "$@") >"$work/out" 2>"$work/err"
  local got=$?
  local said
  said=$(cat "$work/out" "$work/err")
  if [ "$got" != "$status" ] || [[ "$said" != *"$text"* ]]; then
    fail "$name: status $got, said: $said"
  elif [ "$status" = 2 ] && [ "$(wc -l <"$work/err")" != 1 ]; then
    fail "$name: error is not one line: $(cat "$work/err")"
  fi
}

mkdir -p "$work/Big"
cat >"$work/Big/skin.xml" <<'XML'
<PluginEditor><Panel name="MainPanel"><Knob><gfx resource="Knob.png" framesNum="2"/></Knob></Panel></PluginEditor>
XML
# A 1 x 2 PNG: two frames of one pixel.
printf '\211\120\116\107\015\012\032\012\000\000\000\015\111\110\104\122\000\000\000\001\000\000\000\002\010\006\000\000\000\231\201\266\047\000\000\000\016\111\104\101\124\170\234\143\370\317\300\000\106\377\001\022\367\003\375\331\263\037\055\000\000\000\000\111\105\116\104\256\102\140\202' >"$work/Big/Knob.png"

check "pack" 0 "bytes" "$tool" pack Big Big.q41skin
cp "$work/Big.q41skin" "$work/first.q41skin"
touch -d '2030-01-01' "$work/Big/Knob.png"
check "pack again" 0 "bytes" "$tool" pack Big Big.q41skin
cmp -s "$work/Big.q41skin" "$work/first.q41skin" || fail "two pack runs gave different bytes"
check "lint a good package" 0 "Big.q41skin: ok" "$tool" lint Big.q41skin

sed -i 's/framesNum="2"/framesNum="3"/' "$work/Big/skin.xml"
check "pack a faulty skin" 0 "bytes" "$tool" pack Big Bad.q41skin
check "lint names the fault" 1 "Bad.q41skin: Knob.png: height 2 is not divided by 3 frames" "$tool" lint Bad.q41skin Big.q41skin
[ "$(grep -c . "$work/out")" = 2 ] || fail "lint of two packages is not two lines: $(cat "$work/out")"
echo "not a zip" >"$work/Text.q41skin"
check "lint a text file" 1 "Text.q41skin: not a skin package" "$tool" lint Text.q41skin
check "lint a missing file" 1 "Nowhere.q41skin: no such file" "$tool" lint Nowhere.q41skin

check "no arguments" 2 "usage:" "$tool"
check "unknown command" 2 "usage:" "$tool" unpack Big.q41skin
check "pack without output" 2 "usage:" "$tool" pack Big
check "pack to another extension" 2 "must be named" "$tool" pack Big Big.zip
check "pack a missing folder" 1 "not a folder" "$tool" pack Nowhere Big.q41skin

[ $failures -eq 0 ] && echo "skin tool: all checks passed"
exit $failures
