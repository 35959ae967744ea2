#include "core/symmetry/ShellPairing.h"

#include <cmath>
#include <string>

namespace core {

namespace {

std::string str(int value) {
    return std::to_string(value);
}

std::array<double, 3> mirrored(std::array<double, 3> p, unsigned int axis) {
    p[axis] = -p[axis];
    return p;
}

double squaredDistance(const std::array<double, 3>& p, const std::array<double, 3>& q) {
    return (p[0] - q[0]) * (p[0] - q[0]) + (p[1] - q[1]) * (p[1] - q[1]) + (p[2] - q[2]) * (p[2] - q[2]);
}

// The mean of the given vertices' points.
std::array<double, 3> centre(const SymmetryMesh& mesh, IndexRange vertices) {
    std::array<double, 3> sum{};
    for (int v : vertices)
        for (int c = 0; c < 3; ++c) sum[c] += mesh.coordinate(v, unsigned(c));
    if (!vertices.empty())
        for (double& s : sum) s /= vertices.size();
    return sum;
}

bool boxContains(const ShellData& shell, const std::array<double, 3>& p) {
    for (int c = 0; c < 3; ++c)
        if (p[c] < shell.boxMin[c] || p[c] > shell.boxMax[c]) return false;
    return true;
}

int shellFaceCount(const SymmetryMesh& mesh, int face) {
    return mesh.shells.faces(mesh.shells.shellOf(face)).size();
}

void reportShell(int index, const ShellData& shell, SymmetryReport& report) {
    std::string line = "Shell: " + str(index) + "  Start ID: " + str(shell.startFace) +
                       "  Faces: " + str(shell.faceCount) + "  Vertices: " + str(shell.vertexCount) +
                       "  Face ID: " + str(shell.userFace) + "  Vertex ID: " + str(shell.centreVertex) +
                       "  BBox min: ";
    for (int c = 0; c < 3; ++c) line += report.number(shell.boxMin[c]) + (c < 2 ? " " : "  BBox max: ");
    for (int c = 0; c < 3; ++c) line += report.number(shell.boxMax[c]) + (c < 2 ? " " : "  ");
    report.info(line);
}

void reportEntry(const ShellComponents& out, std::size_t k, SymmetryReport& report) {
    const auto at = [](const std::vector<int>& list, std::size_t i) {
        return i < list.size() ? list[i] : -1;
    };
    std::string line = "Components:  Face1: " + str(out.faces1[k]) + "  Face2: " + str(out.faces2[k]) +
                       "  Vertex1: " + str(out.vertices1[k]) + "  Vertex2: " + str(out.vertices2[k]) + "  ";
    if (out.vertices3[k] != -1)
        line += "Vertex3: " + str(out.vertices3[k]) + "  Vertex4: " + str(out.vertices4[k]) + "  ";
    line += "Shell Face Size: " + str(at(out.shellFaceCounts, k)) +
            "  Shell Vertex Size: " + str(at(out.shellVertexCounts, k)) + "  ";
    report.info(line);
}

// The selection strings of one entry's faces and vertices that are set.
void selectEntry(const SymmetryMesh& mesh, const ShellComponents& out, std::size_t k,
                 std::vector<std::string>& selection) {
    for (int face : {out.faces1[k], out.faces2[k]})
        if (face != -1) selection.push_back(mesh.name + ".f[" + str(face) + "]");
    for (int vertex : {out.vertices1[k], out.vertices2[k], out.vertices3[k], out.vertices4[k]})
        if (vertex != -1) selection.push_back(mesh.name + ".vtx[" + str(vertex) + "]");
}

void appendUnresolved(ShellComponents& out, int faceCount, int vertexCount) {
    out.appendStart(-1, -1, -1, -1, -1, -1);
    out.appendCounts(faceCount, vertexCount);
}

} // namespace

void displaySelectCommand(const SymmetryMesh& mesh, int face, SymmetryReport& report) {
    report.info("polySelect -extendToShell " + str(face) + " " + mesh.name + ";");
}

void getMultiShellComponents(const SymmetryMesh& mesh, const PairingSettings& settings,
                             const UserShells& user, const ClosestFace& closestFace, ShellComponents& out,
                             bool& errors, std::vector<std::string>& selection, SymmetryReport& report) {
    const unsigned int axis = settings.axis;
    const double tolerance = settings.tolerance;
    const bool verbose = settings.verbose != 0;
    const int numShells = mesh.shells.numShells();
    std::vector<ShellData> shells;
    shells.reserve(std::size_t(numShells));
    std::vector<int> seen(std::size_t(mesh.topology.numVertices()), 0);
    int verified = 0;
    for (int s = 0; s < numShells; ++s) {
        shells.push_back(getShellData(mesh, s, axis, user, tolerance, seen, report));
        if (shells.back().userFace != -1) {
            ++verified;
            out.appendCounts(shells.back().faceCount, shells.back().vertexCount);
        }
    }
    if (settings.verbose == 2)
        for (int s = 0; s < numShells; ++s) reportShell(s, shells[std::size_t(s)], report);

    std::vector<int> counts;
    for (const ShellData& shell : shells)
        if (shell.userFace == -1) counts.push_back(shell.faceCount);
    std::vector<int> pairedCounts;
    const std::vector<int> singleCounts = removeIntArrayDuplicates(counts, pairedCounts);
    std::vector<char> taken(shells.size(), 0);
    const auto available = [&](std::size_t s, int count) {
        return !taken[s] && shells[s].userFace == -1 && shells[s].faceCount == count;
    };

    for (int count : singleCounts) {
        std::size_t s = 0;
        while (s < shells.size() && !(available(s, count) && shells[s].centreVertex != -1)) ++s;
        if (s == shells.size()) continue;
        taken[s] = 1;
        const ShellData& shell = shells[s];
        OneShellComponents components;
        if (!mesh.onPlane(shell.centreVertex, axis, tolerance)) {
            if (verbose) {
                report.info("One or more shells have been found with no provided symmetry components and no "
                            "centered vertices.");
                report.info("Use the following command to indicate the affected shell:");
                displaySelectCommand(mesh, shell.startFace, report);
            }
            errors = true;
            appendUnresolved(out, shell.faceCount, shell.vertexCount);
        } else if (getSymmetryComponentsOneShell(mesh, axis, shell.centreVertex, tolerance, settings.verbose,
                                                 components, report)) {
            ++verified;
            out.appendStart(components.face1, components.face2, shell.centreVertex, components.secondCentre,
                            -1, -1);
            out.appendCounts(shell.faceCount, shell.vertexCount);
        } else {
            appendUnresolved(out, shell.faceCount, shell.vertexCount);
        }
    }

    for (int count : pairedCounts) {
        std::vector<std::size_t> candidates;
        std::array<double, 3> probe{};
        for (std::size_t s = 0; s < shells.size(); ++s) {
            if (!available(s, count)) continue;
            if (candidates.empty()) {
                for (int c = 0; c < 3; ++c)
                    probe[c] = shells[s].boxMin[c] + (shells[s].boxMax[c] - shells[s].boxMin[c]) / 2.0;
                probe[axis] = -probe[axis];
                candidates.push_back(s);
            } else if (boxContains(shells[s], probe)) {
                candidates.push_back(s);
            }
        }
        if (candidates.empty()) continue;
        for (std::size_t s : candidates) taken[s] = 1;
        const ShellData& last = shells[candidates.back()];
        PairComponents pair;
        if (candidates.size() == 2 &&
            getSymmetryComponentsShellPair(mesh, axis, tolerance, shells[candidates[0]].startFace,
                                           closestFace, pair)) {
            verified += 2;
            out.appendStart(pair.face1, pair.face2, pair.vertex1, pair.vertex2, pair.vertex3, pair.vertex4);
            out.appendCounts(last.faceCount, last.vertexCount);
            continue;
        }
        if (verbose) {
            if (candidates.size() == 2) {
                report.info("Unable to find all necessary symmetry components for a shell pair.");
                report.info("Use the following commands to indicate the affected shells:");
            } else {
                report.info("Some paired shells have an overlap which is too large.");
                report.info("Use the following command/s to indicate the affected shell/s:");
            }
            for (std::size_t s : candidates) displaySelectCommand(mesh, shells[s].startFace, report);
        }
        errors = true;
        appendUnresolved(out, last.faceCount, last.vertexCount);
    }

    if (verbose) report.info(str(verified) + " of " + str(numShells) + " shells verified.");
    if (settings.verbose == 2)
        for (std::size_t k = 0; k < out.size(); ++k) reportEntry(out, k, report);
    if (settings.select)
        for (std::size_t k = 0; k < out.size(); ++k) selectEntry(mesh, out, k, selection);
}

bool getSymmetryComponentsShellPair(const SymmetryMesh& mesh, unsigned int axis, double tolerance,
                                    int startFace1, const ClosestFace& closestFace, PairComponents& pair) {
    pair = PairComponents();
    const int shell = mesh.shells.shellOf(startFace1);
    const IndexRange faces = mesh.shells.faces(shell);
    const double toleranceSquared = tolerance * tolerance;
    std::vector<std::array<int, 2>> records;
    for (int face : faces) {
        const IndexRange vertices = mesh.topology.faceVertices(face);
        const int candidate = closestFace(mirrored(mesh.point(vertices[0]), axis));
        if (candidate < 0 || candidate >= mesh.topology.numFaces()) continue;
        if (shellFaceCount(mesh, candidate) != faces.size()) return false;
        records.clear();
        for (int u : vertices) {
            const std::array<double, 3> image = mirrored(mesh.point(u), axis);
            for (int w : mesh.topology.faceVertices(candidate))
                if (squaredDistance(image, mesh.point(w)) < toleranceSquared) records.push_back({u, w});
        }
        if (records.size() <= 2) continue;
        for (const std::array<int, 2>& record : records) {
            for (int neighbour : mesh.topology.vertexVertices(record[0])) {
                for (const std::array<int, 2>& other : records) {
                    if (other[0] != neighbour) continue;
                    pair = {face, candidate, record[0], neighbour, record[1], other[1]};
                    return true;
                }
            }
        }
    }
    return false;
}

bool getFacePlacement(const SymmetryMesh& mesh, unsigned int axis, int edge, int& placement, int& face) {
    face = -1;
    const IndexRange faces = mesh.topology.edgeFaces(edge);
    if (faces.size() < 2) return false;
    const std::array<int, 2> ends = mesh.topology.edgeVertices(edge);
    const std::array<double, 3> e = centre(mesh, IndexRange{ends.data(), ends.data() + 2});
    const std::array<double, 3> c0 = centre(mesh, mesh.topology.faceVertices(faces[0]));
    const std::array<double, 3> c1 = centre(mesh, mesh.topology.faceVertices(faces[1]));

    const double edgeDistance = std::fabs(e[axis]);
    unsigned int deciding = axis;
    if ((std::fabs(c0[axis]) < edgeDistance) == (std::fabs(c1[axis]) < edgeDistance)) {
        std::array<double, 3> d{c0[0] - c1[0], c0[1] - c1[1], c0[2] - c1[2]};
        const double lengthSquared = d[0] * d[0] + d[1] * d[1] + d[2] * d[2];
        if (lengthSquared > 1e-20)
            for (double& x : d) x /= std::sqrt(lengthSquared);
        const double ax = std::fabs(d[0]), ay = std::fabs(d[1]), az = std::fabs(d[2]);
        deciding = (ax > ay && ax > az) ? 0u : (ay > ax && ay > az) ? 1u : 2u;
    }
    const double edgeValue = std::fabs(e[deciding]);
    const double faceValue = std::fabs(c0[deciding]);
    if (edgeValue == faceValue) return false;
    const int side = faceValue > edgeValue ? 1 : 0;
    if (placement == -1) {
        placement = side;
        face = faces[0];
    } else {
        face = side == placement ? faces[0] : faces[1];
    }
    return true;
}

bool getShellPairExtensionComponents(const SymmetryMesh& mesh, const PairingSettings& settings,
                                     const std::array<int, 2>& edge1, const std::array<int, 2>& edge2,
                                     ShellComponents& out, bool& errors, std::vector<std::string>& selection,
                                     SymmetryReport& report) {
    const int first = getEdgeByVertex(mesh.topology, edge1[0], edge1[1]);
    const int second = getEdgeByVertex(mesh.topology, edge2[0], edge2[1]);
    int placement = -1, face1 = -1, face2 = -1;
    const bool placed1 = getFacePlacement(mesh, settings.axis, first, placement, face1);
    const bool placed2 = getFacePlacement(mesh, settings.axis, second, placement, face2);
    const int shell = mesh.shells.shellOf(face1);
    const int faceCount = face1 == -1 ? 0 : mesh.shells.faces(shell).size();
    if (!placed1 || !placed2) {
        for (int edge : {first, second})
            if (mesh.topology.edgeFaces(edge).empty())
                report.error("The edge is not connected to any faces.");
        if (settings.verbose != 0) {
            report.info("Unable to find all necessary symmetry components for a shell pair.");
            report.info("Use the following command to indicate the affected shell:");
        }
        errors = true;
        out.appendStart(face1, face2, -1, -1, -1, -1);
        out.appendCounts(faceCount, 0);
        return false;
    }
    const bool sameDirection = getEdgeDirection(mesh.topology.faceVertices(face1), edge1[0], edge1[1]) ==
                               getEdgeDirection(mesh.topology.faceVertices(face2), edge2[0], edge2[1]);
    // Mirror images wind the other way round, so equal directions mean the ends correspond crosswise.
    if (sameDirection)
        out.appendStart(face1, face2, edge1[0], edge1[1], edge2[1], edge2[0]);
    else
        out.appendStart(face1, face2, edge1[0], edge1[1], edge2[0], edge2[1]);
    std::vector<int> seen(std::size_t(mesh.topology.numVertices()), 0);
    UserShells none;
    out.appendCounts(
        faceCount,
        getShellData(mesh, shell, settings.axis, none, settings.tolerance, seen, report).vertexCount);
    if (settings.select) selectEntry(mesh, out, out.size() - 1, selection);
    return true;
}

} // namespace core
