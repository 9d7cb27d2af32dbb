#!/usr/bin/env bash
# Places texts in a copy of the example project by a script and shows what changed: demo.sh BUILD
set -euo pipefail
kovra=$1/bin/kovra
result=build/demo

rm -rf "$result"
mkdir -p "$result"
cp -r examples/panel "$result/panel"
cp -r examples/panel "$result/before"

"$kovra" --project "$result/panel" --state "$result/state.db" --script examples/place_texts.kovra \
  --save "$result"/panel/*.dxf

# The texts of a drawing, a line each.
texts() {
  "$kovra" list "$1" --format csv | tr -d '\r' |
    awk -F, '$2 == "TEXT" { printf "  %-5s %-28s layer %-7s height %-4s at %s,%s\n", $1, $5, $6, $8, $12, $13 }'
}

for sheet in "$result"/panel/*.dxf; do
  before=$result/before/$(basename "$sheet")
  changed=$(diff --text "$before" "$sheet" | grep -c '^>' || true)
  printf '\n%s: %s lines changed or added. Texts placed:\n' "$(basename "$sheet")" "$changed"
  diff <(texts "$before") <(texts "$sheet") | sed -n 's/^> //p' || true
done

echo
echo "An attribute of $result/panel/motor-1.dxf, before and after:"
diff --text -U4 "$result"/{before,panel}/motor-1.dxf | awk '/^@@/ { ++hunk } hunk == 2' || true

echo
echo "One run of the property copy's dialog over all drawings of the project:"
"$kovra" --project "$result/panel" --state "$result/state.db" --language en --script examples/property_copy.kovra \
  --save "$result/panel/motor-1.dxf" | grep -a '^\[\|^Attributes changed'
mkdir -p "$result/pictures"
for sheet in "$result"/panel/*.dxf; do
  name=$(basename "$sheet" .dxf)
  "$kovra" plot "$result/before/$name.dxf" -o "$result/pictures/$name-before.svg" --ground dark
  "$kovra" plot "$sheet" -o "$result/pictures/$name-after.svg" --ground dark
done

echo
echo "The changed drawings are in $result/panel, each with its former state beside it as .bak."
echo "Pictures of the sheets before and after are in $result/pictures."
