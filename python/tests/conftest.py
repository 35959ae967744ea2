"""Fixtures: a new scene per test, and a 10,000-vertex plane deformed by a blendShape."""
import pytest

import talven
from talven import cmds


@pytest.fixture
def scene():
    talven.new_scene()


@pytest.fixture
def plane(scene):
    """pl: a 100 x 100 vertex plane; bs: a blendShape on it with target 0 from its copy."""
    cmds.polyPlane(n="pl", w=2, h=2, sx=99, sy=99)
    cmds.duplicate("pl", n="shape")
    cmds.blendShape("shape", "pl", n="bs")
    return "pl"
