#!/usr/bin/env bash
# Builds the fuzz targets with clang, ASan and UBSan, and runs each in turn
# for a bounded time over its seed corpus.
#   scripts/fuzz.sh [SECONDS] [KEEP]   (default 30 s per target)
# New inputs go to a scratch directory; afterwards those that reach new code
# are merged into KEEP/<corpus>/ (default build-fuzz/found, or the variable
# BACFMT_FUZZ_KEEP). KEEP=fuzz/corpus adds them to the committed seeds. A
# crash leaves its input in the current directory and fails the script.
set -euo pipefail
seconds=${1:-30}
root=$(cd "$(dirname "$0")/.." && pwd)
build=${BACFMT_FUZZ_BUILD_DIR:-$root/build-fuzz}
keep=${2:-${BACFMT_FUZZ_KEEP:-$build/found}}
# target:corpus, as fuzz/CMakeLists.txt names them.
pairs="fuzz_scan_contents:scan fuzz_lexical:lexical fuzz_print:print fuzz_charset:charset
       fuzz_scan_content:scan_content fuzz_lookups:lookups fuzz_walk_differential:walk_differential fuzz_array_scan:array_scan"

scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT

targets=$(for pair in $pairs; do echo "${pair%%:*}"; done)
if ! { CC=clang CXX=clang++ cmake -S "$root" -B "$build" -DBACFMT_BUILD_FUZZ=ON -DBACFMT_SANITIZE=ON \
         -DBACFMT_WERROR=ON -DBACFMT_BUILD_TESTS=OFF -DBACFMT_BUILD_TOOL=OFF &&
       cmake --build "$build" -j2 --target $targets; } >"$scratch/build.log" 2>&1; then
  tail -n 40 "$scratch/build.log"
  exit 1
fi
export ASAN_OPTIONS=${ASAN_OPTIONS:-detect_leaks=1}
export UBSAN_OPTIONS=${UBSAN_OPTIONS:-print_stacktrace=1:halt_on_error=1}
for pair in $pairs; do
  target=${pair%%:*}
  corpus=${pair##*:}
  mkdir -p "$scratch/$corpus" "$keep/$corpus"
  echo "== $target for ${seconds}s"
  status=0
  "$build/fuzz/$target" -max_total_time="$seconds" -timeout=10 -print_final_stats=1 \
    "$scratch/$corpus" "$root/fuzz/corpus/$corpus" "$keep/$corpus" >"$scratch/$target.log" 2>&1 || status=$?
  grep -E '^(Done|stat::number_of_executed_units|SUMMARY)' "$scratch/$target.log" || true
  if [ "$status" -ne 0 ]; then
    tail -n 40 "$scratch/$target.log"
    exit "$status"
  fi
  # Keep only what reaches code that the kept inputs do not.
  "$build/fuzz/$target" -merge=1 "$keep/$corpus" "$scratch/$corpus" >"$scratch/$target.merge.log" 2>&1 ||
    { tail -n 20 "$scratch/$target.merge.log"; exit 1; }
done
echo "new inputs kept in $keep"
