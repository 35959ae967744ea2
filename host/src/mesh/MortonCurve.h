#pragma once
// A Morton (Z-order) curve through a box: positions quantized to a 2^10 grid per axis, with the
// bits of the three cell coordinates interleaved into one 30-bit code. Sorting by code lays
// positions out so that neighbours in space are mostly neighbours in the order; a thousand cells
// a side tell apart the faces of a million-vertex mesh, and 32-bit codes sort in four passes.
#include <array>
#include <cstdint>
#include <vector>

namespace host {

class MortonCurve {
public:
    MortonCurve() = default;
    // The curve through the bounding box of the positions.
    explicit MortonCurve(const std::vector<std::array<float, 3>>& positions);

    // The code of the cell holding p; points outside the box take the nearest cell.
    std::uint32_t code(const double (&p)[3]) const;

    // The positions' codes, sorted, and for each the position it came from (equal codes keep
    // their order).
    struct Order {
        std::vector<std::uint32_t> codes;
        std::vector<std::uint32_t> positions;
    };
    Order sort(const std::vector<std::array<float, 3>>& positions) const;

private:
    std::array<double, 3> lo_{};
    std::array<double, 3> scale_{};
};

} // namespace host
