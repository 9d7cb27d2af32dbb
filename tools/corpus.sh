#!/usr/bin/env bash
# Opens every drawing below a folder, saves it to memory and compares the bytes: corpus.sh BUILD DIR
set -uo pipefail
build=$1
folder=$2
[ -d "$folder" ] || { echo "corpus: name a folder: make corpus DIR=/some/drawings" >&2; exit 2; }
mapfile -d '' drawings < <(find "$folder" -iname '*.dxf' -print0 | sort -z)
[ ${#drawings[@]} -gt 0 ] || { echo "corpus: no drawing below $folder" >&2; exit 2; }
"$build/bin/kovra" check "${drawings[@]}"
