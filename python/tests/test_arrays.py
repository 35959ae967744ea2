"""NumPy access on a 10,000-vertex mesh, checked against what the commands read and write."""
import numpy as np
import pytest

import talven
from talven import cmds

VERTICES = 10_000


def test_points_round_trip_and_undo(plane):
    points = talven.get_points("pl")
    assert points.shape == (VERTICES, 3) and points.dtype == np.float64
    assert cmds.polyEvaluate("pl", v=True) == VERTICES
    assert list(points[123]) == cmds.pointPosition("pl.vtx[123]", l=True)
    moved = points + np.array([0.0, 0.5, 0.0])
    talven.set_points("plShape", moved)
    assert np.array_equal(talven.get_points("pl"), moved)
    assert cmds.pointPosition("pl.vtx[9999]", l=True) == list(moved[9999])
    cmds.undo()
    assert np.array_equal(talven.get_points("pl"), points)
    cmds.redo()
    assert np.array_equal(talven.get_points("pl"), moved)


def test_target_deltas_round_trip_and_undo(plane):
    components = np.arange(0, VERTICES, 7, dtype=np.int32)
    deltas = np.zeros((len(components), 3))
    deltas[:, 1] = components / VERTICES
    talven.set_target_deltas("bs", 0, deltas, components)
    assert np.array_equal(talven.get_target_components("bs", 0), components)
    assert np.array_equal(talven.get_target_deltas("bs", 0), deltas)
    # the command's view of the same item: a component list and a point array with w
    items = cmds.getAttr("bs.it[0].itg[0].iti[6000].ict")
    assert items[:2] == ["vtx[0]", "vtx[7]"]
    stored = np.array(cmds.getAttr("bs.it[0].itg[0].iti[6000].ipt")).reshape(-1, 4)
    assert np.array_equal(stored[:, :3], deltas)
    cmds.undo()
    assert len(talven.get_target_components("bs", 0)) == 0


@pytest.mark.parametrize("target", [-1, 0])
def test_weights_round_trip_and_undo(plane, target):
    assert np.array_equal(talven.get_weights("bs", target), np.ones(VERTICES))
    # weights are stored in single precision
    weights = np.linspace(0.0, 1.0, VERTICES).astype(np.float32).astype(np.float64)
    talven.set_weights("bs", weights, target)
    assert np.array_equal(talven.get_weights("bs", target), weights)
    cmds.undo()
    assert np.array_equal(talven.get_weights("bs", target), np.ones(VERTICES))
    cmds.redo()
    # the weight command reads what was written; a weight of 1.0 is only stored for the base map
    stored = cmds.kv_blendShapeEditWeights("bs", i=target, gi=True)
    assert len(stored) == (VERTICES if target == -1 else VERTICES - 1)
    assert np.array_equal(cmds.kv_blendShapeEditWeights("bs", i=target, gw=True), weights[stored])


def test_rewriting_a_map_undoes_write_by_write(plane):
    # the second write finds the elements of the first and writes over them in place
    first = np.linspace(0.0, 0.5, VERTICES).astype(np.float32).astype(np.float64)
    second = first[::-1].copy()
    talven.set_weights("bs", first, -1)
    talven.set_weights("bs", second, -1)
    for action, expected in [(cmds.undo, first), (cmds.undo, np.ones(VERTICES)), (cmds.redo, first),
                             (cmds.redo, second)]:
        action()
        assert np.array_equal(talven.get_weights("bs", -1), expected)
    # a map with other elements is replaced whole
    talven.set_weights("bs", np.where(np.arange(VERTICES) % 2 == 0, 0.5, 1.0), 0)
    talven.set_weights("bs", first, 0)
    cmds.undo()
    assert talven.get_weights("bs", 0)[1] == 1.0


def test_written_weights_deform_the_mesh_and_take_element_edits(plane):
    rest = talven.get_points("pl")
    talven.set_target_deltas("bs", 0, np.tile([0.0, 1.0, 0.0], (VERTICES, 1)),
                             np.arange(VERTICES, dtype=np.int32))
    cmds.setAttr("bs.w[0]", 1.0)
    weights = np.linspace(0.0, 0.5, VERTICES).astype(np.float32).astype(np.float64)
    talven.set_weights("bs", weights, 0)
    assert np.allclose(talven.get_points("pl")[:, 1] - rest[:, 1], weights, atol=1e-6)
    # an edit of one element keeps every other
    cmds.setAttr("bs.it[0].itg[0].tw[7]", 0.75)
    expected = weights.copy()
    expected[7] = 0.75
    assert np.array_equal(talven.get_weights("bs", 0), expected)
    cmds.undo()
    assert np.array_equal(talven.get_weights("bs", 0), weights)


def test_weights_written_by_the_command_read_densely(plane):
    cmds.kv_blendShapeEditWeights("bs", i=0, sw=True, wi=[0, 9999], w=[0.25, 0.75])
    weights = talven.get_weights("bs", 0)
    assert (weights[0], weights[9999], weights[5000]) == (0.25, 0.75, 1.0)


def mirrored_grid(columns, rows):
    """Each vertex of a grid of planes's vertices paired with its mirror image in x."""
    row, column = np.divmod(np.arange(columns * rows), columns)
    return (row * columns + columns - 1 - column).astype(np.int32)


def test_vertex_order_map_round_trip_and_undo(plane):
    mapped = mirrored_grid(100, 100)
    talven.set_vertex_order_map("pl", mapped)
    assert np.array_equal(talven.get_vertex_order_map("pl"), mapped)
    assert cmds.getAttr("plShape.kvVertexOrderMap") == list(mapped)
    talven.set_vertex_order_map("pl", mapped[::-1].copy())
    assert np.array_equal(talven.get_vertex_order_map("pl"), mapped[::-1])
    cmds.undo()
    assert np.array_equal(talven.get_vertex_order_map("pl"), mapped)


def test_vertex_order_map_made_by_the_command(scene):
    # a plane with a centre column of vertices, which mapping starts from
    cmds.polyPlane(n="small", sx=4, sy=4)
    cmds.kv_polyMapVertexOrder("small", a="x")
    mapped = talven.get_vertex_order_map("small")
    assert mapped.dtype == np.int32
    assert np.array_equal(mapped, mirrored_grid(5, 5))


def _float_column():
    return np.zeros((VERTICES, 2))[:, 0]


@pytest.mark.parametrize("write, error, text", [
    (lambda: talven.set_weights("bs", np.ones(VERTICES - 1)), ValueError, "shape (10000)"),
    (lambda: talven.set_weights("bs", np.ones(VERTICES, dtype=np.float32)), TypeError, "dtype float64"),
    (lambda: talven.set_weights("bs", [1.0] * VERTICES), TypeError, "NumPy array"),
    (lambda: talven.set_weights("bs", _float_column()), ValueError, "C-contiguous"),
    (lambda: talven.set_weights("bs", np.full(VERTICES, np.nan)), ValueError, "NaN"),
    (lambda: talven.set_weights("bs", np.ones(VERTICES), 5), ValueError, "bs has no target 5"),
    (lambda: talven.set_weights("ghost", np.ones(VERTICES)), ValueError, "No object matches name: ghost"),
    (lambda: talven.set_weights("pl", np.ones(VERTICES)), ValueError, "pl is not a blendShape node"),
    (lambda: talven.set_points("bs", np.zeros((VERTICES, 3))), ValueError, "bs is not a mesh"),
    (lambda: talven.set_points("pl", np.zeros((VERTICES, 4))), ValueError, "shape (10000, 3)"),
    (lambda: talven.set_points("pl", np.zeros((3, VERTICES)).T), ValueError, "C-contiguous"),
    (lambda: talven.set_target_deltas("bs", 0, np.zeros((2, 3)), np.array([1, 2, 3], dtype=np.int32)),
     ValueError, "shape (3, 3)"),
    (lambda: talven.set_target_deltas("bs", 0, np.zeros((1, 3)), np.array([VERTICES], dtype=np.int32)),
     ValueError, "outside 0 to 9999"),
    (lambda: talven.set_target_deltas("bs", 0, np.zeros((1, 3)), np.array([1], dtype=np.int64)),
     TypeError, "dtype int32"),
    (lambda: talven.set_vertex_order_map("pl", np.full(VERTICES, -2, dtype=np.int32)), ValueError, "-2"),
    (lambda: talven.get_vertex_order_map("pl"), ValueError, "pl has no vertex order map"),
])
def test_bad_arrays_leave_the_scene_unchanged(plane, write, error, text):
    points = talven.get_points("pl")
    weights = talven.get_weights("bs")
    with pytest.raises(error) as raised:
        write()
    assert text in str(raised.value)
    assert np.array_equal(talven.get_points("pl"), points)
    assert np.array_equal(talven.get_weights("bs"), weights)
    assert len(talven.get_target_components("bs", 0)) == 0
