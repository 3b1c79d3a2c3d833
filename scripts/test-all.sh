#!/usr/bin/env bash
# Sets up, builds and runs every test: native, sanitizers, 32-bit ARM under
# qemu, programs built against the installed libraries, the Debian packages,
# and a bounded fuzzing run. Exits non-zero on the first failure.
set -euo pipefail
cd "$(dirname "$0")/.."
bash scripts/setup.sh

echo "== generated tables are current"
python3 scripts/gen_catalog.py --check
if git rev-parse --git-dir >/dev/null 2>&1; then
  python3 scripts/gen_enumtext.py >/dev/null
  git diff --exit-code --stat -- src/textservices/enum_tables.inc
fi

for flavour in native asan arm; do
  echo "== $flavour build"
  bash scripts/build.sh "$flavour"
  echo "== $flavour tests"
  (cd "build/$flavour" && ctest --output-on-failure -j2)
done

echo "== installed use and Debian packages"
bash scripts/consumer.sh
bash scripts/packages.sh

if [ -x scripts/fuzz.sh ] || [ -f scripts/fuzz.sh ]; then
  echo "== fuzzing"
  bash scripts/fuzz.sh "${FUZZ_SECONDS:-30}"
  echo "== fuzz coverage"
  bash scripts/fuzz_coverage.sh
fi

echo "== benchmarks build"
bash scripts/build.sh bench
