#!/usr/bin/env bash
# Two Velmarin instances in Ardour, without a display: Ardour's headless Lua host (ardour7-lua)
# makes a session on its dummy audio backend, puts two instances of the built LV2 plug-in on one
# stereo track, plays three seconds, saves, closes, opens the session again (both instances come
# back from their saved state) and plays two more seconds. Ardour builds its plug-ins on its own
# threads while JUCE's message thread runs, and each instance makes its editor at start-up: a
# deadlock there shows as the time limit running out. Ardour comes from `scripts/setup.sh --hosts`.
#
# Usage: scripts/ardour.sh [BUILD_DIR]     (default build)
set -euo pipefail

root=$(cd "$(dirname "$0")/.." && pwd)
build=${1:-$root/build}
bundle="$build/Velmarin_artefacts/Release/LV2/Velmarin.lv2"
[[ -d "$bundle" ]] || { echo "ardour: no LV2 bundle at $bundle (build first)" >&2; exit 1; }
command -v ardour7-lua >/dev/null || { echo "ardour: ardour7-lua not found (run scripts/setup.sh --hosts as root)" >&2; exit 1; }

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
mkdir -p "$work/lv2" "$work/home"
ln -s "$bundle" "$work/lv2/Velmarin.lv2"
uri=$(grep -m 1 -o '^<[^>]*>' "$bundle/manifest.ttl" | tr -d '<>')

cat >"$work/two-instances.lua" <<LUA
AudioEngine:set_backend("None (Dummy)", "", "")

local function instances(route)
  local n, i = 0, 0
  while not route:nth_plugin(i):isnil() do
    if route:nth_plugin(i):display_name() == "Velmarin" then n = n + 1 end
    i = i + 1
  end
  return n
end

local function play(seconds)
  local from = Session:transport_sample()
  Session:request_roll(ARDOUR.TransportRequestSource.TRS_UI)
  ARDOUR.LuaAPI.usleep(seconds * 1000000)
  Session:request_stop(false, false, ARDOUR.TransportRequestSource.TRS_UI)
  ARDOUR.LuaAPI.usleep(200000)
  return Session:transport_sample() - from
end

assert(create_session("$work/session", "two", 48000), "no session")
local track = Session:new_audio_track(2, 2, nil, 1, "Flanged", ARDOUR.PresentationInfo.max_order,
                                      ARDOUR.TrackMode.Normal, true):front()
for i = 1, 2 do
  local plugin = ARDOUR.LuaAPI.new_plugin(Session, "$uri", ARDOUR.PluginType.LV2, "")
  assert(not plugin:isnil(), "Ardour does not find the plug-in")
  track:add_processor_by_index(plugin, -1, nil, true)
end
assert(instances(track) == 2, "two instances on the track")
local first = play(3)
assert(first > 0, "the session did not play")
Session:save_state("", false, false, false, false, false)
close_session()

assert(load_session("$work/session", "two"), "the saved session does not open")
local reloaded = Session:route_by_name("Flanged")
assert(not reloaded:isnil() and instances(reloaded) == 2, "both instances come back")
local second = play(2)
assert(second > 0, "the reopened session did not play")
close_session()
print(string.format("ardour: two instances played %d samples, saved, reopened and played %d more", first, second))
LUA

status=0
HOME="$work/home" LV2_PATH="$work/lv2" timeout 180 ardour7-lua "$work/two-instances.lua" >"$work/log" 2>&1 || status=$?
if [[ $status -ne 0 ]]; then
  tail -n 20 "$work/log"
  echo "ardour: the two-instance session failed or hung (exit $status)" >&2
  exit 1
fi
grep '^ardour:' "$work/log"
