#!/usr/bin/env bash
# Shows why pluginval's "Plugin state restoration" fails on the LV2 build when its tests run in a
# random order, and that the fault lies in the validator's LV2 host (JUCE 7.0.5's), not in the
# plug-in. Run after scripts/test.sh has built the plug-in and pluginval:
#
#   bash scripts/lv2-state-restoration-repro.sh
#
# The test reads the state, then for each parameter: notes the host's value, sets a random value
# through the host's parameter object, restores the state and expects the noted value back.
# JUCE's LV2 host keeps parameters that a plug-in declares as lv2:Parameter (JUCE's LV2 client
# declares all of them so) in a cache of its own and sends a new value to the plug-in only in the
# next run() call; setStateInformation refreshes that cache from control ports only. So with no
# audio processed in between, the set value never reaches the plug-in and the restore never
# reaches the cache: the host reads back the value it set itself. The script runs the seeded
# random order under gdb and prints, for that test, the writes that reached the plug-in (none)
# and the host parameters whose cached value the restore refreshed (only the bypass port).
# In pluginval's own order the test passes only because the test before it ("Plugin state") draws
# the same random values from the same seed.
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
pluginval="$root/build/pluginval/pluginval_artefacts/Release/pluginval"
bundle="$root/build/Velmarin_artefacts/Release/LV2/Velmarin.lv2"
[ -x "$pluginval" ] && [ -d "$bundle" ] || { echo "build first: bash scripts/test.sh" >&2; exit 2; }
uri=$(grep -m 1 -o '^<[^>]*>' "$bundle/manifest.ttl" | tr -d '<>')
command -v gdb >/dev/null || { echo "gdb is needed" >&2; exit 2; }

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
mkdir -p "$work/home/.lv2"
ln -s "$bundle" "$work/home/.lv2/Velmarin.lv2"
cat >"$work/gdb" <<'GDB'
set pagination off
set breakpoint pending on
break HostParameter::setValue
commands
silent
printf "PLUGIN-RECEIVED-WRITE\n"
continue
end
break juce::lv2_host::LV2AudioPluginInstance::applyStateWithAppropriateLocking
commands
silent
printf "HOST-RESTORES-STATE\n"
continue
end
break juce::AudioProcessorParameter::sendValueChangedMessageToListeners
commands
silent
printf "HOST-CACHE-REFRESHED\n"
continue
end
run
GDB
HOME="$work/home" \
  gdb -batch -x "$work/gdb" --args "$pluginval" --strictness-level 10 --skip-gui-tests --randomise \
  --random-seed 0x200d79e4 --validate "$uri" >"$work/log" 2>&1 || true

# The first "Plugin state restoration" of the run, up to the start of the next test.
awk '/Starting tests in: pluginval \/ / { if (on) exit; if ($0 ~ /Plugin state restoration/) on = 1 } on { print }' \
  "$work/log" >"$work/test"
echo "failures reported:          $(grep -c '^!!!' "$work/test" || true)"
echo "state restores by the host: $(grep -c 'HOST-RESTORES-STATE' "$work/test" || true)"
echo "writes that reached the plug-in during the test: $(grep -c 'PLUGIN-RECEIVED-WRITE' "$work/test" || true)"
echo "host cache entries refreshed during the test: $(grep -c 'HOST-CACHE-REFRESHED' "$work/test" || true) (one per restore: the bypass port, a control port)"
grep -m 3 '^!!!' "$work/test" || true
