#!/bin/sh
# From a fresh checkout to converted positions: sets up, builds, and converts a survey line in the
# North Sea from satellite positions into the grid of ED50, UTM zone 31.
set -eu

. "$(dirname -- "$0")/setup.sh"
setup release
say 'building'
cmake --build "$build" --target zorgeo >&2

zorgeo="$build/tools/zorgeo/zorgeo"
line="$root/data/examples/north-sea-line.txt"
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT

say "converting $line"
"$zorgeo" convert 'ED50 - UTM zone 31N' --group 'North Sea' --from sat --to grid --check --json \
    --user "$scratch/user" -o "$scratch/grid.txt" "$line" 2>"$scratch/summary.json" || {
    status=$?
    cat "$scratch/summary.json" >&2
    exit "$status"
}

head -n 12 "$scratch/grid.txt"
echo ...
python3 - "$scratch/summary.json" <<'P'
import json
import sys

with open(sys.argv[1], encoding="utf-8") as file:
    run = json.load(file)
print(f"{run['good']} positions into \"{run['system']}\", {run['bad']} refused, "
      f"every one converted back to within 1 mm; {run['good'] / run['seconds']:,.0f} a second with the start")
P
