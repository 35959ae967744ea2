#include "TalvenModule.h"

#include "CommandText.h"
#include "SceneArrays.h"
#include "Statements.h"

#include "engine/Scene.h"
#include "lang/CommandTable.h"
#include "session/Session.h"

#include <pybind11/stl.h>

namespace py = pybind11;

namespace pytalven {

namespace {

py::object commandFunction(const std::string& name) {
    return py::cpp_function(
        [name](const py::args& objects, const py::kwargs& flags) {
            return runStatements(commandText(name, objects, flags));
        },
        py::name(name.c_str()), py::doc("Runs the command: objects as arguments, flags as keywords."));
}

// cmds.<name> for every command of the table, made on first use: the plug-in may register
// commands after import.
void defineCmds(py::module_& cmds) {
    cmds.def("__getattr__", [cmds](const std::string& name) mutable -> py::object {
        if (!host::commandTable().entry(name) || name.rfind("__", 0) == 0)
            throw py::attribute_error("Cannot find procedure \"" + name + "\".");
        py::object function = commandFunction(name);
        cmds.attr(name.c_str()) = function;
        return function;
    });
    cmds.def("__dir__", [] { return host::commandTable().names(); });
}

void registerSubmodule(py::module_& module, const char* name, const py::module_& submodule) {
    py::module_::import("sys").attr("modules")[(std::string("talven.") + name).c_str()] = submodule;
    module.attr(name) = submodule;
}

} // namespace

void defineTalvenModule(py::module_& module) {
    if (!host::startSession(host::commandTable(), host::messageLog()))
        throw py::import_error("talven: the session could not start");
    module.doc() = "Talven blend-shape commands and scene data from Python.";

    py::module_ cmds = module.def_submodule("cmds", "Every command, called as maya.cmds calls it.");
    defineCmds(cmds);
    registerSubmodule(module, "cmds", cmds);

    py::module_ mel = module.def_submodule("mel", "Command-language text.");
    mel.def("eval", &runStatements, py::arg("text"),
            "Runs command text and returns the last statement's result, as maya.mel.eval does.");
    registerSubmodule(module, "mel", mel);

    module.def(
        "new_scene", [] { runStatements("file -f -new"); }, "Replaces the scene with a new, empty one.");
    defineSceneArrays(module);
}

} // namespace pytalven
