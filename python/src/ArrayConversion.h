#pragma once
// NumPy arrays to and from the interface's arrays, and the checks a written array must pass. A
// failed check raises TypeError or ValueError naming what is wrong.
#include <pybind11/numpy.h>
#include <pybind11/pybind11.h>

#include <maya/MIntArray.h>
#include <maya/MPointArray.h>

#include <cstdint>

namespace pytalven {

using Doubles = pybind11::array_t<double>;
using Ints = pybind11::array_t<std::int32_t>;

// The array as given, with exactly this dtype, C-contiguous, `rows` long (any length for -1) and
// with `columns` columns (one dimension for 0). Nothing is converted, so a float32 or strided array
// is refused rather than silently copied.
pybind11::array checkedArray(const pybind11::dtype& dtype, const pybind11::object& value, const char* what,
                             const char* dtypeName, pybind11::ssize_t rows, pybind11::ssize_t columns);
void requireFinite(const double* values, pybind11::ssize_t count, const char* what);
// Every value in [low, high).
void requireIndices(const std::int32_t* values, pybind11::ssize_t count, int low, int high, const char* what);

Doubles pointRows(const MPointArray& points); // (N, 3), w left out
MPointArray pointsOf(const pybind11::array& rows);
Ints intArray(const MIntArray& values);
MIntArray intsOf(const pybind11::array& array);

} // namespace pytalven
