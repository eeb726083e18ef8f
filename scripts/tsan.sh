#!/usr/bin/env bash
# The thread stress under ThreadSanitizer: builds the reliability tests in build-tsan (JUCE and the
# project's code instrumented; no plug-in, tools or benchmarks) and runs the stress for the given
# number of seconds (default 60). Only the races listed in tests/reliability/tsan.supp, which the
# design accepts, are tolerated; any other report stops the run and the script fails.
#
# Usage: scripts/tsan.sh [seconds]     JOBS=n: build parallelism (default all cores); BUILD_DIR: build folder.
set -euo pipefail

root=$(cd "$(dirname "$0")/.." && pwd)
seconds=${1:-60}
build=${BUILD_DIR:-$root/build-tsan}

# Sign with the plain build's package key when there is one, instead of making a new key.
key_option=()
if [[ -f "$root/build/package-key/velmarin-package.key" ]]; then
  key_option=(-DVELMARIN_PACKAGE_KEY="$root/build/package-key/velmarin-package.key")
fi

cmake -S "$root" -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo -DVELMARIN_TSAN=ON \
  -DVELMARIN_BUILD_PLUGIN=OFF -DVELMARIN_BUILD_TOOLS=OFF -DVELMARIN_BUILD_BENCHMARKS=OFF \
  "${key_option[@]}" >"$build.configure.log" 2>&1 || { cat "$build.configure.log"; exit 1; }
cmake --build "$build" --target reliability_tests -j"${JOBS:-$(nproc)}"

echo "== thread stress under ThreadSanitizer, $seconds s"
VELMARIN_STRESS_SECONDS="$seconds" \
TSAN_OPTIONS="suppressions=$root/tests/reliability/tsan.supp halt_on_error=1 second_deadlock_stack=1 history_size=7" \
  "$build/tests/reliability/reliability_tests" --gtest_filter='Stress.*'
echo "== no race beyond the accepted ones"
