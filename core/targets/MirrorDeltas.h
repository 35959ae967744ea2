#pragma once
// The arithmetic of mirroring, copying and flipping a target's deltas across an axis plane, and of
// leaving components out of it.
#include "core/targets/TargetDeltas.h"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace core {

// Marks a source component without a mirror partner.
constexpr std::uint32_t kNoPartner = 0xFFFFFFFFu;

// Removes, for every occurrence of an index in skip, the last remaining occurrence of that index in
// the deltas (component and delta together); indices that do not occur are ignored.
void removeSkipped(TargetDeltas& deltas, const std::vector<int>& skip);

struct MirrorSettings {
    int axis = 0;             // 0, 1, 2 for x, y, z
    int type = 0;             // 0 mirror, 1 copy to the opposite side, 2 apply to the opposite side
    bool flip = false;        // flip the whole shape (mirrors as type 2 does)
    bool direction = true;    // true: the positive side is the source
    float tolerance = 0.001f; // a tenth of it is the half width of the centre band
};

struct MirroredDeltas {
    TargetDeltas output;
    std::size_t skipped = 0; // source deltas whose partner is missing
};

// partners[i] is the mirror vertex of source entry i (kNoPartner, or an index without a coordinate,
// when it has none); coordinates holds each rest vertex's coordinate on the axis. Each source delta
// on the source side (or, when flipping or applying, on either side) is written to its partner
// with the axis component negated; in type 0 source-side deltas within the centre band lose their
// axis component, and source-side deltas whose vertex received no mirrored delta are kept.
MirroredDeltas mirrorDeltas(const TargetDeltas& source, const std::vector<std::uint32_t>& partners,
                            const std::vector<float>& coordinates, const MirrorSettings& settings);

} // namespace core
