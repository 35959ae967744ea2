#!/usr/bin/env bash
# Runs every benchmark of a build and prints a table with the median of the repetitions.
set -euo pipefail
build=${1:-build/release}
"$build/bench/talven_bench" --benchmark_repetitions=3 --benchmark_report_aggregates_only=true \
    --benchmark_format=console "${@:2}"
# The Python module on a million vertices, when the build has it.
if compgen -G "$build/python/talven*.so" >/dev/null; then
    PYTHONPATH="$build/python" /usr/bin/python3 "$(dirname "$0")/python_bench.py"
fi
