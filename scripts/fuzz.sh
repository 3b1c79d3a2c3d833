#!/usr/bin/env bash
# Builds the fuzz targets with clang, ASan and UBSan, and runs each for a
# bounded time over a scratch copy of its seed corpus.
#   scripts/fuzz.sh [SECONDS]   (default 30 per target)
# New inputs that libFuzzer finds stay in the scratch directory; a crash
# leaves its input in the current directory and fails the script.
set -euo pipefail
seconds=${1:-30}
root=$(cd "$(dirname "$0")/.." && pwd)
build=${BACFMT_FUZZ_BUILD_DIR:-$root/build-fuzz}

scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT

if ! { CC=clang CXX=clang++ cmake -S "$root" -B "$build" -DBACFMT_BUILD_FUZZ=ON -DBACFMT_SANITIZE=ON \
         -DBACFMT_WERROR=ON -DBACFMT_BUILD_TESTS=OFF -DBACFMT_BUILD_TOOL=OFF &&
       cmake --build "$build" -j2 --target fuzz_scan_contents fuzz_lexical fuzz_walk_differential; } >"$scratch/build.log" 2>&1; then
  tail -n 40 "$scratch/build.log"
  exit 1
fi
export ASAN_OPTIONS=${ASAN_OPTIONS:-detect_leaks=1}
export UBSAN_OPTIONS=${UBSAN_OPTIONS:-print_stacktrace=1:halt_on_error=1}
for pair in fuzz_scan_contents:scan fuzz_lexical:lexical fuzz_walk_differential:walk_differential; do
  target=${pair%%:*}
  corpus=${pair##*:}
  mkdir -p "$scratch/$corpus"
  echo "== $target for ${seconds}s"
  status=0
  "$build/fuzz/$target" -max_total_time="$seconds" -timeout=10 -print_final_stats=1 \
    "$scratch/$corpus" "$root/fuzz/corpus/$corpus" >"$scratch/$target.log" 2>&1 || status=$?
  grep -E '^(Done|stat::number_of_executed_units|SUMMARY)' "$scratch/$target.log" || true
  if [ "$status" -ne 0 ]; then
    tail -n 40 "$scratch/$target.log"
    exit "$status"
  fi
done
