#!/usr/bin/env bash
# Fails when a source of module/ doesn't compile for a system with 16-bit wide characters, 32-bit long
# and no POSIX: a cheap guard that the module keeps to the platform's names. Only the syntax and the
# types are checked; nothing is linked or run.
set -euo pipefail
cd "$(dirname "$0")/.."

compiler=x86_64-w64-mingw32-g++-posix
command -v "$compiler" >/dev/null || { echo "check_portable: $compiler is missing" >&2; exit 1; }

# No windows.h is included: the platform's own headers declare what it would.
check() {
  "$compiler" -std=c++20 -fsyntax-only -I. -Wall -Wextra -Wconversion -Werror -Wno-attributes "$1"
}
export -f check
export compiler

find module -name '*.cpp' -print0 | sort -z | xargs -0 -n 1 -P 2 bash -c 'check "$1"' check
