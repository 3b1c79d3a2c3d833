#!/usr/bin/env bash
# Configures and builds one flavour of bacfmt into build/<flavour>:
#   native  release build with tests, the tool and the corpus replay (-Werror)
#   asan    AddressSanitizer + UndefinedBehaviorSanitizer
#   arm     32-bit ARM soft-float cross build, tests run under qemu-arm
#   bench   release build of the benchmarks
set -euo pipefail
cd "$(dirname "$0")/.."
flavour=${1:-native}
jobs=${JOBS:-2}
common=(-DBACFMT_WERROR=ON)
case "$flavour" in
  native) args=(-DCMAKE_BUILD_TYPE=RelWithDebInfo -DBACFMT_BUILD_FUZZ=ON) ;;
  asan)   args=(-DCMAKE_BUILD_TYPE=Debug -DBACFMT_SANITIZE=ON -DBACFMT_BUILD_FUZZ=ON) ;;
  arm)    args=(-DCMAKE_BUILD_TYPE=RelWithDebInfo -DCMAKE_TOOLCHAIN_FILE=cmake/arm-linux-gnueabi.cmake -DBACFMT_BUILD_FUZZ=ON) ;;
  bench)  args=(-DCMAKE_BUILD_TYPE=Release -DBACFMT_BUILD_BENCH=ON -DBACFMT_BUILD_TESTS=OFF -DBACFMT_BUILD_TOOL=OFF) ;;
  *) echo "usage: $0 [native|asan|arm|bench]" >&2; exit 2 ;;
esac
cmake -S . -B "build/$flavour" "${common[@]}" "${args[@]}" >/dev/null
cmake --build "build/$flavour" -j"$jobs"
