#!/usr/bin/env bash
# Replays the fuzz corpora in a build with clang's source-based coverage,
# prints llvm-cov's report over the library's sources, and fails when an
# exported function of libbacfmt or libbacfmt-text is reached by no input.
#   scripts/fuzz_coverage.sh [FOUND]
# FOUND: a directory of <corpus>/ directories replayed beside the committed
# seeds (default: what scripts/fuzz.sh kept, build-fuzz/found).
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
build=${BACFMT_COVERAGE_BUILD_DIR:-$root/build-coverage}
found=${1:-${BACFMT_FUZZ_KEEP:-$root/build-fuzz/found}}
pairs="fuzz_scan_contents:scan fuzz_lexical:lexical fuzz_print:print fuzz_charset:charset
       fuzz_scan_content:scan_content fuzz_lookups:lookups fuzz_array_scan:array_scan"
targets=$(for pair in $pairs; do echo "${pair%%:*}"; done)

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
flags="-fprofile-instr-generate -fcoverage-mapping"
if ! { CC=clang CXX=clang++ cmake -S "$root" -B "$build" -DBACFMT_BUILD_FUZZ=ON -DBACFMT_WERROR=ON \
         -DBACFMT_BUILD_TESTS=OFF -DBACFMT_BUILD_TOOL=OFF -DCMAKE_BUILD_TYPE=Debug \
         -DCMAKE_C_FLAGS="$flags" -DCMAKE_CXX_FLAGS="$flags" \
         -DCMAKE_EXE_LINKER_FLAGS=-fprofile-instr-generate \
         -DCMAKE_SHARED_LINKER_FLAGS=-fprofile-instr-generate &&
       cmake --build "$build" -j2 --target $targets bacfmt bacfmt_text; } >"$work/build.log" 2>&1; then
  tail -n 40 "$work/build.log"
  exit 1
fi

objects=()
for pair in $pairs; do
  target=${pair%%:*}
  corpus=${pair##*:}
  dirs=("$root/fuzz/corpus/$corpus")
  [ -d "$found/$corpus" ] && dirs+=("$found/$corpus")
  LLVM_PROFILE_FILE="$work/$target.%p.profraw" "$build/fuzz/$target" -runs=0 "${dirs[@]}" \
    >"$work/$target.log" 2>&1 || { tail -n 20 "$work/$target.log"; exit 1; }
  objects+=(-object "$build/fuzz/$target")
done
llvm-profdata merge -sparse "$work"/*.profraw -o "$work/fuzz.profdata"

echo "== coverage of the library's sources by the fuzz corpora"
llvm-cov report "${objects[@]:1}" -instr-profile="$work/fuzz.profdata" "$root/src"

echo "== exported functions reached"
nm -D --defined-only "$build/libbacfmt.so" "$build/src/textservices/libbacfmt-text.so" |
  awk '$2 == "T" { print $3 }' | sort -u >"$work/exported"
llvm-profdata show -all-functions "$work/fuzz.profdata" >"$work/functions"
python3 - "$work/exported" "$work/functions" <<'EOF'
import re, sys
exported = open(sys.argv[1]).read().split()
counts = {}
name = None
for line in open(sys.argv[2]):
    header = re.match(r"^  (\S.*):$", line)
    if header:
        name = header.group(1)
        continue
    count = re.match(r"^    Function count: (\d+)", line)
    if count and name is not None:
        counts[name] = counts.get(name, 0) + int(count.group(1))
missed = [f for f in exported if counts.get(f, 0) == 0]
print(f"{len(exported) - len(missed)} of {len(exported)} exported functions reached")
if missed:
    print("never reached: " + " ".join(missed))
    sys.exit(1)
EOF
