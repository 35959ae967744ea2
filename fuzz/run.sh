#!/usr/bin/env bash
# Runs every fuzz target of a build for a fixed time each, starting from its seed corpus in
# fuzz/corpus/<name>/; new inputs go to <build>/corpus/<name>/, crashes to <build>/crashes/.
set -euo pipefail
build=${1:-build/fuzz}
seconds=${2:-60}
here=$(cd "$(dirname "$0")" && pwd)
mkdir -p "$build/crashes"
for target in "$build"/*_fuzz; do
    name=$(basename "$target" _fuzz)
    mkdir -p "$build/corpus/$name" "$here/corpus/$name"
    echo "fuzz: $name for ${seconds}s"
    "$target" -max_total_time="$seconds" -print_final_stats=1 -artifact_prefix="$build/crashes/$name-" \
        "$build/corpus/$name" "$here/corpus/$name"
done
