"""Talven quick start in Python: the steps of quickstart.mel written as a pipeline script writes them.

Run it with either of:
    talven examples/quickstart.py
    PYTHONPATH=build/dev/python python3 examples/quickstart.py
In Maya the same calls run with `from maya import cmds` instead of `from talven import cmds`.
"""
import logging

import numpy as np

import talven
from talven import cmds

# Warnings and information lines of the commands go to the "talven" logger (the talven program
# also prints them as the script editor does).
logging.getLogger("talven").setLevel(logging.WARNING)

# A cube to work on: 8 vertices, 12 edges, 6 faces.
cmds.polyCube(n="box")

# A blend shape node. Targets live under inputTarget[0].inputTargetGroup[k] (k is the weight
# index); item 6000 of a target is its full shape, with point deltas (ipt) for the vertices of its
# component list (ict), in the same order.
cmds.createNode("blendShape", n="blendShape1")
item = "blendShape1.it[0].itg[{}].iti[{}]"

# Target 0 lifts the top four vertices (2, 3, 4, 5) by half a unit.
cmds.setAttr(item.format(0, 6000) + ".ict", 1, "vtx[2:5]", type="componentList")
cmds.setAttr(item.format(0, 6000) + ".ipt", 4, *[0, 0.5, 0, 1] * 4, type="pointArray")

# Target 1 pushes vertices 0, 1 and 7 outwards, with an in-between at weight 0.5 (item 5500).
for index, scale in ((6000, 0.2), (5500, 0.1)):
    cmds.setAttr(item.format(1, index) + ".ict", 2, "vtx[0:1]", "vtx[7]", type="componentList")
    deltas = [-scale, 0, scale, 1, scale, 0, scale, 1, -scale, 0, -scale, 1]
    cmds.setAttr(item.format(1, index) + ".ipt", 3, *deltas, type="pointArray")

# The weight channels, one per target, with names (aliases) for the channel box.
for index, weight, alias in ((0, 0, "lift"), (1, 0.5, "bulge"), (5, 1, "dent")):
    cmds.setAttr(f"blendShape1.w[{index}]", weight)
    cmds.aliasAttr(alias, f"blendShape1.w[{index}]")

# Target 5: weight indices need not be contiguous. Its deltas are written as NumPy arrays.
talven.set_target_deltas("blendShape1", 5, np.array([[0.0, -0.3, 0.0]]), np.array([6], dtype=np.int32))

# The weight indices of the blend shape: [0, 1, 5]; with no argument, of the selected node.
print("indices:", cmds.kv_getBlendShapeIndices("blendShape1"))
cmds.select("blendShape1", r=True)
print("indices of the selection:", cmds.kv_getBlendShapeIndices())

# The vertices of target 1's full shape: [0, 1, 7], then selected on the cube (-ct 0: vertices).
print("components:", cmds.kv_getComponentList(at=item.format(1, 6000) + ".ict"))
cmds.kv_getComponentList(at=item.format(1, 6000) + ".ict", sl="box", ct=0)
print("selected:", cmds.ls(sl=True))

# Messages for scripts; an error (-e) would raise RuntimeError.
cmds.kv_displayMessage(i="The blend shape is set up.")
cmds.kv_displayMessage(w="Target 5 has only one vertex.")
try:
    cmds.kv_displayMessage(e="Shown as an exception.")
except RuntimeError as error:
    print("caught:", error)

# 90 degrees about x in xyz order, expressed in zyx order (5).
print("rotation:", cmds.kv_reorderRotation(irx=90, iry=0, irz=0, io=0, oo=5))

# ---- Weight maps ----
# A sphere with a blend shape driven by a copy of itself; a vertex without a stored weight weighs 1.
cmds.polySphere(sx=8, sy=4, n="head")
cmds.polySphere(sx=8, sy=4, n="smile")
cmds.blendShape("smile", "head", n="faceShapes")

# Paint three vertices of target 0 (multi-use flags take lists), then read the map back.
cmds.kv_blendShapeEditWeights("faceShapes", sw=True, wi=[8, 15, 14], w=[0.25, 0.5, 0.75], i=0)
print("painted:", cmds.kv_blendShapeEditWeights("faceShapes", gi=True))

# Mirror the map across x by position, then trim it to the negative side.
cmds.kv_blendShapeEditWeights("faceShapes", m=True, om="head")
cmds.kv_blendShapeEditWeights("faceShapes", t=True, om="head")
print("trimmed:", cmds.kv_blendShapeEditWeights("faceShapes", gw=True))

# The whole map as a NumPy array, one weight per vertex; halved, written back, and undone.
weights = talven.get_weights("faceShapes", 0)
print("dense map:", weights.round(3))
talven.set_weights("faceShapes", weights * 0.5, 0)
print("halved:", talven.get_weights("faceShapes", 0).min())
cmds.undo()
print("after undo:", talven.get_weights("faceShapes", 0).min())

# The sphere's points as an (N, 3) array.
points = talven.get_points("head")
print("points:", points.shape, "height", points[:, 1].max() - points[:, 1].min())
