#!/usr/bin/env bash
# Installs the native and the ARM build (scripts/build.sh native|arm, built
# already) into staging prefixes build/FLAVOUR/stage and builds the program
# of tests/consumer against each, as a user would: with find_package and
# with pkg-config; the ARM programs run under qemu-arm. The native sources
# are also built as a subproject of the consumer, which must bring the
# libraries and nothing else, and leave the text services to the consumer
# when asked to.
#   scripts/consumer.sh [FLAVOUR]...   (default: native arm)
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
cd "$root"
arm_sysroot=/usr/arm-linux-gnueabi

flavours=("$@")
[ $# -gt 0 ] || flavours=(native arm)

for flavour in "${flavours[@]}"; do
  build=$root/build/$flavour
  stage=$build/stage
  [ -f "$build/CMakeCache.txt" ] || { echo "no build in $build: run scripts/build.sh $flavour" >&2; exit 1; }
  case "$flavour" in
    arm) cross=(-DCMAKE_TOOLCHAIN_FILE="$root/cmake/arm-linux-gnueabi.cmake")
         cc=arm-linux-gnueabi-gcc
         run=(qemu-arm -L "$arm_sysroot") ;;
    *)   cross=(); cc=cc; run=() ;;
  esac

  echo "== $flavour: install into $stage"
  rm -rf "$stage"
  cmake --install "$build" --prefix "$stage" >/dev/null
  LD_LIBRARY_PATH= "${run[@]}" "$stage/bin/bacfmt" --version

  echo "== $flavour: consumer with find_package"
  # bacfmt_DIR rather than CMAKE_PREFIX_PATH: the cross toolchain searches
  # packages below its own root only.
  rm -rf "$build/consumer-cmake"
  cmake -S tests/consumer -B "$build/consumer-cmake" "${cross[@]}" \
        -Dbacfmt_DIR="$stage/lib/cmake/bacfmt" >/dev/null
  cmake --build "$build/consumer-cmake" -j"${JOBS:-2}" >/dev/null
  (cd "$build/consumer-cmake" && ctest --output-on-failure)

  echo "== $flavour: consumer with pkg-config"
  PKG_CONFIG_LIBDIR=$stage/lib/pkgconfig make -s -B -C tests/consumer CC="$cc" \
    OUT="$build/consumer_pkgconfig"
  LD_LIBRARY_PATH=$stage/lib "${run[@]}" "$build/consumer_pkgconfig"
done

if [[ " ${flavours[*]} " == *" native "* ]]; then
  echo "== bacfmt as a subproject of the consumer"
  rm -rf build/consumer-subproject
  # Without the bundled text services in the libraries: the consumer
  # supplies them itself.
  cmake -S tests/consumer -B build/consumer-subproject -DBACFMT_SOURCE_DIR="$root" \
        -DBACFMT_TEXT_SERVICES=OFF >/dev/null
  cmake --build build/consumer-subproject -j"${JOBS:-2}" >/dev/null
  (cd build/consumer-subproject && ctest --output-on-failure)
fi
