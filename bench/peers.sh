#!/usr/bin/env bash
# Times Velmarin against two LV2 flangers from Debian on the same length of audio, at the same rate
# and block size, in one run, and prints the ratios.
#   Velmarin: the render tool's --bench (stereo demo phrase; default settings, then the worst case
#             at "Ultra").
#   Peers:    lv2bench (lilv-utils) with the Calf Flanger (stereo) and the SWH Retro Flanger (mono),
#             at their default controls. lv2bench runs at 48000 Hz and feeds silence; neither peer
#             takes a shortcut on silence, so their cost does not depend on the input.
# Usage: bench/peers.sh [SECONDS]   (default 60; root installs the peers through scripts/setup.sh)
set -euo pipefail

root=$(cd "$(dirname "$0")/.." && pwd)
cd "$root"
seconds=${1:-60}
rate=48000
block=512
frames=$((seconds * rate))

bash scripts/setup.sh --peers
render=build/tools/velmarin-render/velmarin-render
if [ ! -x "$render" ]; then
  cmake -S . -B build -G Ninja -DCMAKE_BUILD_TYPE=Release >/dev/null
  cmake --build build --target velmarin-render
fi

folders=$(mktemp -d)
trap 'rm -rf "$folders"' EXIT

velmarin() {
  "$render" --user-dir "$folders/user" --data-dir "$folders/data" --rate "$rate" --seconds "$seconds" \
    --block "$block" --bench "$@" | sed -n 's/.*cpu_seconds=\([0-9.]*\).*/\1/p'
}
peer() {
  lv2bench -b "$block" -n "$frames" "$1" 2>/dev/null | awk 'NF == 2 { print $1 }'
}

default=$(velmarin)
worst=$(velmarin --quality Ultra --set "BBD Length=512" --set "BBD Frequency Range=1" \
  --set "LFO Depth L/M=0" --set "Delay Offset L/M=0")
calf=$(peer http://calf.sourceforge.net/plugins/Flanger)
swh=$(peer http://plugin.org.uk/swh-plugins/retroFlange)

echo "$seconds s of audio at $rate Hz in blocks of $block, $(date -u +%Y-%m-%d), $(nproc) cores"
printf '%-44s %10s %12s %16s\n' "plug-in" "cpu s" "x real time" "cost / Velmarin"
line() {
  awk -v name="$1" -v cpu="$2" -v s="$seconds" -v ref="$default" \
    'BEGIN { printf "%-44s %10.4f %12.1f %15.2fx\n", name, cpu, s / cpu, cpu / ref }'
}
line "Velmarin, default settings (stereo)" "$default"
line "Velmarin, worst case at Ultra (stereo)" "$worst"
line "Calf Flanger (stereo)" "$calf"
line "SWH Retro Flanger (mono)" "$swh"
