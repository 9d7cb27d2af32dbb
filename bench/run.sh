#!/usr/bin/env bash
# The benchmark: run.sh BUILD [OPTIONS OF run.py]. Installs what it compares with if it is missing.
set -euo pipefail
cd "$(dirname "$0")/.."
build=$1
shift

for package in libdime-dev librecad; do
  if ! dpkg-query -W -f='${db:Status-Status}' "$package" 2>/dev/null | grep -qx installed; then
    echo "Installing: $package"
    apt-get update -qq
    DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends "$package" >/dev/null
  fi
done
cmake -S . -B "$build" -DKOVRA_BENCH=ON >/dev/null
cmake --build "$build" -j2 >/dev/null
exec /usr/bin/python3 -B bench/run.py "$build" "$@"
