#!/bin/sh
# Builds the fuzz target and runs it for a bounded time; fails on a finding, whose input stays in the
# build folder.
# Usage: fuzz/run.sh BUILD_FOLDER SECONDS [SEED]; without a seed every run tries something else, with
# one it also ends after a fixed number of inputs, so that it depends little on the machine.
set -eu
build=$1
seconds=$2
seed=${3:-0}
runs=-1
[ "$seed" = 0 ] || runs=20000
root=$(cd "$(dirname "$0")/.." && pwd)

cmake -S "$root" -B "$build" -G Ninja -DKOVRA_FUZZ=ON -DKOVRA_TESTS=OFF \
  -DCMAKE_BUILD_TYPE=RelWithDebInfo -DCMAKE_CXX_COMPILER=clang++-14 >/dev/null
cmake --build "$build" --target fuzz_dxf
mkdir -p "$build/found"
"$build/bin/fuzz_dxf" -seed="$seed" -runs="$runs" -max_total_time="$seconds" -max_len=8192 -timeout=20 -print_final_stats=1 \
  -artifact_prefix="$build/found/" -verbosity=1 "$build/found" "$root/fuzz/corpus"
