"""Calls in the maya.cmds form: flag conversion, result types, errors and messages."""
import logging
import math

import pytest

import talven
from talven import cmds, mel


@pytest.mark.parametrize("call, mel_text", [
    # short and long names, a flag standing alone, a boolean-argument flag
    (lambda: cmds.polyEvaluate("pl", v=True), "polyEvaluate -v pl"),
    (lambda: cmds.polyEvaluate("pl", vertex=True), "polyEvaluate -v pl"),
    (lambda: cmds.getAttr("pl.tx", type=True), "getAttr -type pl.tx"),
    (lambda: cmds.listConnections("bs", s=True, d=False), "listConnections -s 1 -d 0 bs"),
    (lambda: cmds.listConnections("bs", source=False, destination=True), "listConnections -s 0 -d 1 bs"),
    # objects as a list, a flag of False left out
    (lambda: cmds.ls(["pl", "bs"], type="blendShape"), "ls -type blendShape pl bs"),
    (lambda: cmds.polyEvaluate("pl", v=True, f=False), "polyEvaluate -v pl"),
])
def test_call_matches_command_text(plane, call, mel_text):
    assert call() == mel.eval(mel_text)


def test_multi_use_and_tuple_flags(plane):
    cmds.kv_blendShapeEditWeights("bs", i=0, sw=True, wi=[4, 5], w=[0.5, 0.25])
    weights = talven.get_weights("bs", 0)
    assert (weights[4], weights[5], weights[6]) == (0.5, 0.25, 1.0)
    assert cmds.kv_blendShapeEditWeights("bs", index=0, getIndices=True) == [4, 5]
    cmds.optionVar(iv=("talvenPythonTest", 3))
    assert cmds.optionVar(q="talvenPythonTest") == 3
    cmds.optionVar(remove="talvenPythonTest")


@pytest.mark.parametrize("call, result_type", [
    (lambda: cmds.polyEvaluate("pl", v=True), int),
    (lambda: cmds.getAttr("pl.tx"), float),
    (lambda: cmds.getAttr("pl.v"), bool),
    (lambda: cmds.objExists("pl"), bool),
    (lambda: cmds.getAttr("pl.tx", type=True), str),
    (lambda: cmds.select("pl"), type(None)),
])
def test_result_types(plane, call, result_type):
    assert type(call()) is result_type


def test_list_results_hold_python_values(plane):
    names = cmds.ls(type="mesh")
    assert isinstance(names, list) and all(isinstance(n, str) for n in names)
    assert "plShape" in names


@pytest.mark.parametrize("call, error, text", [
    (lambda: cmds.noSuchCommand(), AttributeError, 'Cannot find procedure "noSuchCommand".'),
    (lambda: cmds.polyEvaluate("pl", noSuchFlag=True), RuntimeError, "Invalid flag"),
    (lambda: cmds.getAttr("ghost.tx"), RuntimeError, "ghost"),
    # wrong Python types, caught before the command runs
    (lambda: cmds.kv_blendShapeEditWeights("bs", fl=[0.5, 1.0]), TypeError, "flag fl takes one"),
    (lambda: cmds.kv_blendShapeEditWeights("bs", sw=True, wi="4", w=0.5), TypeError, "needs an integer"),
    (lambda: cmds.kv_blendShapeEditWeights("bs", sw=True, wi=4, w=math.nan), ValueError, "not a finite"),
    (lambda: cmds.kv_blendShapeEditWeights("bs", sw=True, wi=4, w="0.5"), TypeError, "needs a number"),
    (lambda: cmds.kv_blendShapeEditWeights("bs", gw=1), TypeError, "takes no value"),
    (lambda: cmds.kv_blendShapeEditWeights("bs", fl=(0.5, 0.5)), TypeError, "takes 1 value"),
    (lambda: cmds.polyCube(w=None), TypeError, "None"),
    (lambda: cmds.polyCube(w={}), TypeError, "dict"),
    (lambda: cmds.polyCube(**{"w 1; file -new": 1}), TypeError, "not a flag name"),
    (lambda: cmds.polyPlane(sx="ten"), RuntimeError, "needs an integer"),
])
def test_errors_leave_the_scene_unchanged(plane, call, error, text):
    before = cmds.ls()
    weights = talven.get_weights("bs", 0)
    with pytest.raises(error, match=None) as raised:
        call()
    assert text in str(raised.value)
    assert cmds.ls() == before
    assert (talven.get_weights("bs", 0) == weights).all()


def test_warnings_and_information_go_to_logging(plane, caplog):
    with caplog.at_level(logging.INFO, logger="talven"):
        cmds.kv_blendShapeEditWeights("bs", i=0, om="pl", sw=True, wi=[4, 20000], w=[0.5, 0.5])
        cmds.kv_displayMessage(info="note -1")
    records = [(r.levelname, r.getMessage()) for r in caplog.records if r.name == "talven"]
    assert ("WARNING", "Skipped 1 weights: 1 with a vertex index outside the mesh (0 to 9999).") in records
    assert ("INFO", "note -1") in records


def test_mel_eval_returns_the_last_result_and_stops_at_a_failure(scene):
    assert mel.eval("polyCube -n a; polyEvaluate -v a") == 8
    with pytest.raises(RuntimeError, match='Cannot find procedure "nothing"'):
        mel.eval("polyCube -n b; nothing; polyCube -n c")
    assert cmds.objExists("b") and not cmds.objExists("c")


def test_dir_lists_builtin_and_plugin_commands():
    names = dir(cmds)
    assert "getAttr" in names and "kv_blendShapeEditWeights" in names
    assert cmds.kv_blendShapeEditWeights is cmds.kv_blendShapeEditWeights
