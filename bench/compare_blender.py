# Side-by-side timing of Talven against Blender on identical meshes; run inside Blender by bench/compare:
#   blender -b --factory-startup --python bench/compare_blender.py -- TALVEN WORKDIR DATADIR REPS MESHES
# Blender builds the meshes and writes them as OBJ (every float32 coordinate printed with 9 significant
# digits, so the text reads back to the same bits), then both tools run the same operation on them.
# Blender is timed with time.process_time() around the operator. Talven is timed as whole processes
# (CPU seconds of the child, from wait4): the median of runs that set the scene up and run the
# operation, minus the median of runs that only set it up; so its figure holds the command alone.
import math
import os
import statistics
import subprocess
import sys
import time

import bpy
import numpy as np

TALVEN, WORK, DATA, REPS, MESHES = sys.argv[sys.argv.index("--") + 1 :]
REPS = int(REPS)
MESHES = MESHES.split(",")
os.makedirs(WORK, exist_ok=True)


# ---- meshes ------------------------------------------------------------------------------------


def meshArrays(mesh):
    n = len(mesh.vertices)
    co = np.empty(n * 3, dtype=np.float32)
    mesh.vertices.foreach_get("co", co)
    counts = np.empty(len(mesh.polygons), dtype=np.int32)
    mesh.polygons.foreach_get("loop_total", counts)
    loops = np.empty(len(mesh.loops), dtype=np.int32)
    mesh.loops.foreach_get("vertex_index", loops)
    return co.reshape(n, 3), counts, loops


def clearScene():
    for obj in list(bpy.data.objects):
        bpy.data.objects.remove(obj, do_unlink=True)
    for mesh in list(bpy.data.meshes):
        bpy.data.meshes.remove(mesh)


def primitive(name):
    clearScene()
    if name == "monkey":
        bpy.ops.mesh.primitive_monkey_add()
        obj = bpy.context.active_object
        mod = obj.modifiers.new("sub", "SUBSURF")
        mod.levels = 5
        bpy.ops.object.modifier_apply(modifier=mod.name)
    else:
        bpy.ops.mesh.primitive_uv_sphere_add(segments=1024, ring_count=512)
        obj = bpy.context.active_object
    return meshArrays(obj.data)


def readObj(path):
    points, counts, loops = [], [], []
    with open(path) as f:
        for line in f:
            if line.startswith("v "):
                points.append([float(t) for t in line.split()[1:4]])
            elif line.startswith("f "):
                face = [int(t.split("/")[0]) - 1 for t in line.split()[1:]]
                counts.append(len(face))
                loops.extend(face)
    return (np.array(points, dtype=np.float32), np.array(counts, dtype=np.int32),
            np.array(loops, dtype=np.int32))


def writeObj(path, name, co, counts, loops):
    with open(path, "w") as f:
        f.write("o %s\n" % name)
        f.write("".join("v %.9g %.9g %.9g\n" % tuple(p) for p in co.tolist()))
        starts = np.concatenate(([0], np.cumsum(counts)[:-1]))
        one = (loops + 1).tolist()
        f.write("".join("f " + " ".join(map(str, one[s : s + c])) + "\n"
                        for s, c in zip(starts.tolist(), counts.tolist())))


def bent(co):
    # The +X side bends up along Z, growing with the square of x: no longer positionally symmetric,
    # the topology unchanged.
    out = co.copy()
    extent = float(np.abs(co[:, 0]).max())
    x = out[:, 0]
    out[:, 2] += np.where(x > 0, 0.3 * x * x / extent, 0).astype(np.float32)
    return out


def partners(co, counts, loops, radius=1e-4):
    # Each vertex's mirror partner across x = 0: the one vertex within `radius` of its mirrored position
    # when the two find only each other so, on the shell that most of the vertex's shell finds its
    # partners on; -1 otherwise. Positions cannot tell partners apart where vertices lie closer than
    # `radius` (near the sphere's poles and seam, on the monkey's plane), nor where an overlapping shell
    # of the not quite symmetric ICT head has a vertex at the mirror image of one that is not its mirror.
    from mathutils import kdtree

    tree = kdtree.KDTree(len(co))
    for i, p in enumerate(co.tolist()):
        tree.insert(p, i)
    tree.balance()
    found = np.full(len(co), -1, dtype=np.int64)
    for i, (x, y, z) in enumerate(co.tolist()):
        near = tree.find_range((-x, y, z), radius)
        if len(near) == 1:
            found[i] = near[0][1]
    found[(found < 0) | (found[np.maximum(found, 0)] != np.arange(len(co)))] = -1
    shellOf = shellLabels(len(co), counts, loops)
    known = found >= 0
    pairs, uses = np.unique(np.stack([shellOf[known], shellOf[found[known]]], axis=1), axis=0,
                            return_counts=True)
    order = np.argsort(uses, kind="stable")
    mirrorShell = dict(zip(pairs[order, 0].tolist(), pairs[order, 1].tolist()))  # the most common wins
    mirrorOf = np.array([mirrorShell.get(shell, -1) for shell in shellOf[known].tolist()], dtype=np.int64)
    found[np.flatnonzero(known)[shellOf[found[known]] != mirrorOf]] = -1
    return found


def hashed(n, seed):
    i = np.arange(n, dtype=np.float64)
    return np.modf(np.abs(np.sin(i * 12.9898 + seed) * 43758.5453))[0]


def makeObject(co, counts, loops, name="base"):
    clearScene()
    mesh = bpy.data.meshes.new(name)
    mesh.vertices.add(len(co))
    mesh.vertices.foreach_set("co", co.ravel())
    mesh.loops.add(len(loops))
    mesh.loops.foreach_set("vertex_index", loops)
    mesh.polygons.add(len(counts))
    mesh.polygons.foreach_set("loop_start", np.concatenate(([0], np.cumsum(counts)[:-1])).astype(np.int32))
    mesh.polygons.foreach_set("loop_total", counts)
    mesh.update(calc_edges=True)
    obj = bpy.data.objects.new(name, mesh)
    bpy.context.scene.collection.objects.link(obj)
    bpy.context.view_layer.objects.active = obj
    obj.select_set(True)
    return obj


# ---- timing ------------------------------------------------------------------------------------


def cpuOf(fn):
    start = time.process_time()
    fn()
    return time.process_time() - start


def talvenProcess(script):
    # Runs the script; returns the child's CPU seconds and what it printed.
    path = os.path.join(WORK, "run.mel")
    log = os.path.join(WORK, "run.log")
    with open(path, "w") as f:
        f.write(script)
    with open(log, "w") as out:
        proc = subprocess.Popen([TALVEN, path], stdout=out, stderr=subprocess.STDOUT)
        _, status, usage = os.wait4(proc.pid, 0)
    with open(log) as f:
        text = f.read()
    if os.waitstatus_to_exitcode(status) != 0 or "// Error" in text:
        sys.exit("compare: talven failed on:\n%s\n%s" % (script[:2000], text[-2000:]))
    return usage.ru_utime + usage.ru_stime, text


def talvenRun(script):
    return talvenProcess(script)[0]


def talvenVertexOrderMap(script):
    # The vertex order map of `base` after the script, read back with getAttr.
    text = talvenProcess(script + "getAttr baseShape.kvvom;\n")[1]
    last = [line for line in text.splitlines() if line.startswith("// Result:")][-1]
    return np.array(last[len("// Result:") : -len("//")].split(), dtype=np.int64)


def talvenTime(setup, op):
    base = statistics.median(talvenRun(setup) for _ in range(REPS))
    full = statistics.median(talvenRun(setup + op) for _ in range(REPS))
    return max(full - base, 0.0)


# Talven's positional mirror stops when a vertex finds no partner within -tol, and takes the first
# vertex of the nearest mirrored face within it, so the tolerance must be below the mesh's spacing:
# the ICT head is asymmetric by up to 0.0285 on some vertices, the generated meshes only by
# rounding, and the dense subdivided monkey has vertices closer than 0.001.
def tolerance(label):
    return 0.03 if label.startswith("ict") else 1e-4


def quoted(path):
    return '"%s"' % path


# ---- checks ------------------------------------------------------------------------------------


def share(values, expected, partner, side, tol):
    # Share of destination vertices (x < 0, partner known) that hold their partner's value.
    mask = side & (partner >= 0)
    good = np.all(np.abs(values[mask] - expected[partner[mask]]) <= tol, axis=-1) if values.ndim > 1 \
        else np.abs(values[mask] - expected[partner[mask]]) <= tol
    return float(np.count_nonzero(good)) / max(int(np.count_nonzero(mask)), 1)


def readWeights(path, n):
    out = np.ones(n)
    with open(path) as f:
        for line in f:
            parts = line.split()
            if len(parts) == 2:
                out[int(parts[0])] = float(parts[1])
    return out


def readDeltas(path, n):
    import json

    out = np.zeros((n, 3))
    with open(path) as f:
        doc = json.load(f)
    for block in doc.values():
        for item in block["data"].values():
            for k, v in item.items():
                out[int(k)] = v
    return out


# ---- symmetry edges for the topology map --------------------------------------------------------
# The mapping command pairs mirrored shells by position, which the bend defeats (one eye of a pair no
# longer lies at the other's mirror image). A user then names symmetry edges with the mesh: an edge on
# the plane for a shell symmetric in itself, and one edge on each of two mirrored shells, given to
# -addToMap. The script finds them from the unbent mesh's mirror partners, untimed.


def faceEdges(counts, loops):
    # Every face corner's edge to the next corner of its face, as (vertex, next vertex).
    starts = np.repeat(np.concatenate(([0], np.cumsum(counts)[:-1])), counts)
    following = np.arange(1, len(loops) + 1)
    wrap = following == starts + np.repeat(counts, counts)
    following[wrap] = starts[wrap]
    return loops.astype(np.int64), loops[following].astype(np.int64)


def shellLabels(n, counts, loops):
    # The shell of every vertex, named by its smallest vertex: union-find over the face edges, each
    # round hooking the larger of two roots under the smaller and then flattening the trees.
    a, b = faceEdges(counts, loops)
    parent = np.arange(n)
    while True:
        ra, rb = parent[a], parent[b]
        differ = ra != rb
        if not differ.any():
            return parent
        np.minimum.at(parent, np.maximum(ra, rb)[differ], np.minimum(ra, rb)[differ])
        while True:
            up = parent[parent]
            if np.array_equal(up, parent):
                break
            parent = up


class Edges:
    # The mesh's edges as Talven numbers them (in order of first use, walking the faces in order), each
    # with its number of faces and its first two faces in ascending order.
    def __init__(self, n, counts, loops):
        a, b = faceEdges(counts, loops)
        self.n = n
        self.keys, first, inverse, self.uses = np.unique(np.minimum(a, b) * n + np.maximum(a, b),
                                                         return_index=True, return_inverse=True,
                                                         return_counts=True)
        self.ids = np.empty(len(self.keys), dtype=np.int64)
        self.ids[np.argsort(first)] = np.arange(len(self.keys))
        faces = np.repeat(np.arange(len(counts)), counts)[np.argsort(inverse, kind="stable")]
        begin = np.concatenate(([0], np.cumsum(self.uses)[:-1]))
        self.face0 = faces[begin]
        self.face1 = faces[np.minimum(begin + 1, len(faces) - 1)]
        self.u, self.w = self.keys // n, self.keys % n

    def find(self, u, w):
        # Table positions of the edges (u, w); -1 where there is none.
        keys = np.minimum(u, w) * self.n + np.maximum(u, w)
        at = np.minimum(np.searchsorted(self.keys, keys), len(self.keys) - 1)
        return np.where(self.keys[at] == keys, at, -1)


def planeEdge(edges, shellOf, partner, shell):
    # An edge of a shell symmetric in itself with both ends on the plane and a face on each side.
    u, w = edges.u, edges.w
    found = np.flatnonzero((edges.uses == 2) & (shellOf[u] == shell) & (partner[u] == u) & (partner[w] == w))
    return [int(edges.ids[found[0]])] if found.size else []


def mirroredEdges(edges, co, centres, shellOf, partner, shell, mirrorShell):
    # An edge of `shell` and its mirror edge on `mirrorShell` for -addToMap. The command tells the two
    # faces of each edge apart by x when the faces lie on either side of the edge along x, and x is
    # what the bend leaves alone: the edge whose faces do so by the widest margin is taken.
    u, w = edges.u, edges.w
    on = np.flatnonzero((edges.uses == 2) & (shellOf[u] == shell) & (partner[u] >= 0) & (partner[w] >= 0))
    mirror = edges.find(partner[u[on]], partner[w[on]])
    keep = mirror >= 0
    keep[keep] = (edges.uses[mirror[keep]] == 2) & (shellOf[edges.u[mirror[keep]]] == mirrorShell)
    on, mirror = on[keep], mirror[keep]
    middle = np.abs(co[u[on], 0].astype(np.float64) + co[w[on], 0]) / 2
    near0 = np.abs(centres[edges.face0[on], 0]) - middle
    near1 = np.abs(centres[edges.face1[on], 0]) - middle
    margin = np.where((near0 < 0) != (near1 < 0), np.minimum(np.abs(near0), np.abs(near1)), -1.0)
    if not on.size or margin.max() <= 0:
        return []
    best = int(np.argmax(margin))
    return [int(edges.ids[on[best]]), int(edges.ids[mirror[best]])]


def topologyMapCommands(co, counts, loops, objPath, partner):
    # The mapping commands a user runs on the mesh: the plain command, with symmetry edges for the
    # shells it leaves unmapped.
    mapped = talvenVertexOrderMap("file -i %s;\nkv_polyMapVertexOrder -axis x base;\n" % quoted(objPath))
    unmapped = np.flatnonzero((partner >= 0) & (mapped < 0))
    if not unmapped.size:
        return "kv_polyMapVertexOrder -axis x base;\n", "no symmetry edges needed"
    shellOf = shellLabels(len(co), counts, loops)
    edges = Edges(len(co), counts, loops)
    starts = np.concatenate(([0], np.cumsum(counts)[:-1]))
    centres = np.add.reduceat(co[loops].astype(np.float64), starts, axis=0) / counts[:, None]
    selfEdges, pairCommands = [], []
    shellPairs = np.sort(np.stack([shellOf[unmapped], shellOf[partner[unmapped]]], axis=1), axis=1)
    for first, second in np.unique(shellPairs, axis=0):
        if first == second:
            selfEdges += planeEdge(edges, shellOf, partner, first)
            continue
        pair = mirroredEdges(edges, co, centres, shellOf, partner, first, second)
        if pair:
            pairCommands.append("kv_polyMapVertexOrder -atm -axis x base.e[%d] base.e[%d];\n" % tuple(pair))
    objects = " ".join("base.e[%d]" % e for e in selfEdges) or "base"
    note = "%d vertices left unmapped, symmetry edges for %d shells and %d shell pairs" % (
        unmapped.size, len(selfEdges), len(pairCommands))
    return "kv_polyMapVertexOrder -axis x %s;\n" % objects + "".join(pairCommands), note


# ---- the operations ----------------------------------------------------------------------------

rows = []


def row(mesh, op, blender, talven, blenderShare="", talvenShare=""):
    rows.append((mesh, op, blender, talven, blenderShare, talvenShare))
    print("compare: %s / %s: Blender %.3f s, Talven %.3f s" % (mesh, op, blender, talven), flush=True)


def pct(x):
    return "%.1f%%" % (100.0 * x)


def blenderWeights(obj, weights):
    group = obj.vertex_groups.get("w") or obj.vertex_groups.new(name="w")
    for i, w in enumerate(weights.tolist()):
        group.add([i], w, "REPLACE")
    return group


def readGroup(group, n):
    return np.array([group.weight(i) for i in range(n)])


def weightMirror(label, co, counts, loops, objPath, partner, topology):
    n = len(co)
    weights = hashed(n, 1.0)
    side = co[:, 0] < 0 if not topology else base_co[label][:, 0] < 0
    times = []
    for _ in range(REPS):
        # A fresh object each time: Blender keeps its topology mirror table between calls on a mesh.
        obj = makeObject(co, counts, loops)
        group = blenderWeights(obj, weights)
        times.append(cpuOf(lambda: bpy.ops.object.vertex_group_mirror(
            mirror_weights=True, flip_group_names=False, all_groups=False, use_topology=topology)))
    blenderShare = share(readGroup(group, n), weights, partner, side, 1e-5)

    weightFile = os.path.join(WORK, "weights.txt")
    with open(weightFile, "w") as f:
        f.write("".join("%d %.7f\n" % (i, w) for i, w in enumerate(weights.tolist())))
    setup = "file -i %s;\nblendShape -n bs base;\nkv_blendShapeEditWeights -im -fn %s bs;\n" % (
        quoted(objPath), quoted(weightFile))
    if topology:
        mapping, note = topologyMapCommands(co, counts, loops, objPath, partner)
        print("compare: %s, topology map: %s" % (label, note), flush=True)
        op = mapping + "kv_blendShapeEditWeights -m -ob base -om base bs;\n"
    else:
        op = "kv_blendShapeEditWeights -m -om base -tol %g bs;\n" % tolerance(label)
    talven = talvenTime(setup, op)
    out = os.path.join(WORK, "mirrored.txt")
    talvenRun(setup + op + "kv_blendShapeEditWeights -ex -fn %s bs;\n" % quoted(out))
    talvenShare = share(readWeights(out, n), weights, partner, side, 1e-5)
    name = "topology map + weight mirror (bent)" if topology else "weight map mirror by position"
    row(label, name, statistics.median(times), talven, pct(blenderShare), pct(talvenShare))


def targetMirror(label, co, counts, loops, objPath, partner):
    n = len(co)
    delta = ((np.stack([hashed(n, 2.0), hashed(n, 3.0), hashed(n, 4.0)], axis=1) - 0.5) * 0.02).astype(np.float32)
    target = co + delta
    delta = target.astype(np.float64) - co  # what both tools see after float32 rounding
    expected = delta * np.array([-1.0, 1.0, 1.0])
    side = co[:, 0] < 0
    targetPath = os.path.join(WORK, "target.obj")
    writeObj(targetPath, "target", target, counts, loops)

    obj = makeObject(co, counts, loops)
    obj.shape_key_add(name="Basis")
    key = obj.shape_key_add(name="t")
    obj.active_shape_key_index = 1
    times = []
    for _ in range(REPS):
        key.data.foreach_set("co", target.ravel())
        times.append(cpuOf(lambda: bpy.ops.object.shape_key_mirror(use_topology=False)))
    result = np.empty(n * 3, dtype=np.float32)
    key.data.foreach_get("co", result)
    blenderShare = share(result.reshape(n, 3).astype(np.float64) - co, expected, partner, side, 2e-5)

    setup = "file -i %s;\nfile -i %s;\nblendShape -n bs target base;\n" % (quoted(objPath), quoted(targetPath))
    op = "kv_blendShapeMirrorTarget -f 1 -om base -tol %g bs;\n" % tolerance(label)
    talven = talvenTime(setup, op)
    out = os.path.join(WORK, "deltas.json")
    talvenRun(setup + op + "kv_blendShapeExportData -d -fn %s -cn target -i 0 bs;\n" % quoted(out))
    talvenShare = share(readDeltas(out, n), expected, partner, side, 2e-5)
    row(label, "target (shape key) flip by position", statistics.median(times), talven,
        pct(blenderShare), pct(talvenShare))


def sceneFiles(label, co, counts, loops, objPath):
    blend = os.path.join(WORK, "scene0.blend")
    ma = os.path.join(WORK, "scene.ma")
    makeObject(co, counts, loops)
    save = statistics.median(cpuOf(lambda: bpy.ops.wm.save_as_mainfile(filepath=blend, compress=False))
                             for blend in [os.path.join(WORK, "scene%d.blend" % k) for k in range(REPS)])
    reopen = statistics.median(cpuOf(lambda: bpy.ops.wm.open_mainfile(filepath=blend)) for _ in range(REPS))
    clearScene()
    imp = []
    for _ in range(REPS):
        imp.append(cpuOf(lambda: bpy.ops.wm.obj_import(filepath=objPath, forward_axis="Y", up_axis="Z")))
        clearScene()

    setup = "file -i %s;\n" % quoted(objPath)
    talvenSave = talvenTime(setup, "file -rn %s;\nfile -s;\n" % quoted(ma))
    megabytes = os.path.getsize(ma) / 1e6
    talvenReopen = talvenTime("ls;\n", "file -f -o %s;\n" % quoted(ma))
    talvenImport = talvenTime("ls;\n", setup)
    # A difference of process times at or below zero means the operation was lost in the set-up's
    # spread (a loaded machine): no rate is given then.
    def rate(seconds):
        return "%.0f MB/s" % (megabytes / seconds) if seconds > 0 else "below the set-up's spread"

    row(label, "save .blend / .ma (%.0f MB: %s)" % (megabytes, rate(talvenSave)), save, talvenSave)
    row(label, "reopen .blend / .ma (%s)" % rate(talvenReopen), reopen, talvenReopen)
    row(label, "OBJ import", statistics.median(imp), talvenImport)


# ---- run ---------------------------------------------------------------------------------------

base_co = {}
for label in MESHES:
    if label == "ict":
        path = os.path.join(DATA, "ict-facekit", "generic_neutral_mesh.obj")
        if not os.path.exists(path):
            print("compare: %s not found, the ICT head is left out" % path, flush=True)
            continue
        co, counts, loops = readObj(path)
    else:
        co, counts, loops = primitive(label)
    title = "%s (%d vertices)" % (label, len(co))
    base_co[title] = co
    objPath = os.path.join(WORK, label + ".obj")
    bentPath = os.path.join(WORK, label + "_bent.obj")
    writeObj(objPath, "base", co, counts, loops)
    writeObj(bentPath, "base", bent(co), counts, loops)
    partner = partners(co, counts, loops)
    print("compare: %s, mirror partner known for %d vertices" % (title, int(np.count_nonzero(partner >= 0))),
          flush=True)
    weightMirror(title, co, counts, loops, objPath, partner, topology=False)
    targetMirror(title, co, counts, loops, objPath, partner)
    weightMirror(title, bent(co), counts, loops, bentPath, partner, topology=True)
    sceneFiles(title, co, counts, loops, objPath)

print()
print("CPU seconds, median of %d. Blender: time.process_time() around the operator. Talven: median CPU" % REPS)
print("time of whole processes that set up and run the operation minus the median of set-up-only runs.")
print("Right partner: share of -X vertices with a known mirror partner that receive that partner's value.")
print()
print("| mesh | operation | Blender | Talven | Talven / Blender | right partner Blender | right partner Talven |")
print("|---|---|---|---|---|---|---|")
for mesh, op, b, t, bs, ts in rows:
    print("| %s | %s | %.3f | %.3f | %.2f | %s | %s |" % (mesh, op, b, t, t / b if b > 0 else math.inf, bs, ts))
