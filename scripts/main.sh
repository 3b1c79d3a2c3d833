#!/usr/bin/env bash
# The main job: set up, build, and check the shipped example value files
# with the bacfmt tool. The site file must check clean; the mistakes file is
# expected to report its errors (exit status 1).
set -euo pipefail
cd "$(dirname "$0")/.."
bash scripts/setup.sh
bash scripts/build.sh native
tool=build/native/tools/bacfmt/bacfmt

echo "== bacfmt check examples/site.txt"
"$tool" check examples/site.txt

echo "== bacfmt check examples/mistakes.txt (reports every mistake)"
status=0
"$tool" check examples/mistakes.txt || status=$?
if [ "$status" -ne 1 ]; then
  echo "expected exit status 1 for the mistakes file, got $status" >&2
  exit 1
fi
