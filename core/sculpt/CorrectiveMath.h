#pragma once
// The arithmetic of corrective extraction on plain arrays. A sculpt T made on a deformed mesh S is
// taken back into the space of the undeformed mesh B. The deformation is sampled by three probes,
// PX, PY and PZ: the deformed points when B is moved by one unit along x, y and z. For each vertex
// the probes give the deformation's local axes ax = PX - S, ay = PY - S, az = PZ - S, and
//   corrected = T · A⁻¹ · D
// with A the rows (ax, 0), (ay, 0), (az, 0), (S, 1) and D the translation by B: B plus the sculpt
// offset T - S expressed in the local axes. Points are (x, y, z, w) and matrices row-major acting
// on row vectors.
#include <array>
#include <cstddef>
#include <vector>

namespace core {

using Point4 = std::array<double, 4>;
using Matrix4 = std::array<std::array<double, 4>, 4>;

// The inverse of a matrix whose last column is (0, 0, 0, 1). A singular matrix (a vertex that the
// deformation collapses) inverts to the identity, as the host's MMatrix::inverse does, so the
// result is always finite.
Matrix4 inverseAffine(const Matrix4& m);

// The points with `offset` added to coordinate `axis` (0, 1, 2) of each.
std::vector<Point4> offsetPoints(const std::vector<Point4>& points, int axis, double offset);

// True when some point differs from its partner in x, y, z or w (exact comparison). Only the
// common length is compared.
bool pointsDiffer(const std::vector<Point4>& a, const std::vector<Point4>& b);

struct CorrectiveInput {
    const std::vector<Point4>& sculpt;   // T
    const std::vector<Point4>& deformed; // S, at the current pose
    const std::vector<Point4>& original; // B
    const std::vector<Point4>& probeX;   // deformed points of B + (1, 0, 0)
    const std::vector<Point4>& probeY;
    const std::vector<Point4>& probeZ;
};

// One corrected point per vertex; all arrays must hold the same number of points (the shortest
// length is used otherwise).
std::vector<Point4> correctivePoints(const CorrectiveInput& in);

} // namespace core
