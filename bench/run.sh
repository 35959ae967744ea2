#!/usr/bin/env bash
# Runs every benchmark of a build and prints a table with the median of the repetitions.
set -euo pipefail
build=${1:-build/release}
"$build/bench/talven_bench" --benchmark_repetitions=3 --benchmark_report_aggregates_only=true \
    --benchmark_format=console "${@:2}"
