#pragma once
// Four floats worked on together, in one SSE register (or its like on other machines), for
// measuring a point against several boxes at once.
#include <cstddef>
#include <cstring>

namespace host {

constexpr std::size_t kLanes = 4;
using FloatLanes = float __attribute__((vector_size(kLanes * sizeof(float))));

inline FloatLanes loadLanes(const float* values) {
    FloatLanes lanes;
    std::memcpy(&lanes, values, sizeof lanes);
    return lanes;
}

// The squared distances from p to four boxes, box i spanning lo[k][i]..hi[k][i] along axis k,
// each box grown by `allowance` on every side. Clamping into the box, rather than branching on
// the side, keeps this branch-free.
inline FloatLanes squaredBoxGaps(const float (&p)[3], const float* const (&lo)[3],
                                 const float* const (&hi)[3], float allowance) {
    FloatLanes sum = {};
    for (int k = 0; k < 3; ++k) {
        const FloatLanes at = FloatLanes{} + p[k];
        const FloatLanes low = loadLanes(lo[k]) - allowance, high = loadLanes(hi[k]) + allowance;
        const FloatLanes above = at < low ? low : at;
        const FloatLanes gap = at - (high < above ? high : above);
        sum += gap * gap;
    }
    return sum;
}

} // namespace host
