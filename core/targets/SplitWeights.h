#pragma once
// The arithmetic of splitting a target into one side of an axis plane: a weight per component
// with a linear ramp around the split position, and the halved centre deltas of a hard split.
#include "core/targets/TargetDeltas.h"

#include <vector>

namespace core {

struct SplitSettings {
    double blend = 0.0;       // half width of the ramp
    double center = 0.0;      // split position on the axis
    int side = 0;             // multiplier of the coordinate: 1 keeps the positive side, -1 the negative
    double tolerance = 0.001; // half width of the centre band of a hard split
    bool baseWeights = false; // the node's base weights rather than a target's weights
};

// True when the blend width rounds to zero: vertices in the centre band then get a fixed weight.
bool isHardSplit(double blend);

// The weight of a vertex at the axis coordinate v: 0 below center - blend, 1 above
// center + blend + 0.0001, a straight ramp between, rounded to five decimals and clamped to 0 .. 1.
// In a hard split a vertex within the tolerance of the plane through the origin gets 0.5 (1.0 for
// the base weights).
double splitWeight(float v, const SplitSettings& settings);

// One weight per component; coordinates holds each vertex's coordinate on the axis.
std::vector<double> splitWeights(const std::vector<int>& components, const std::vector<float>& coordinates,
                                 const SplitSettings& settings);

// The deltas of a hard split of the base weights: those of vertices in the centre band halved with
// their axis component zeroed, the others unchanged, so that two opposite halves add up to the whole.
TargetDeltas halvedCentreDeltas(const TargetDeltas& deltas, const std::vector<float>& coordinates, int axis,
                                double tolerance);

} // namespace core
