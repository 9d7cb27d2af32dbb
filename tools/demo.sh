#!/usr/bin/env bash
# Changes a copy of the example project by a script and shows what changed: demo.sh BUILD
set -euo pipefail
kovra=$1/bin/kovra
result=build/demo
sheets=(motor-1 motor-2 terminals)

rm -rf "$result"
mkdir -p "$result"
cp -r examples/panel "$result/panel"
cp -r examples/panel "$result/before"

"$kovra" --project "$result/panel" --state "$result/state.db" --script examples/attr_copy.kovra \
  --save "$result"/panel/*.dxf

for sheet in "$result"/panel/*.dxf; do
  name=$(basename "$sheet")
  changed=$(diff --text "$result/before/$name" "$sheet" | grep -c '^>' || true)
  printf '\n%s: %s lines changed\n' "$name" "$changed"
  diff --text --label "$name before" --label "$name" -U3 "$result/before/$name" "$sheet" | head -20 || true
done
echo
echo "The changed drawings are in $result/panel, each with its former state beside it as .bak."
