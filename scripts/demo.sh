#!/usr/bin/env bash
# The main job: sets up, builds the plug-in and the renderer, and renders the built-in demo phrase
# through Velmarin. Prints the path of the WAV file it wrote. Extra arguments go to velmarin-render.
set -euo pipefail

root=$(cd "$(dirname "$0")/.." && pwd)
cd "$root"

bash scripts/setup.sh
cmake --preset release >build.configure.log 2>&1 \
  || { cat build.configure.log; exit 1; }
cmake --build build -j"$(nproc)" >build.log 2>&1 || { tail -n 40 build.log; exit 1; }

mkdir -p out
output="$root/out/velmarin-demo.wav"
build/tools/velmarin-render/velmarin-render --out "$output" "$@"
echo "$output"
