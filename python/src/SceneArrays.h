#pragma once
// Large scene data as NumPy arrays: mesh points, target deltas and components, weight maps and the
// vertex order map. Reads copy into one array; writes check the whole array first, then go through
// the same API calls as the commands, recorded as one undo entry.
#include <pybind11/numpy.h>
#include <pybind11/pybind11.h>

namespace pytalven {

void defineSceneArrays(pybind11::module_& module);

} // namespace pytalven
