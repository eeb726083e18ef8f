#!/usr/bin/env bash
# The test command: sets up, checks the layer order of the source folders and the formatting, builds, runs every unit test (plain, and with AddressSanitizer and
# UndefinedBehaviorSanitizer in a clang build), runs every fuzz target briefly on its corpus, then
# validates the VST3 and LV2 plug-ins with pluginval at strictness 10 (VST3 also in a random test
# order). Exits non-zero on any failure.
set -euo pipefail

root=$(cd "$(dirname "$0")/.." && pwd)
cd "$root"
jobs=$(nproc)
shared="$root/../shared"

bash scripts/setup.sh

echo "== layer order of the source folders, and formatting"
bash scripts/check-layers.sh
bash scripts/check-format.sh

echo "== build (Release)"
cmake --preset release >build.configure.log 2>&1 \
  || { cat build.configure.log; exit 1; }
cmake --build build -j"$jobs"

echo "== unit tests"
ctest --test-dir build --output-on-failure -j"$jobs"

echo "== unit tests with AddressSanitizer and UndefinedBehaviorSanitizer (clang, fuzz targets included)"
# One clang build serves the sanitized unit tests and the libFuzzer targets. It signs with the plain
# build's package key instead of making its own. A folder configured by another compiler is remade.
if [ -f build-sanitize/CMakeCache.txt ] && ! grep -q '^CMAKE_CXX_COMPILER:[A-Z]*=.*clang' build-sanitize/CMakeCache.txt; then
  rm -rf build-sanitize
fi
cmake --preset sanitize >build-sanitize.configure.log 2>&1 \
  || { cat build-sanitize.configure.log; exit 1; }
cmake --build build-sanitize -j"$jobs"
ASAN_OPTIONS=detect_leaks=1:abort_on_error=1 UBSAN_OPTIONS=print_stacktrace=1:halt_on_error=1 \
  ctest --test-dir build-sanitize --output-on-failure -j"$jobs"

echo "== fuzzing, a few seconds per target on its committed corpus"
bash scripts/fuzz.sh --build-dir build-sanitize --seconds "${VELMARIN_FUZZ_SECONDS:-7}"

echo "== pluginval, strictness 10 (VST3 and LV2)"
# Built inside this tree's build folder so that a cache left by another checkout of the validator's
# sources can never get in the way; ccache makes the rebuild on a later run quick.
pvdir="$root/build/pluginval"
launcher=$(command -v ccache || true)
if ! pluginval=$(CMAKE_C_COMPILER_LAUNCHER="$launcher" CMAKE_CXX_COMPILER_LAUNCHER="$launcher" \
    bash "$shared/tools/pluginval/build.sh" "$pvdir"); then
  tail -n 40 "$pvdir.configure.log" "$pvdir.build.log" 2>/dev/null || true
  echo "pluginval could not be built"; exit 1
fi
artefacts="$root/build/Velmarin_artefacts/Release"
# Every instance pluginval makes keeps its settings in a private folder, never the user's own: the
# plug-in finds its user folder under HOME, so each run gets a private one.
pvhome=$(mktemp -d)
lv2home=$(mktemp -d)
trap 'rm -rf "$pvhome" "$lv2home"' EXIT
# The editor's tests open and close the window in a real loader: they run on a virtual display.
display=(xvfb-run -a -s "-screen 0 1920x1080x24")
HOME="$pvhome" "${display[@]}" "$pluginval" --strictness-level 10 --validate "$artefacts/VST3/Velmarin.vst3" \
  >build/pluginval-vst3.log 2>&1 || { tail -n 60 build/pluginval-vst3.log; echo "pluginval failed on VST3"; exit 1; }
echo "VST3: $(tail -n 1 build/pluginval-vst3.log)"
# The same in a random order, twenty times over. The seed is one whose order once caught a host
# write dropped by the VST3 wrapper (see docs/RELIABILITY.md).
HOME="$pvhome" "${display[@]}" "$pluginval" --strictness-level 10 --randomise --repeat 20 --random-seed 0x200d79e4 \
  --validate "$artefacts/VST3/Velmarin.vst3" >build/pluginval-vst3-random.log 2>&1 \
  || { grep -n '!!!' build/pluginval-vst3-random.log | head -n 20; tail -n 20 build/pluginval-vst3-random.log
       echo "pluginval failed on VST3 in random order"; exit 1; }
echo "VST3, random order: $(tail -n 1 build/pluginval-vst3-random.log)"
# pluginval finds LV2 plug-ins by URI in ~/.lv2: give it a private home holding the built bundle.
mkdir -p "$lv2home/.lv2"
ln -s "$artefacts/LV2/Velmarin.lv2" "$lv2home/.lv2/Velmarin.lv2"
# The plug-in's URI as the build wrote it into the bundle's manifest.
lv2uri=$(grep -m 1 -o '^<[^>]*>' "$artefacts/LV2/Velmarin.lv2/manifest.ttl" | tr -d '<>')
HOME="$lv2home" "${display[@]}" "$pluginval" --strictness-level 10 --validate "$lv2uri" \
  >build/pluginval-lv2.log 2>&1 || { tail -n 60 build/pluginval-lv2.log; echo "pluginval failed on LV2"; exit 1; }
echo "LV2: $(tail -n 1 build/pluginval-lv2.log)"

echo "== all tests passed"
