#pragma once
// The arithmetic of the weight map edits. Every edit clears the stored map and then writes
// elements; these functions return the elements to write after the clear, in write order (a later
// element for the same vertex overwrites an earlier one). An element left out reads as 1.0.
#include "core/weights/WeightMap.h"

#include <cstddef>
#include <vector>

namespace core {

// Set weights: every pair, except weights of 1.0 (within the compare tolerance) unless the map is
// the base weights, where every value is kept. When the number of pairs equals the sum of the
// weights exactly, the map is stored empty (an all-ones map) and nothing is returned.
WeightMap weightsToSet(const std::vector<int>& indices, const std::vector<double>& weights, bool baseWeights);

// Invert: vertex v gets 1 - w where the map (indices ascending) holds w, else 0, for every v below
// vertexCount; values of 1.0 are left out unless allValues.
WeightMap invertedWeights(const WeightMap& map, std::size_t vertexCount, bool allValues);

// Trim keeps one side of the map. coordinates holds each vertex's coordinate on the symmetry axis.
// Off the plane (tolerance^2 <= s^2 in single precision, or a weight of 1.0) a vertex keeps its
// weight on the negative side with direction true, on the positive side with direction false;
// on the plane a weight that rounds to 0.5 or more becomes 0.5 and a smaller one is removed.
// Map entries without a coordinate are removed.
WeightMap trimmedWeights(const WeightMap& map, const std::vector<float>& coordinates, float tolerance,
                         bool direction);

enum class Combine { add, subtract };
// Add or subtract the file's map from the current one over all vertices, clamped to 0 .. 1 where
// the five-decimal rounding leaves that range (values inside it stay unrounded). One result per
// vertex.
std::vector<double> combinedWeights(const WeightMap& current, const WeightMap& file, std::size_t vertexCount,
                                    Combine mode);

// Mirror and flip place source weights on partner vertices (partners[k] belongs to map entry k; -1
// or an index without a coordinate is skipped and counted).
struct MirroredWeights {
    WeightMap writes;
    std::size_t skipped = 0;
};
// Flip moves every weight to its partner.
MirroredWeights flippedWeights(const WeightMap& map, const std::vector<int>& partners,
                               const std::vector<float>& coordinates);
// Mirror copies the source side onto the other: with direction true the positive side (zero
// included) is the source, with false the negative side.
MirroredWeights mirroredWeights(const WeightMap& map, const std::vector<int>& partners,
                                const std::vector<float>& coordinates, bool direction);

// For each map entry, the first position in components that holds its vertex, or -1. Freezing
// scales the delta at that position by the entry's weight.
std::vector<int> firstPositions(const std::vector<int>& components, const std::vector<int>& vertices);

} // namespace core
