#!/usr/bin/env bash
# Runs every fuzz target of a build for a fixed time each, starting from its seed corpus in
# fuzz/corpus/<name>/ and, when the shared test data is there, seeds made from it at run time
# (<build>/seeds/<name>/); new inputs go to <build>/corpus/<name>/, crashes to <build>/crashes/.
# A third argument runs only the targets whose names it matches.
set -euo pipefail
build=${1:-build/fuzz}
seconds=${2:-60}
only=${3:-}
here=$(cd "$(dirname "$0")" && pwd)
data="$here/../../shared/data"
mkdir -p "$build/crashes"

# Real scenes as they are; the head OBJs cut to their first 400 vertices and faces on those
# (whole, they are megabytes).
seed_from_data() {
    local name=$1 seeds="$build/seeds/$1"
    mkdir -p "$seeds"
    case $name in
    scene | statement) [ -d "$data/maya-ascii" ] && cp -f "$data"/maya-ascii/*.ma "$seeds"/ ;;
    obj)
        if [ -d "$data/ict-facekit" ]; then
            for file in "$data"/ict-facekit/*.obj; do
                awk '/^v / && ++v <= 400 { print }
                     /^f / { for (i = 2; i <= NF; i++) { split($i, n, "/"); if (n[1] > 400) next }
                             if (++f <= 200) print }' "$file" >"$seeds/$(basename "$file")"
            done
        fi
        ;;
    esac
    return 0
}

for target in "$build"/*_fuzz; do
    name=$(basename "$target" _fuzz)
    [[ -n $only && $name != $only ]] && continue
    mkdir -p "$build/corpus/$name" "$here/corpus/$name"
    seed_from_data "$name"
    echo "fuzz: $name for ${seconds}s"
    "$target" -max_total_time="$seconds" -print_final_stats=1 -artifact_prefix="$build/crashes/$name-" \
        "$build/corpus/$name" "$here/corpus/$name" "$build/seeds/$name"
done
