#include "commands/MeshAttrs.h"

#include "engine/Scene.h"

#include <algorithm>
#include <cfloat>
#include <climits>

namespace host {

namespace {

// The node's geometry to change: a private copy when someone else shares it.
MeshData& editableMesh(Node& node) {
    auto& mesh = node.mesh();
    if (!mesh)
        mesh = std::make_shared<MeshData>();
    else if (mesh.use_count() > 1)
        mesh = std::static_pointer_cast<MeshData>(mesh->clone());
    node.touch();
    return *mesh;
}

void topologyChanged(MeshData& mesh) {
    mesh.invalidateTopology();
    scene().touch();
}

bool checkRange(uint32_t first, std::size_t count, std::size_t size, const char* what, std::string& error) {
    if (first > size) {
        error = std::string("mesh ") + what + " " + std::to_string(first) + " is past the end of the " +
                std::to_string(size) + " " + what + "s; write them in order.";
        return false;
    }
    if (static_cast<unsigned long long>(first) + count > static_cast<unsigned long long>(INT_MAX)) {
        error = std::string("too many mesh ") + what + "s.";
        return false;
    }
    return true;
}

} // namespace

MeshArray meshArrayOf(const Plug& plug) {
    if (plug.isNull() || !plug.node()->type().isA("mesh")) return MeshArray::None;
    const std::string& top = plug.attr()->chain().front()->longName;
    if (top == "vrts") return MeshArray::Points;
    if (top == "edge") return MeshArray::Edges;
    if (top == "face") return MeshArray::Faces;
    return MeshArray::None;
}

std::size_t meshArraySize(const Node& node, MeshArray array) {
    const MeshData* mesh = node.mesh().get();
    if (!mesh) return 0;
    switch (array) {
    case MeshArray::Points:
        return mesh->points.size();
    case MeshArray::Edges:
        return mesh->edges.empty() ? static_cast<std::size_t>(mesh->topology().numEdges())
                                   : mesh->edges.size();
    case MeshArray::Faces:
        return mesh->faceCounts.size();
    case MeshArray::None:
        break;
    }
    return 0;
}

bool meshPoint(const Node& node, uint32_t index, std::array<double, 3>& out) {
    const MeshData* mesh = node.mesh().get();
    if (!mesh || index >= mesh->points.size()) return false;
    for (std::size_t k = 0; k < 3; ++k) out[k] = mesh->points[index][k];
    return true;
}

bool meshEdge(const Node& node, uint32_t index, std::array<double, 3>& out) {
    const MeshData* mesh = node.mesh().get();
    if (!mesh || index >= meshArraySize(node, MeshArray::Edges)) return false;
    const std::array<int, 2> ends =
        mesh->edges.empty() ? mesh->topology().edgeVertices(static_cast<int>(index)) : mesh->edges[index];
    out = {static_cast<double>(ends[0]), static_cast<double>(ends[1]), 0.0};
    return true;
}

bool writeMeshPoints(Node& node, uint32_t first, std::size_t count, int firstField, int fields,
                     const std::vector<double>& values, std::string& error) {
    MeshData& mesh = editableMesh(node);
    if (!checkRange(first, count, mesh.points.size(), "point", error)) return false;
    if (mesh.points.size() < first + count) mesh.points.resize(first + count, {0.0f, 0.0f, 0.0f});
    for (std::size_t e = 0; e < count; ++e)
        for (int f = 0; f < fields && firstField + f < 3; ++f)
            mesh.points[first + e][static_cast<std::size_t>(firstField + f)] = static_cast<float>(
                std::clamp(values[e * static_cast<std::size_t>(fields) + static_cast<std::size_t>(f)],
                           -double(FLT_MAX), double(FLT_MAX)));
    topologyChanged(mesh);
    return true;
}

bool writeMeshEdges(Node& node, uint32_t first, std::size_t count, int firstField, int fields,
                    const std::vector<double>& values, std::string& error) {
    MeshData& mesh = editableMesh(node);
    // Edges that follow from the faces are spelled out before one of them changes.
    if (mesh.edges.empty() && !mesh.faceCounts.empty()) {
        const std::vector<int>& ends = mesh.topology().edgeVertexList();
        for (std::size_t i = 0; i + 1 < ends.size(); i += 2) mesh.edges.push_back({ends[i], ends[i + 1]});
    }
    if (!checkRange(first, count, mesh.edges.size(), "edge", error)) return false;
    const bool grows = first + count > mesh.edges.size();
    if (grows && (firstField != 0 || fields < 2)) {
        error = "a new mesh edge needs both of its vertices.";
        return false;
    }
    const double numPoints = static_cast<double>(mesh.points.size());
    for (std::size_t e = 0; e < count; ++e)
        for (int f = 0; f < fields && firstField + f < 2; ++f) {
            const double v = values[e * static_cast<std::size_t>(fields) + static_cast<std::size_t>(f)];
            if (v < 0 || v >= numPoints || v != static_cast<int>(v)) {
                error = "mesh edge " + std::to_string(first + e) + " names vertex " + std::to_string(v) +
                        ", but the mesh has " + std::to_string(mesh.points.size()) + " points.";
                return false;
            }
        }
    if (grows) mesh.edges.resize(first + count, {0, 0});
    for (std::size_t e = 0; e < count; ++e)
        for (int f = 0; f < fields && firstField + f < 2; ++f)
            mesh.edges[first + e][static_cast<std::size_t>(firstField + f)] =
                static_cast<int>(values[e * static_cast<std::size_t>(fields) + static_cast<std::size_t>(f)]);
    topologyChanged(mesh);
    return true;
}

bool writeMeshFaces(Node& node, uint32_t first, const std::vector<const std::vector<int>*>& faces,
                    std::string& error) {
    MeshData& mesh = editableMesh(node);
    if (!checkRange(first, faces.size(), mesh.faceCounts.size(), "face", error)) return false;
    const int numEdges = static_cast<int>(mesh.edges.size());
    // Each face's vertices are the start vertices of its edges as walked; each edge must end where the next
    // begins.
    std::vector<int> counts, vertices;
    counts.reserve(faces.size());
    for (std::size_t f = 0; f < faces.size(); ++f) {
        const std::vector<int>& refs = *faces[f];
        const std::size_t start = vertices.size();
        for (std::size_t k = 0; k < refs.size(); ++k) {
            const int r = refs[k];
            const int edge = r >= 0 ? r : -(r + 1);
            if (edge >= numEdges) {
                error = "mesh face " + std::to_string(first + f) + " names edge " + std::to_string(edge) +
                        ", but the mesh has " + std::to_string(numEdges) + " edges.";
                return false;
            }
            const auto& ends = mesh.edges[static_cast<std::size_t>(edge)];
            vertices.push_back(r >= 0 ? ends[0] : ends[1]);
        }
        for (std::size_t k = 0; k < refs.size(); ++k) {
            const int r = refs[k];
            const auto& ends = mesh.edges[static_cast<std::size_t>(r >= 0 ? r : -(r + 1))];
            if ((r >= 0 ? ends[1] : ends[0]) != vertices[start + (k + 1) % refs.size()]) {
                error = "the edges of mesh face " + std::to_string(first + f) + " do not form a loop.";
                return false;
            }
        }
        counts.push_back(static_cast<int>(refs.size()));
    }
    const std::size_t last = std::min<std::size_t>(first + faces.size(), mesh.faceCounts.size());
    auto cornerOf = [&mesh](std::size_t face) {
        if (face == mesh.faceCounts.size()) return static_cast<std::ptrdiff_t>(mesh.faceConnects.size());
        std::ptrdiff_t corner = 0;
        for (std::size_t f = 0; f < face; ++f) corner += mesh.faceCounts[f];
        return corner;
    };
    const std::ptrdiff_t cornerBegin = cornerOf(first), cornerEnd = cornerOf(last);
    mesh.faceCounts.erase(mesh.faceCounts.begin() + first,
                          mesh.faceCounts.begin() + static_cast<std::ptrdiff_t>(last));
    mesh.faceCounts.insert(mesh.faceCounts.begin() + first, counts.begin(), counts.end());
    mesh.faceConnects.erase(mesh.faceConnects.begin() + cornerBegin, mesh.faceConnects.begin() + cornerEnd);
    mesh.faceConnects.insert(mesh.faceConnects.begin() + cornerBegin, vertices.begin(), vertices.end());
    topologyChanged(mesh);
    return true;
}

} // namespace host
