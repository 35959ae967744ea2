#include "files/MeshWriter.h"

#include "engine/HugePages.h"
#include "files/MaText.h"
#include "files/MeshColorSets.h"
#include "files/SceneFileStore.h"
#include "mesh/MeshData.h"

namespace host {

namespace {

// "\tsetAttr -s 8 \".vt[0:7]\"": the start of a statement over elements 0 to count - 1.
void rangeStatement(std::string& out, const char* flags, const char* attr, std::size_t count) {
    out += "\tsetAttr -s ";
    appendInt(out, static_cast<long long>(count));
    out += flags;
    out += " \".";
    out += attr;
    out += count == 1 ? "[0" : "[0:";
    if (count > 1) appendInt(out, static_cast<long long>(count - 1));
    out += "]\"";
}

void appendPoints(const MeshData& mesh, std::string& out) {
    if (mesh.points.empty()) return;
    rangeStatement(out, "", "vt", mesh.points.size());
    ValueList list(out);
    for (const auto& p : mesh.points)
        for (float c : p) appendFloat(list.next(), c);
    out += ";\n";
}

// The smoothing flags are those the file gave while the edges are the same in number; edges the
// file did not give are written smooth, as Maya shows edges it has not been told about.
void appendEdges(const core::MeshTopology& topology, const NodeFileInfo* info, std::string& out) {
    const std::vector<int>& ends = topology.edgeVertexList();
    const std::size_t count = ends.size() / 2;
    if (count == 0) return;
    rangeStatement(out, "", "ed", count);
    const bool given = info && info->edgeFlags.size() == count;
    ValueList list(out);
    for (std::size_t e = 0; e < count; ++e) {
        appendInt(list.next(), ends[2 * e]);
        appendInt(list.next(), ends[2 * e + 1]);
        appendInt(list.next(), given ? info->edgeFlags[e] : 1);
    }
    out += ";\n";
}

void appendFaces(const MeshData& mesh, const core::MeshTopology& topology, const NodeFileInfo* info,
                 std::string& out) {
    const int count = topology.numFaces();
    if (count == 0) return;
    const std::string ch = " -ch " + std::to_string(topology.faceConnects().size());
    rangeStatement(out, ch.c_str(), "fc", static_cast<std::size_t>(count));
    out += " -type \"polyFaces\"";
    // Records kept from the file belong to these faces only while the face count is the same.
    const std::vector<std::string>* records =
        info && info->faceRecords.size() == static_cast<std::size_t>(count) ? &info->faceRecords : nullptr;
    const std::vector<std::vector<int>> colors = colorIndices(mesh);
    std::size_t corner = 0;
    ValueList list(out);
    for (int f = 0; f < count; ++f) {
        const core::IndexRange vertices = topology.faceVertices(f);
        const core::IndexRange edges = topology.faceEdges(f);
        list.newLine() += 'f';
        appendInt(list.next(), edges.size());
        for (int k = 0; k < edges.size(); ++k) {
            const int edge = edges[k];
            // Positive when the face walks the edge from its first vertex to its second.
            appendInt(list.next(), topology.edgeVertices(edge)[0] == vertices[k] ? edge : -edge - 1);
        }
        std::string extra = records ? (*records)[static_cast<std::size_t>(f)] : std::string();
        appendFaceColors(mesh, colors, corner, vertices.size(), extra);
        if (!extra.empty()) list.newLine() += extra[0] == ' ' ? extra.substr(1) : extra;
        corner += static_cast<std::size_t>(vertices.size());
    }
    out += ";\n";
}

// At least as long as the text of the points, edges and faces (a float takes at most 15 characters,
// an index 11, each with its blank; every line break adds three), so the scene text that holds
// them is not copied over and over as it grows. Capacity never written costs no memory.
std::size_t geometryTextBound(const MeshData& mesh, const NodeFileInfo* info) {
    const std::size_t corners = mesh.faceConnects.size();
    std::size_t records = 0;
    if (info)
        for (const std::string& r : info->faceRecords) records += r.size() + 4;
    return mesh.points.size() * 3 * 17 + corners * 3 * 14 + mesh.faceCounts.size() * 20 + corners * 14 +
           records + 256;
}

} // namespace

bool appendMeshGeometry(const Node& shape, const NodeFileInfo* info, std::string& out, std::string& problem) {
    const MeshData* mesh = shape.mesh().get();
    if (!mesh) return true;
    out.reserve(out.size() + geometryTextBound(*mesh, info));
    preferHugePages(out.data() + out.size(), out.capacity() - out.size());
    appendPoints(*mesh, out);
    if (mesh->faceCounts.empty() && mesh->edges.empty()) return true;
    if (!mesh->topologyError().empty()) {
        problem = mesh->topologyError();
        return false;
    }
    appendEdges(mesh->topology(), info, out);
    appendFaces(*mesh, mesh->topology(), info, out);
    return true;
}

} // namespace host
