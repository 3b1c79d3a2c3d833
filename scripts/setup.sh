#!/usr/bin/env bash
# Installs what building and testing bacfmt needs (Debian packages); only
# runs apt when something is missing.
set -euo pipefail

packages=(cmake make g++ clang libclang-rt-14-dev llvm googletest libbenchmark-dev
          g++-arm-linux-gnueabi qemu-user python3 locales
          pkgconf dpkg-dev file)

missing=()
for p in "${packages[@]}"; do
  dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed" || missing+=("$p")
done
if ((${#missing[@]})); then
  sudo=""; [ "$(id -u)" -ne 0 ] && sudo="sudo"
  $sudo apt-get update -qq
  DEBIAN_FRONTEND=noninteractive $sudo apt-get install -y -qq "${missing[@]}" >/dev/null
fi

# A comma-decimal locale, so that the tests can show that output and input
# do not follow the process locale.
if ! locale -a 2>/dev/null | grep -qi '^de_DE\.utf-\?8$'; then
  sudo=""; [ "$(id -u)" -ne 0 ] && sudo="sudo"
  $sudo sed -i 's/^# *de_DE.UTF-8 UTF-8/de_DE.UTF-8 UTF-8/' /etc/locale.gen
  $sudo locale-gen >/dev/null
fi
