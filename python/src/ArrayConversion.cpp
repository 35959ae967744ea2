#include "ArrayConversion.h"

#include <cmath>
#include <string>

namespace py = pybind11;

namespace pytalven {

py::array checkedArray(const py::dtype& dtype, const py::object& value, const char* what,
                       const char* dtypeName, py::ssize_t rows, py::ssize_t columns) {
    if (!py::isinstance<py::array>(value))
        throw py::type_error(std::string(what) + " must be a NumPy array, not " +
                             py::str(py::type::handle_of(value).attr("__name__")).cast<std::string>());
    py::array array = py::reinterpret_borrow<py::array>(value);
    if (!array.dtype().is(dtype))
        throw py::type_error(std::string(what) + " must have dtype " + dtypeName + ", not " +
                             py::str(array.dtype()).cast<std::string>());
    const py::ssize_t ndim = columns ? 2 : 1;
    if (array.ndim() != ndim || (rows >= 0 && array.shape(0) != rows) ||
        (columns && array.shape(1) != columns)) {
        std::string expected = rows >= 0 ? std::to_string(rows) : std::string("N");
        if (columns) expected += ", " + std::to_string(columns);
        throw py::value_error(std::string(what) + " must have shape (" + expected + "), not " +
                              py::str(py::tuple(array.attr("shape"))).cast<std::string>());
    }
    if (!(array.flags() & py::array::c_style))
        throw py::value_error(std::string(what) + " must be C-contiguous (use numpy.ascontiguousarray)");
    return array;
}

void requireFinite(const double* values, py::ssize_t count, const char* what) {
    for (py::ssize_t k = 0; k < count; ++k)
        if (!std::isfinite(values[k])) throw py::value_error(std::string(what) + " holds NaN or infinity");
}

void requireIndices(const std::int32_t* values, py::ssize_t count, int low, int high, const char* what) {
    for (py::ssize_t k = 0; k < count; ++k)
        if (values[k] < low || values[k] >= high)
            throw py::value_error(std::string(what) + " holds " + std::to_string(values[k]) + ", outside " +
                                  std::to_string(low) + " to " + std::to_string(high - 1));
}

Doubles pointRows(const MPointArray& points) {
    Doubles rows({static_cast<py::ssize_t>(points.length()), py::ssize_t(3)});
    double* out = rows.mutable_data();
    for (unsigned int v = 0; v < points.length(); ++v) {
        out[3 * v] = points[v].x;
        out[3 * v + 1] = points[v].y;
        out[3 * v + 2] = points[v].z;
    }
    return rows;
}

MPointArray pointsOf(const py::array& rows) {
    const double* in = static_cast<const double*>(rows.data());
    MPointArray points(static_cast<unsigned int>(rows.shape(0)));
    for (unsigned int v = 0; v < points.length(); ++v)
        points[v] = MPoint(in[3 * v], in[3 * v + 1], in[3 * v + 2]);
    return points;
}

Ints intArray(const MIntArray& values) {
    Ints array(static_cast<py::ssize_t>(values.length()));
    std::int32_t* out = array.mutable_data();
    for (unsigned int k = 0; k < values.length(); ++k) out[k] = values[k];
    return array;
}

MIntArray intsOf(const py::array& array) {
    return MIntArray(static_cast<const int*>(array.data()), static_cast<unsigned int>(array.shape(0)));
}

} // namespace pytalven
