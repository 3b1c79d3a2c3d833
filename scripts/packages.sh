#!/usr/bin/env bash
# Builds the Debian packages of the native and the ARM build (scripts/build.sh
# native|arm, built already) with cpack into build/FLAVOUR/packages, and
# checks each: its architecture, its dependencies (the development files and
# the tool on the runtime library of the same version) and its contents
# (dpkg-deb -c), file by file, nothing missing and nothing more.
#   scripts/packages.sh [FLAVOUR]...   (default: native arm)
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
cd "$root"
flavours=("$@")
[ $# -gt 0 ] || flavours=(native arm)

fail() { echo "packages: $*" >&2; exit 1; }

# The files (not directories) of a package, one a line, sorted; the build
# type in the name of the CMake package's per-configuration file is CONFIG.
files_of() {
  dpkg-deb -c "$1" | awk '$1 !~ /^d/ {print $6}' |
    sed 's/bacfmtTargets-[a-z]*\.cmake$/bacfmtTargets-CONFIG.cmake/' | sort
}

expect_files() {
  local deb=$1; shift
  local want
  want=$(printf '%s\n' "$@" | sort)
  if [ "$(files_of "$deb")" != "$want" ]; then
    echo "contents of $deb differ from the expected list:" >&2
    diff <(echo "$want") <(files_of "$deb") >&2 || true
    exit 1
  fi
}

expect_field() {
  local deb=$1 field=$2 pattern=$3 value
  value=$(dpkg-deb -f "$deb" "$field")
  [[ $value =~ $pattern ]] || fail "$deb: $field is \"$value\", expected to match $pattern"
}

headers=()
for h in include/bacfmt/*.h; do headers+=("./usr/$h"); done

for flavour in "${flavours[@]}"; do
  build=build/$flavour
  [ -f "$build/CPackConfig.cmake" ] || fail "no packaging in $build: run scripts/build.sh $flavour"
  case "$flavour" in
    arm) arch=armel ;;
    *)   arch=$(dpkg --print-architecture) ;;
  esac
  version=$(sed -n 's/^CMAKE_PROJECT_VERSION:STATIC=//p' "$build/CMakeCache.txt")
  major=${version%%.*}
  release=$version-1

  echo "== $flavour: packages"
  rm -rf "$build/packages"
  cpack --config "$build/CPackConfig.cmake" -B "$build/packages" >"$build/cpack.log" 2>&1 ||
    { tail -n 30 "$build/cpack.log"; fail "cpack failed in $build"; }
  runtime=$build/packages/libbacfmt${major}_${release}_$arch.deb
  dev=$build/packages/libbacfmt-dev_${release}_$arch.deb
  tool=$build/packages/bacfmt_${release}_$arch.deb
  for deb in "$runtime" "$dev" "$tool"; do
    [ -f "$deb" ] || fail "missing $deb"
    expect_field "$deb" Architecture "^$arch\$"
    expect_field "$deb" Version "^$release\$"
  done

  same_runtime="(^|, )libbacfmt$major \\(= $release\\)(,|\$)"
  expect_field "$runtime" Depends "libc6 .*libstdc\\+\\+6"
  expect_field "$dev" Depends "$same_runtime"
  expect_field "$tool" Depends "$same_runtime"
  dpkg-deb -I "$runtime" shlibs | grep -qx "libbacfmt $major libbacfmt$major (>= $release)" ||
    fail "$runtime: no shlibs entry for libbacfmt"

  lib=./usr/lib
  expect_files "$runtime" \
    "$lib/libbacfmt.so.$major" "$lib/libbacfmt.so.$version" \
    "$lib/libbacfmt-text.so.$major" "$lib/libbacfmt-text.so.$version"
  expect_files "$dev" "${headers[@]}" \
    "$lib/libbacfmt.so" "$lib/libbacfmt.a" "$lib/libbacfmt-text.so" "$lib/libbacfmt-text.a" \
    "$lib/pkgconfig/bacfmt.pc" \
    "$lib/cmake/bacfmt/bacfmtConfig.cmake" "$lib/cmake/bacfmt/bacfmtConfigVersion.cmake" \
    "$lib/cmake/bacfmt/bacfmtTargets.cmake" "$lib/cmake/bacfmt/bacfmtTargets-CONFIG.cmake"
  expect_files "$tool" ./usr/bin/bacfmt ./usr/share/man/man1/bacfmt.1.gz
  for deb in "$runtime" "$dev" "$tool"; do echo "ok $(basename "$deb")"; done
done
