#include "mesh/MeshData.h"

#include <unordered_map>

namespace host {

namespace {

uint64_t pairKey(int a, int b) {
    const auto lo = static_cast<uint32_t>(a < b ? a : b);
    const auto hi = static_cast<uint32_t>(a < b ? b : a);
    return (static_cast<uint64_t>(hi) << 32) | lo;
}

// Faces as signed references to the given edges (-i-1 for edge i walked backwards), so the
// topology keeps the file's edge numbering.
std::string faceEdgeRefs(const std::vector<std::array<int, 2>>& edges, const std::vector<int>& faceCounts,
                         const std::vector<int>& faceConnects, std::vector<int>& refs) {
    std::unordered_map<uint64_t, int> index;
    index.reserve(edges.size() * 2);
    for (std::size_t i = 0; i < edges.size(); ++i)
        index.emplace(pairKey(edges[i][0], edges[i][1]), static_cast<int>(i));
    refs.clear();
    refs.reserve(faceConnects.size());
    std::size_t offset = 0;
    for (int count : faceCounts) {
        if (count < 0 || offset + static_cast<std::size_t>(count) > faceConnects.size())
            return "Face list is truncated.";
        for (int k = 0; k < count; ++k) {
            const int a = faceConnects[offset + static_cast<std::size_t>(k)];
            const int b = faceConnects[offset + static_cast<std::size_t>((k + 1) % count)];
            auto it = index.find(pairKey(a, b));
            if (it == index.end())
                return "Face edge " + std::to_string(a) + "-" + std::to_string(b) +
                       " is not in the edge list.";
            refs.push_back(edges[static_cast<std::size_t>(it->second)][0] == a ? it->second
                                                                               : -it->second - 1);
        }
        offset += static_cast<std::size_t>(count);
    }
    return std::string();
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
            cache->error = faceEdgeRefs(edges, faceCounts, faceConnects, refs);
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
