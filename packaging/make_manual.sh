#!/usr/bin/env bash
# Makes the manual pages from the program's own help: make_manual.sh PROGRAM FLEET-PROGRAM FOLDER
set -euo pipefail
program=$(realpath "$1")
fleet=$(realpath "$2")
folder=$3
here=$(dirname "$(realpath "$0")")
mkdir -p "$folder"
# The program finds its libraries beside itself, so it is called by a name in its own folder.
cd "$(dirname "$program")"
version=$(./kovra --version)
version=${version#kovra }
page() {
  local name=$1
  shift
  # Pages are alike for alike programs: the date is that of the sources.
  help2man --no-info --version-string="${version%% *}" --source=kovra "$@" |
    sed 's/^kovra \([a-z]*\) \\- /kovra\\-\1 \\- /' | gzip -9n >"$folder/$name.1.gz"
}
folder=$(realpath "$OLDPWD/$folder" 2>/dev/null || realpath "$folder")
page kovra --include="$here/kovra.h2m" ./kovra
for subcommand in list check plot diff each; do
  title=$(./kovra "$subcommand" --help | head -1)
  page "kovra-$subcommand" --name="$title" "./kovra $subcommand"
done
# Under the name, and with the headings, that the pages of the others have.
trap 'rm -f "$folder/kovra-fleet"' EXIT
printf '#!/bin/sh\n"%s" "$@" | sed "s/^usage:/Usage:/; s/^options:/Options:/"\n' "$fleet" >"$folder/kovra-fleet"
chmod +x "$folder/kovra-fleet"
page kovra-fleet --name="run kovra each over many machines" "$folder/kovra-fleet"
