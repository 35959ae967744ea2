"""Scenes saved from Python and read by the talven program, and Python scripts run by it."""
import json
import os
import subprocess
import textwrap

import numpy as np
import pytest

import talven
from talven import cmds

PROGRAM = os.environ.get("TALVEN_PROGRAM", "talven")


def run_program(*arguments, cwd=None):
    return subprocess.run([PROGRAM, *arguments], capture_output=True, text=True, cwd=cwd, timeout=60)


def json_results(output):
    return [json.loads(line)["result"] for line in output.splitlines() if line.startswith("{")]


def test_scene_saved_from_python_reopens_in_the_program_and_in_python(plane, tmp_path):
    weights = np.linspace(0.0, 0.5, 10_000).astype(np.float32).astype(np.float64)
    talven.set_weights("bs", weights, 0)
    path = str(tmp_path / "edited.ma")
    cmds.file(rename=path)
    cmds.file(s=True, f=True)
    done = run_program("--json", path, "-c", "kv_blendShapeEditWeights -i 0 -gw bs; polyEvaluate -v pl")
    assert done.returncode == 0, done.stderr
    read, count = json_results(done.stdout)[-2:]
    assert count == 10_000 and np.allclose(read, weights)
    talven.new_scene()
    assert not cmds.objExists("bs")
    cmds.file(path, o=True, f=True)
    assert np.array_equal(talven.get_weights("bs", 0), weights)


def write(path, text):
    path.write_text(textwrap.dedent(text))
    return str(path)


def test_script_gets_its_arguments_and_the_module(tmp_path):
    script = write(tmp_path / "args.py", """
        import sys
        cmds = talven.cmds
        cmds.polyCube(n=sys.argv[1])
        print("argv", sys.argv[1:], cmds.polyEvaluate(sys.argv[1], v=True))
        """)
    done = run_program(script, "box", "-c", "x.ma")
    assert done.returncode == 0, done.stderr
    assert "argv ['box', '-c', 'x.ma'] 8" in done.stdout


def test_python_runs_in_order_with_other_inputs_in_one_session(tmp_path):
    before = write(tmp_path / "make.mel", "polyCube -n box;\n")
    script = write(tmp_path / "edit.py", """
        from talven import cmds
        cmds.rename("box", "crate")
        """)
    done = run_program("--json", before, script, "-c", "objExists crate; objExists box")
    assert done.returncode == 0, done.stderr
    assert json_results(done.stdout)[-2:] == [True, False]


@pytest.mark.parametrize("body, status, shown", [
    ("raise ValueError('broken script')", 1, "ValueError: broken script"),
    ("import sys; sys.exit(3)", 1, "stopped after"),
    ("import sys; sys.exit(0)", 0, ""),
    ("talven.cmds.getAttr('ghost.tx')", 1, "RuntimeError"),
])
def test_failing_scripts_stop_the_run(tmp_path, body, status, shown):
    script = write(tmp_path / "fail.py", body + "\n")
    done = run_program(script, "-c", "polyCube")
    assert done.returncode == status
    assert shown in done.stderr
    later = run_program("--json", "-c", "polyCube -n early", script, "-c", "polyCube -n late")
    assert ("late" in later.stdout) == (status == 0)


def test_a_scene_file_never_runs_python(tmp_path):
    marker = tmp_path / "ran"
    scene = write(tmp_path / "trap.ma", f"""
        //Maya ASCII 2023 scene
        requires maya "2023";
        python("open('{marker}', 'w')");
        """)
    run_program(scene)
    assert not marker.exists()
