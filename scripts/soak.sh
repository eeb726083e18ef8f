#!/usr/bin/env bash
# The long soak: builds the reliability tests (Release, in build-soak) and drives one instance
# through 600 s of audio (or the number of seconds given), printing blocks and CPU time per sample
# for every minute of audio. From 600 s on, the test also checks that the cost stays flat.
#
# Usage: scripts/soak.sh [seconds]     JOBS=n: build parallelism (default all cores); BUILD_DIR: build folder.
set -euo pipefail

root=$(cd "$(dirname "$0")/.." && pwd)
seconds=${1:-600}
build=${BUILD_DIR:-$root/build-soak}

key_option=()
if [[ -f "$root/build/package-key/velmarin-package.key" ]]; then
  key_option=(-DVELMARIN_PACKAGE_KEY="$root/build/package-key/velmarin-package.key")
fi

cmake -S "$root" -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=Release \
  -DVELMARIN_BUILD_PLUGIN=OFF -DVELMARIN_BUILD_TOOLS=OFF -DVELMARIN_BUILD_BENCHMARKS=OFF \
  "${key_option[@]}" >"$build.configure.log" 2>&1 || { cat "$build.configure.log"; exit 1; }
cmake --build "$build" --target reliability_tests -j"${JOBS:-$(nproc)}"

echo "== soak, $seconds s of audio"
VELMARIN_SOAK_SECONDS="$seconds" "$build/tests/reliability/reliability_tests" --gtest_filter='Soak.*'
