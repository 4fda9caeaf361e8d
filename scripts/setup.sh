#!/usr/bin/env bash
# Installs the Debian packages the build, the tests, the benchmarks and the
# fuzzer need. Packages already present are left alone; apt-get runs only when
# something is missing, so the script is cheap to call before every build.
set -euo pipefail

packages=(
  g++ cmake ninja-build pkg-config
  libgtest-dev libgmock-dev
  libbenchmark-dev
  libproj-dev
  clang libclang-rt-14-dev
  qt6-base-dev qt6-qpa-plugins libqt6sql6-sqlite libsqlite3-dev
  fonts-liberation
  libgdal-dev
  libsodium-dev
)

missing=()
for package in "${packages[@]}"; do
  status=$(dpkg-query -W -f='${Status}' "$package" 2>/dev/null || true)
  [[ "$status" == "install ok installed" ]] || missing+=("$package")
done

if ((${#missing[@]})); then
  echo "Installing: ${missing[*]}"
  if [[ $(id -u) -ne 0 ]]; then
    echo "These packages are missing and installing them needs root: ${missing[*]}" >&2
    exit 1
  fi
  export DEBIAN_FRONTEND=noninteractive
  apt-get update -qq
  apt-get install -y -qq --no-install-recommends "${missing[@]}"
fi
