#pragma once
// Runs command text in the session for Python: results as Python values, a failure as
// RuntimeError with the command's error text, warnings and information lines to the "talven"
// logger.
#include <pybind11/pybind11.h>

#include <string>

namespace pytalven {

// Runs every statement of `text` and returns the last one's result (None when it has none).
pybind11::object runStatements(const std::string& text);

} // namespace pytalven
