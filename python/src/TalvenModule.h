#pragma once
// The contents of the Python module `talven`, shared by the extension module and the talven
// program, which embeds Python with the module built in so that both use one session.
#include <pybind11/pybind11.h>

namespace pytalven {

// Starts the session (commands and plug-in) and fills `module`: cmds, mel, new_scene and the
// array functions.
void defineTalvenModule(pybind11::module_& module);

} // namespace pytalven
