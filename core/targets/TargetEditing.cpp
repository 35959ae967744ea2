#include "core/targets/TargetEditing.h"

#include <algorithm>
#include <cmath>

namespace core {

namespace {

// One flag per index from 0 to the largest given index; negative indices are not marked.
std::vector<bool> membership(const std::vector<int>& indices, std::size_t size) {
    std::vector<bool> marked(size, false);
    for (const int index : indices)
        if (index >= 0 && static_cast<std::size_t>(index) < size)
            marked[static_cast<std::size_t>(index)] = true;
    return marked;
}

std::size_t indexSpan(const std::vector<int>& indices) {
    int largest = -1;
    for (const int index : indices) largest = std::max(largest, index);
    return static_cast<std::size_t>(largest + 1);
}

} // namespace

SparseDeltas meshDeltas(const std::vector<float>& original, const std::vector<float>& mesh) {
    SparseDeltas result;
    const std::size_t count = std::min(original.size(), mesh.size()) / 3;
    for (std::size_t v = 0; v < count; ++v) {
        const float dx = mesh[3 * v] - original[3 * v];
        const float dy = mesh[3 * v + 1] - original[3 * v + 1];
        const float dz = mesh[3 * v + 2] - original[3 * v + 2];
        const double length = std::sqrt(static_cast<double>(dx) * dx + static_cast<double>(dy) * dy +
                                        static_cast<double>(dz) * dz);
        if (length == 0.0) continue;
        result.components.push_back(static_cast<int>(v));
        result.deltas.insert(result.deltas.end(), {dx, dy, dz});
    }
    return result;
}

std::vector<std::size_t> unselectedPositions(const std::vector<int>& components,
                                             const std::vector<int>& selected) {
    const std::vector<bool> isSelected = membership(selected, indexSpan(components));
    std::vector<std::size_t> kept;
    kept.reserve(components.size());
    for (std::size_t k = 0; k < components.size(); ++k) {
        const int v = components[k];
        if (v >= 0 && isSelected[static_cast<std::size_t>(v)]) continue;
        kept.push_back(k);
    }
    return kept;
}

void addOffsets(std::vector<float>& points, const std::vector<int>& vertices,
                const std::vector<double>& offsets) {
    const std::size_t count = std::min(vertices.size(), offsets.size() / 3);
    const std::size_t vertexCount = points.size() / 3;
    for (std::size_t k = 0; k < count; ++k) {
        const int v = vertices[k];
        if (v < 0 || static_cast<std::size_t>(v) >= vertexCount) continue;
        float* p = &points[3 * static_cast<std::size_t>(v)];
        for (std::size_t c = 0; c < 3; ++c) p[c] += static_cast<float>(offsets[3 * k + c]);
    }
}

} // namespace core
