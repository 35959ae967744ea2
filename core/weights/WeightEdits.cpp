#include "core/weights/WeightEdits.h"

#include "core/common/Numbers.h"

#include <algorithm>
#include <utility>

namespace core {

namespace {

bool isOne(double w) {
    return compareDouble(w, 1.0);
}

bool hasCoordinate(int v, const std::vector<float>& coordinates) {
    return v >= 0 && static_cast<std::size_t>(v) < coordinates.size();
}

} // namespace

WeightMap weightsToSet(const std::vector<int>& indices, const std::vector<double>& weights,
                       bool baseWeights) {
    WeightMap writes;
    const std::size_t count = std::min(indices.size(), weights.size());
    double sum = 0.0;
    for (std::size_t k = 0; k < count; ++k) {
        sum += weights[k];
        if (baseWeights || !isOne(weights[k])) writes.append(indices[k], weights[k]);
    }
    if (count != 0 && static_cast<double>(count) == sum) return WeightMap();
    return writes;
}

WeightMap invertedWeights(const WeightMap& map, std::size_t vertexCount, bool allValues) {
    WeightMap writes;
    std::size_t cursor = 0;
    for (std::size_t v = 0; v < vertexCount; ++v) {
        double value = 0.0;
        if (cursor < map.size() && map.indices[cursor] == static_cast<int>(v)) {
            value = 1.0 - map.weights[cursor];
            ++cursor;
        }
        if (allValues || !isOne(value)) writes.append(static_cast<int>(v), value);
    }
    return writes;
}

WeightMap trimmedWeights(const WeightMap& map, const std::vector<float>& coordinates, float tolerance,
                         bool direction) {
    WeightMap writes;
    const std::vector<double> full = fullWeights(coordinates.size(), map);
    const float toleranceSquared = tolerance * tolerance;
    for (const int v : map.indices) {
        if (!hasCoordinate(v, coordinates)) continue;
        const double w = full[static_cast<std::size_t>(v)];
        const float s = coordinates[static_cast<std::size_t>(v)];
        if (toleranceSquared <= s * s || isOne(w)) {
            const bool keep = direction ? s < 0.f : s > 0.f;
            if (keep && !isOne(w)) writes.append(v, w);
        } else if (roundDouble(w) >= 0.5) {
            writes.append(v, 0.5);
        }
    }
    return writes;
}

std::vector<double> combinedWeights(const WeightMap& current, const WeightMap& file, std::size_t vertexCount,
                                    Combine mode) {
    std::vector<double> result = fullWeights(vertexCount, current);
    const std::vector<double> other = fullWeights(vertexCount, file);
    for (std::size_t v = 0; v < vertexCount; ++v) {
        double r = mode == Combine::add ? result[v] + other[v] : result[v] - other[v];
        const double rounded = roundDouble(r);
        if (rounded < 0.0)
            r = 0.0;
        else if (rounded > 1.0)
            r = 1.0;
        result[v] = r;
    }
    return result;
}

MirroredWeights flippedWeights(const WeightMap& map, const std::vector<int>& partners,
                               const std::vector<float>& coordinates) {
    MirroredWeights result;
    const std::size_t count = std::min(map.size(), partners.size());
    result.skipped = map.size() - count;
    for (std::size_t k = 0; k < count; ++k) {
        const int partner = partners[k];
        if (!hasCoordinate(partner, coordinates)) {
            ++result.skipped;
            continue;
        }
        if (!isOne(map.weights[k])) result.writes.append(partner, map.weights[k]);
    }
    return result;
}

MirroredWeights mirroredWeights(const WeightMap& map, const std::vector<int>& partners,
                                const std::vector<float>& coordinates, bool direction) {
    MirroredWeights result;
    const std::size_t count = std::min(map.size(), partners.size());
    result.skipped = map.size() - count;
    for (std::size_t k = 0; k < count; ++k) {
        const int partner = partners[k];
        const int source = map.indices[k];
        if (!hasCoordinate(partner, coordinates) || !hasCoordinate(source, coordinates)) {
            ++result.skipped;
            continue;
        }
        const double w = map.weights[k];
        if (isOne(w)) continue;
        // Zero counts as the positive side in both directions.
        const bool partnerNegative = coordinates[static_cast<std::size_t>(partner)] < 0.f;
        const bool sourceNegative = coordinates[static_cast<std::size_t>(source)] < 0.f;
        if (direction ? partnerNegative : !partnerNegative) result.writes.append(partner, w);
        if (direction ? !sourceNegative : sourceNegative) result.writes.append(source, w);
    }
    return result;
}

std::vector<int> firstPositions(const std::vector<int>& components, const std::vector<int>& vertices) {
    // (vertex, position) sorted, so the first position of a vertex is its lower bound.
    std::vector<std::pair<int, int>> byVertex(components.size());
    for (std::size_t j = 0; j < components.size(); ++j) byVertex[j] = {components[j], static_cast<int>(j)};
    std::sort(byVertex.begin(), byVertex.end());
    std::vector<int> positions(vertices.size(), -1);
    for (std::size_t k = 0; k < vertices.size(); ++k) {
        const auto found = std::lower_bound(
            byVertex.begin(), byVertex.end(), std::make_pair(vertices[k], 0),
            [](const std::pair<int, int>& a, const std::pair<int, int>& b) { return a.first < b.first; });
        if (found != byVertex.end() && found->first == vertices[k]) positions[k] = found->second;
    }
    return positions;
}

} // namespace core
