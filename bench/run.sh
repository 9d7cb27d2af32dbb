#!/usr/bin/env bash
# The benchmark: run.sh BUILD [OPTIONS OF run.py]. Installs the library it compares with if it is missing.
set -euo pipefail
cd "$(dirname "$0")/.."
build=$1
shift

if ! dpkg-query -W -f='${db:Status-Status}' libdime-dev 2>/dev/null | grep -qx installed; then
  echo "Installing: libdime-dev"
  apt-get update -qq
  DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends libdime-dev >/dev/null
fi
cmake -S . -B "$build" -DKOVRA_BENCH=ON >/dev/null
cmake --build "$build" -j2 >/dev/null
exec /usr/bin/python3 -B bench/run.py "$build" "$@"
