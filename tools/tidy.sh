#!/usr/bin/env bash
# Runs clang-tidy over every source of the tree, or over the ones named: tidy.sh BUILD [FILE...]
set -euo pipefail
build=$1
shift
# Configured for clang, whose flags the analyser knows.
cmake -S . -B "$build" -G Ninja -DCMAKE_CXX_COMPILER=clang++-14 -DKOVRA_TESTS=OFF \
  -DCMAKE_EXPORT_COMPILE_COMMANDS=ON --log-level=WARNING >/dev/null
if [ $# -eq 0 ]; then
  mapfile -t files < <(git ls-files '*.cpp' | grep -vE '^(fuzz|bench|tests)/')
else
  files=("$@")
fi
printf '%s\n' "${files[@]}" | xargs -P 2 -n 4 clang-tidy-14 --quiet -p "$build"
