#include "PythonScript.h"

#include "TalvenModule.h"

#include <pybind11/embed.h>

#include <iostream>
#include <memory>

namespace py = pybind11;

PYBIND11_EMBEDDED_MODULE(talven, module) {
    pytalven::defineTalvenModule(module);
}

namespace app {

namespace {

// Started once and kept until the program ends: modules imported by one script stay loaded for
// the next, as in one python process.
void startInterpreter() {
    static std::unique_ptr<py::scoped_interpreter> interpreter;
    if (!interpreter) interpreter = std::make_unique<py::scoped_interpreter>();
}

// The status of a SystemExit: 0 for none, its number, or 1 (after printing it) for anything else.
int exitStatus(const py::error_already_set& exit) {
    const py::object code = exit.value().attr("code");
    if (code.is_none()) return 0;
    if (py::isinstance<py::int_>(code)) return code.cast<int>();
    py::print(code, py::arg("file") = py::module_::import("sys").attr("stderr"));
    return 1;
}

} // namespace

bool runPythonScript(const std::string& path, const std::vector<std::string>& arguments) {
    startInterpreter();
    py::list argv;
    argv.append(path);
    for (const std::string& argument : arguments) argv.append(argument);
    py::module_::import("sys").attr("argv") = argv;

    py::dict globals;
    globals["__name__"] = "__main__";
    globals["__file__"] = path;
    globals["__builtins__"] = py::module_::import("builtins");
    globals["talven"] = py::module_::import("talven");
    try {
        py::eval_file(path, globals);
        return true;
    } catch (py::error_already_set& error) {
        if (error.matches(PyExc_SystemExit)) return exitStatus(error) == 0;
        error.restore();
        PyErr_Print();
        return false;
    }
}

} // namespace app
