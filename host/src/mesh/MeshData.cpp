#include "mesh/MeshData.h"

#include "core/mesh/PairOccurrences.h"

#include <algorithm>

namespace host {

namespace {

// Faces as signed references to the given edges (-i-1 for edge i walked backwards), so the
// topology keeps the file's edge numbering. Face sides are matched to edges by pairing them with
// the edge list in one counting sort over vertices; a file whose vertex numbers lie outside the
// mesh (damaged) has them renumbered densely first, so that it fails where the topology check says.
std::string faceEdgeRefs(const std::vector<std::array<int, 2>>& edges, const std::vector<int>& faceCounts,
                         const std::vector<int>& faceConnects, int numVertices, std::vector<int>& refs) {
    // The faces before the first one that runs past the face list.
    std::size_t complete = 0, sides = 0;
    for (; complete < faceCounts.size(); ++complete) {
        const int count = faceCounts[complete];
        if (count < 0 || sides + static_cast<std::size_t>(count) > faceConnects.size()) break;
        sides += static_cast<std::size_t>(count);
    }
    auto outside = [numVertices](int v) { return v < 0 || v >= numVertices; };
    std::vector<int> distinct;
    if (std::any_of(edges.begin(), edges.end(),
                    [&](const auto& e) { return outside(e[0]) || outside(e[1]); }) ||
        std::any_of(faceConnects.begin(), faceConnects.begin() + static_cast<std::ptrdiff_t>(sides),
                    outside)) {
        distinct.assign(faceConnects.begin(), faceConnects.begin() + static_cast<std::ptrdiff_t>(sides));
        for (const auto& e : edges) distinct.insert(distinct.end(), e.begin(), e.end());
        std::sort(distinct.begin(), distinct.end());
        distinct.erase(std::unique(distinct.begin(), distinct.end()), distinct.end());
    }
    auto key = [&distinct](int v) {
        return distinct.empty() ? v
                                : static_cast<int>(std::lower_bound(distinct.begin(), distinct.end(), v) -
                                                   distinct.begin());
    };
    auto forEachSide = [&](auto&& visit) {
        std::size_t offset = 0;
        for (std::size_t f = 0; f < complete; ++f) {
            const auto count = static_cast<std::size_t>(faceCounts[f]);
            for (std::size_t k = 0; k < count; ++k)
                visit(faceConnects[offset + k], faceConnects[offset + (k + 1) % count]);
            offset += count;
        }
    };
    std::vector<int> first;
    core::firstPairOccurrences(
        distinct.empty() ? numVertices : static_cast<int>(distinct.size()), edges.size() + sides,
        [&](auto&& emit) {
            for (const auto& e : edges) emit(key(e[0]), key(e[1]));
            forEachSide([&](int a, int b) { emit(key(a), key(b)); });
        },
        first);
    refs.clear();
    refs.reserve(sides);
    std::string missing;
    std::size_t side = edges.size();
    forEachSide([&](int a, int b) {
        const int edge = first[side++];
        if (!missing.empty()) return;
        if (static_cast<std::size_t>(edge) >= edges.size())
            missing =
                "Face edge " + std::to_string(a) + "-" + std::to_string(b) + " is not in the edge list.";
        else
            refs.push_back(edges[static_cast<std::size_t>(edge)][0] == a ? edge : -edge - 1);
    });
    if (!missing.empty()) return missing;
    return complete < faceCounts.size() ? "Face list is truncated." : std::string();
}

} // namespace

const MeshData::Cache& MeshData::cache() const {
    if (!topology_) {
        auto cache = std::make_shared<Cache>();
        if (!edges.empty()) {
            std::vector<int> edgeVertices;
            edgeVertices.reserve(edges.size() * 2);
            for (const auto& e : edges) {
                edgeVertices.push_back(e[0]);
                edgeVertices.push_back(e[1]);
            }
            std::vector<int> refs;
            cache->error = faceEdgeRefs(edges, faceCounts, faceConnects, numVertices(), refs);
            if (cache->error.empty())
                cache->error = cache->topology.buildFromEdges(numVertices(), edgeVertices, faceCounts, refs);
        } else {
            cache->error = cache->topology.build(numVertices(), faceCounts, faceConnects);
        }
        topology_ = cache;
    }
    return *topology_;
}

const core::MeshTopology& MeshData::topology() const {
    return cache().topology;
}
const std::string& MeshData::topologyError() const {
    return cache().error;
}

} // namespace host
