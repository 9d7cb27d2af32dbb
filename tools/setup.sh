#!/usr/bin/env bash
# Installs the Debian packages that the build, the tests and the demo need, if any is missing.
set -euo pipefail

packages=(
  g++ cmake ninja-build make git ccache
  libcli11-dev nlohmann-json3-dev libedit-dev libsqlite3-dev libgtest-dev
  libpango1.0-dev pkg-config fonts-dejavu-core fonts-vlgothic
  binutils-mingw-w64-x86-64 g++-mingw-w64-x86-64
  clang-14 libclang-rt-14-dev clang-format-14 clang-tidy-14
  python3 python3-ezdxf python3-distributed
  help2man dpkg-dev file
)

missing=()
for package in "${packages[@]}"; do
  dpkg-query -W -f='${db:Status-Status}' "$package" 2>/dev/null | grep -qx installed ||
    missing+=("$package")
done
[ ${#missing[@]} -eq 0 ] && exit 0

echo "Installing: ${missing[*]}"
if [ "$(id -u)" -ne 0 ]; then
  echo "setup: these packages are missing and only root can install them" >&2
  exit 1
fi
export DEBIAN_FRONTEND=noninteractive
apt-get update -qq
apt-get install -y -qq --no-install-recommends "${missing[@]}" >/dev/null
