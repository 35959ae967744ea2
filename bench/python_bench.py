#!/usr/bin/env python3
"""Times the Python module on large data and prints a table (median of several runs).

    PYTHONPATH=build/release/python python3 bench/python_bench.py
"""
import statistics
import time

import numpy as np

import talven
from talven import cmds

RUNS = 5
GETATTR_CALLS = 100_000


def timed(action):
    """Median wall and CPU seconds of RUNS calls."""
    walls, cpus = [], []
    for _ in range(RUNS):
        wall, cpu = time.perf_counter(), time.process_time()
        action()
        walls.append(time.perf_counter() - wall)
        cpus.append(time.process_time() - cpu)
    return statistics.median(walls), statistics.median(cpus)


def first_writes(weights):
    """Median wall and CPU seconds of writing a map that holds no elements yet (a new blend shape
    each run, made outside the timing)."""
    walls, cpus = [], []
    for run in range(RUNS):
        node = cmds.blendShape("shape", "pl", n="first%d" % run)[0]
        wall, cpu = time.perf_counter(), time.process_time()
        talven.set_weights(node, weights, 0)
        walls.append(time.perf_counter() - wall)
        cpus.append(time.process_time() - cpu)
    return statistics.median(walls), statistics.median(cpus)


def million_vertex_scene():
    """A 1000 x 1000 vertex plane deformed by a blendShape."""
    talven.new_scene()
    cmds.polyPlane(n="pl", sx=999, sy=999)
    cmds.duplicate("pl", n="shape")
    cmds.blendShape("shape", "pl", n="bs")
    assert cmds.polyEvaluate("pl", v=True) == 1_000_000


def main():
    million_vertex_scene()
    weights = np.linspace(0.0, 0.9, 1_000_000)
    talven.set_weights("bs", weights, 0)
    cases = [
        ("weight map write over a map, 1M vertices", lambda: talven.set_weights("bs", weights, 0), 0.050),
        ("weight map read, 1M vertices", lambda: talven.get_weights("bs", 0), 0.050),
        ("points read, 1M vertices", lambda: talven.get_points("pl"), 0.050),
        ("getAttr on a scalar plug, 100,000 calls",
         lambda: [cmds.getAttr("pl.tx") for _ in range(GETATTR_CALLS)], 1.0),
    ]
    print(f"{'case':<42} {'wall ms':>9} {'cpu ms':>9} {'limit ms':>9}")
    for name, action, limit in cases:
        wall, cpu = timed(action)
        print(f"{name:<42} {wall * 1e3:9.1f} {cpu * 1e3:9.1f} {limit * 1e3:9.0f}")
    wall, cpu = first_writes(weights)
    print(f"{'weight map first write, 1M vertices':<42} {wall * 1e3:9.1f} {cpu * 1e3:9.1f} {50:9.0f}")


if __name__ == "__main__":
    main()
