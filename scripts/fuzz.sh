#!/usr/bin/env bash
# Builds the libFuzzer targets (clang, AddressSanitizer and UndefinedBehaviorSanitizer, coverage
# instrumentation) and runs each for a fixed time on a scratch copy of its committed corpus.
#
#   scripts/fuzz.sh [--build-dir DIR] [--seconds N] [--no-build] [TARGET...]
#
# TARGET is a name such as state_chunk or preset (all targets when none is given). Each target runs
# in DIR/fuzz-work/TARGET, refilled from tests/fuzz/corpus/TARGET and tests/fuzz/regressions/TARGET
# on every run; crashing inputs go to DIR/fuzz-artifacts/TARGET/. One summary line per target;
# the exit status is non-zero when any target crashed or failed a check. FUZZ_JOBS sets the build's
# parallel jobs (default: all cores).
set -euo pipefail

root=$(cd "$(dirname "$0")/.." && pwd)
build="$root/build-fuzz"
seconds=60
do_build=1
targets=()
all_targets=(state_chunk preset parameters midi_map host_map settings package tags skin_package skin_document)

while [ $# -gt 0 ]; do
  case "$1" in
    --build-dir) build=$(realpath -m "$2"); shift 2 ;;
    --seconds) seconds="$2"; shift 2 ;;
    --no-build) do_build=0; shift ;;
    -h|--help) sed -n '2,12p' "$0" | sed 's/^# \{0,1\}//'; exit 0 ;;
    -*) echo "fuzz.sh: unknown option $1" >&2; exit 2 ;;
    *) targets+=("$1"); shift ;;
  esac
done
[ ${#targets[@]} -gt 0 ] || targets=("${all_targets[@]}")
for t in "${targets[@]}"; do
  [[ " ${all_targets[*]} " == *" $t "* ]] || { echo "fuzz.sh: unknown target $t (${all_targets[*]})" >&2; exit 2; }
done

if [ "$do_build" = 1 ]; then
  if [ ! -f "$build/CMakeCache.txt" ]; then
    launcher=()
    if command -v ccache >/dev/null; then
      launcher=(-DCMAKE_C_COMPILER_LAUNCHER=ccache -DCMAKE_CXX_COMPILER_LAUNCHER=ccache)
    fi
    generator=()
    command -v ninja >/dev/null && generator=(-G Ninja)
    CC=clang CXX=clang++ cmake -S "$root" -B "$build" "${generator[@]}" -DCMAKE_BUILD_TYPE=Release \
      -DVELMARIN_SANITIZE=ON -DVELMARIN_FUZZ=ON -DVELMARIN_BUILD_PLUGIN=OFF -DVELMARIN_BUILD_BENCHMARKS=OFF \
      "${launcher[@]}" >"$build.configure.log" 2>&1 || { cat "$build.configure.log"; exit 1; }
  fi
  cmake --build "$build" -j"${FUZZ_JOBS:-$(nproc)}" --target "${targets[@]/#/fuzz_}"
fi

export ASAN_OPTIONS=${ASAN_OPTIONS:-detect_leaks=1:abort_on_error=1}
export UBSAN_OPTIONS=${UBSAN_OPTIONS:-print_stacktrace=1:halt_on_error=1}

failed=0
for t in "${targets[@]}"; do
  exe="$build/tests/fuzz/fuzz_$t"
  [ -x "$exe" ] || { echo "fuzz.sh: $exe is missing (build with VELMARIN_FUZZ=ON)" >&2; exit 1; }
  work="$build/fuzz-work/$t"
  artifacts="$build/fuzz-artifacts/$t"
  rm -rf "$work" "$artifacts"
  mkdir -p "$work" "$artifacts"
  for source in "$root/tests/fuzz/corpus/$t" "$root/tests/fuzz/regressions/$t"; do
    [ -d "$source" ] && find "$source" -maxdepth 1 -type f ! -name '.*' -exec cp {} "$work/" \;
  done
  seeds=$(find "$work" -type f | wc -l)
  log="$build/fuzz-$t.log"
  status=0
  started=$SECONDS
  "$exe" "$work" -max_total_time="$seconds" -timeout=25 -print_final_stats=1 \
    -artifact_prefix="$artifacts/" >"$log" 2>&1 || status=$?
  elapsed=$(( SECONDS - started ))
  execs=$(sed -n 's/^stat::number_of_executed_units: *//p' "$log" | tail -n 1)
  rate=$(sed -n 's/^stat::average_exec_per_sec: *//p' "$log" | tail -n 1)
  crashes=$(find "$artifacts" -type f | wc -l)
  if [ "$status" -ne 0 ] && [ "$crashes" -eq 0 ]; then crashes=1; fi
  units=$(find "$work" -type f | wc -l)
  cov=$(grep -o 'cov: [0-9]*' "$log" | tail -n 1 | cut -d' ' -f2)
  printf '%-12s %5ss  execs %-9s exec/s %-6s new inputs %-5s coverage %-6s crashes %s\n' "$t" "$elapsed" \
    "${execs:-0}" "${rate:-0}" "$(( units - seeds ))" "${cov:-?}" "$crashes"
  if [ "$crashes" -ne 0 ]; then
    failed=1
    echo "  log: $log; inputs: $artifacts/" >&2
    grep -m 3 -E 'ERROR|runtime error|check failed' "$log" | sed 's/^/  /' >&2 || true
  fi
done
exit "$failed"
