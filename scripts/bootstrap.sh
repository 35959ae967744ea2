#!/usr/bin/env bash
# Installs the Debian packages Talven builds and tests with; does nothing when all are present.
set -euo pipefail
packages=(build-essential cmake ninja-build ccache clang libclang-rt-14-dev
          libgtest-dev libgmock-dev libbenchmark-dev libtbb-dev
          libtinyobjloader-dev libedit-dev pybind11-dev python3-dev python3-numpy
          python3-pytest)
missing=()
for p in "${packages[@]}"; do
    dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed" || missing+=("$p")
done
[ ${#missing[@]} -eq 0 ] && exit 0
echo "bootstrap: installing ${missing[*]}"
SUDO=""
[ "$(id -u)" -ne 0 ] && SUDO="sudo"
export DEBIAN_FRONTEND=noninteractive
$SUDO apt-get update -qq
$SUDO apt-get install -y -qq --no-install-recommends "${missing[@]}"
