#pragma once
// A maya.cmds-style call (objects as positional arguments, flags as keyword arguments) written as
// one statement of the command language, for the interpreter to run.
#include <pybind11/pybind11.h>

#include <string>

namespace pytalven {

// Raises TypeError or ValueError for values no flag or object can take (None, NaN, a list where
// the flag takes one value, a string where it takes a number, ...).
std::string commandText(const std::string& command, const pybind11::args& objects,
                        const pybind11::kwargs& flags);

} // namespace pytalven
