#include "core/targets/SplitWeights.h"

#include "core/common/Numbers.h"

namespace core {

namespace {

bool inCentreBand(float v, double tolerance) {
    const double coordinate = v;
    return tolerance * tolerance > coordinate * coordinate;
}

} // namespace

bool isHardSplit(double blend) {
    return roundDouble(blend) == 0.0;
}

double splitWeight(float v, const SplitSettings& settings) {
    const double lo = settings.center - settings.blend;
    const double hi = settings.center + settings.blend + 0.0001;
    const double s = roundDouble(settings.side * static_cast<double>(v));
    double w;
    if (s < lo)
        w = 0.0;
    else if (s > hi)
        w = 1.0;
    else
        w = 1.0 - (hi - s) / (2.0 * settings.blend + 0.0001);
    w = roundDouble(w);
    w = w < 0.0 ? 0.0 : w > 1.0 ? 1.0 : w;
    if (isHardSplit(settings.blend) && inCentreBand(v, settings.tolerance))
        w = settings.baseWeights ? 1.0 : 0.5;
    return w;
}

std::vector<double> splitWeights(const std::vector<int>& components, const std::vector<float>& coordinates,
                                 const SplitSettings& settings) {
    std::vector<double> weights(components.size());
    for (std::size_t i = 0; i < components.size(); ++i)
        weights[i] = splitWeight(axisCoordinate(coordinates, components[i]), settings);
    return weights;
}

TargetDeltas halvedCentreDeltas(const TargetDeltas& deltas, const std::vector<float>& coordinates, int axis,
                                double tolerance) {
    TargetDeltas result;
    result.components = deltas.components;
    result.deltas.reserve(deltas.components.size());
    for (std::size_t i = 0; i < deltas.components.size(); ++i) {
        Delta d = i < deltas.deltas.size() ? deltas.deltas[i] : Delta{};
        if (inCentreBand(axisCoordinate(coordinates, deltas.components[i]), tolerance)) {
            d = withoutAxis(d, axis);
            d.x *= 0.5;
            d.y *= 0.5;
            d.z *= 0.5;
        }
        result.deltas.push_back(d);
    }
    return result;
}

} // namespace core
