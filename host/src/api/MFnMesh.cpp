#include <maya/MColorArray.h>
#include <maya/MFloatPointArray.h>
#include <maya/MFnMesh.h>
#include <maya/MIntArray.h>
#include <maya/MPointArray.h>
#include <maya/MStringArray.h>

#include "api/MeshAccess.h"
#include "api/ObjectRef.h"
#include "api/StatusOut.h"
#include "engine/Scene.h"

using host::setStatus;

namespace {

bool isIdentity(const MMatrix& m) {
    return m == MMatrix::identity;
}

MPoint transformed(const std::array<float, 3>& p, const MMatrix& m, bool identity) {
    MPoint point(p[0], p[1], p[2]);
    return identity ? point : point * m;
}

// Fills a mesh from counts and connects; false (and nothing changed) when they are inconsistent.
template <class PointArray>
bool fillMesh(host::MeshData& mesh, int numVertices, int numPolygons, const PointArray& vertexArray,
              const MIntArray& polygonCounts, const MIntArray& polygonConnects) {
    if (numVertices < 0 || numPolygons < 0 || vertexArray.length() < static_cast<unsigned>(numVertices) ||
        polygonCounts.length() != static_cast<unsigned>(numPolygons))
        return false;
    host::MeshData built;
    built.points.resize(static_cast<std::size_t>(numVertices));
    for (int i = 0; i < numVertices; ++i) {
        const auto& p = vertexArray[static_cast<unsigned>(i)];
        built.points[static_cast<std::size_t>(i)] = {static_cast<float>(p.x), static_cast<float>(p.y),
                                                     static_cast<float>(p.z)};
    }
    built.faceCounts = polygonCounts.vec();
    built.faceConnects = polygonConnects.vec();
    if (!built.topologyError().empty()) return false;
    built.invalidateTopology();
    mesh.points = std::move(built.points);
    mesh.faceCounts = std::move(built.faceCounts);
    mesh.faceConnects = std::move(built.faceConnects);
    mesh.edges.clear();
    mesh.colorSets.clear();
    mesh.invalidateTopology();
    return true;
}

} // namespace

MFnMesh::MFnMesh(MObject& object, MStatus* ReturnStatus) {
    MStatus s = setObject(object);
    if (ReturnStatus) *ReturnStatus = s;
}
MFnMesh::MFnMesh(const MObject& object, MStatus* ReturnStatus) {
    MStatus s = setObject(object);
    if (ReturnStatus) *ReturnStatus = s;
}
MFnMesh::MFnMesh(const MDagPath& object, MStatus* ReturnStatus) {
    MStatus s = setObject(object);
    if (ReturnStatus) *ReturnStatus = s;
}

MStatus MFnMesh::setObject(MObject& object) {
    return setObject(static_cast<const MObject&>(object));
}

MStatus MFnMesh::setObject(const MObject& object) {
    // A transform stands for its mesh shape.
    host::NodePtr node = host::nodeOf(object);
    if (node && node->type().transform) {
        MDagPath path(object);
        if (path.extendToShape() == MS::kSuccess) return MFnBase::setObject(path.node());
    }
    return MFnBase::setObject(object);
}

MStatus MFnMesh::setObject(const MDagPath& path) {
    return setObject(path.node());
}

bool MFnMesh::accepts(const MObject& object) const {
    return host::readMesh(object) != nullptr;
}

MObject MFnMesh::place(host::MeshData&& mesh, MObject parentOrOwner, MStatus* ReturnStatus) {
    if (auto data = host::dataOf<host::MeshData>(parentOrOwner)) {
        *data = std::move(mesh);
        object_ = parentOrOwner;
        setStatus(ReturnStatus, true);
        return parentOrOwner;
    }
    MStatus s;
    // Without a parent the new shape goes under a new transform named polySurface<n>, which is
    // returned, as in Maya.
    MObject transform;
    if (parentOrOwner.isNull()) {
        transform = MFnDagNode().create("transform", "polySurface#", MObject::kNullObj, &s);
        if (!s) {
            setStatus(ReturnStatus, false);
            return MObject();
        }
    }
    MObject result = MFnDagNode::create("mesh", transform.isNull() ? parentOrOwner : transform, &s);
    if (!s) {
        setStatus(ReturnStatus, false);
        return MObject();
    }
    host::nodeOf(object_)->mesh() = std::make_shared<host::MeshData>(std::move(mesh));
    host::scene().touch();
    setStatus(ReturnStatus, true);
    return transform.isNull() ? result : transform;
}

MObject MFnMesh::create(int numVertices, int numPolygons, const MFloatPointArray& vertexArray,
                        const MIntArray& polygonCounts, const MIntArray& polygonConnects,
                        MObject parentOrOwner, MStatus* ReturnStatus) {
    host::MeshData mesh;
    if (!fillMesh(mesh, numVertices, numPolygons, vertexArray, polygonCounts, polygonConnects)) {
        setStatus(ReturnStatus, false);
        return MObject();
    }
    return place(std::move(mesh), parentOrOwner, ReturnStatus);
}

MObject MFnMesh::create(int numVertices, int numPolygons, const MPointArray& vertexArray,
                        const MIntArray& polygonCounts, const MIntArray& polygonConnects,
                        MObject parentOrOwner, MStatus* ReturnStatus) {
    MFloatPointArray points;
    points.setLength(vertexArray.length());
    for (unsigned i = 0; i < vertexArray.length(); ++i)
        points[i] = MFloatPoint(static_cast<float>(vertexArray[i].x), static_cast<float>(vertexArray[i].y),
                                static_cast<float>(vertexArray[i].z));
    return create(numVertices, numPolygons, points, polygonCounts, polygonConnects, parentOrOwner,
                  ReturnStatus);
}

MObject MFnMesh::create(int numVertices, int numPolygons, const MPointArray& vertexArray,
                        const MIntArray& polygonCounts, const MIntArray& polygonConnects, bool,
                        MObject parentOrOwner, MStatus* ReturnStatus) {
    return create(numVertices, numPolygons, vertexArray, polygonCounts, polygonConnects, parentOrOwner,
                  ReturnStatus);
}

MObject MFnMesh::copy(const MObject& source, MObject parentOrOwner, MStatus* ReturnStatus) {
    auto mesh = host::readMesh(source);
    if (!mesh) {
        setStatus(ReturnStatus, false);
        return MObject();
    }
    return place(host::MeshData(*mesh), parentOrOwner, ReturnStatus);
}

int MFnMesh::numVertices(MStatus* ReturnStatus) const {
    auto mesh = host::readMesh(object_);
    setStatus(ReturnStatus, mesh != nullptr);
    return mesh ? mesh->numVertices() : 0;
}

int MFnMesh::numEdges(MStatus* ReturnStatus) const {
    auto mesh = host::readMesh(object_);
    setStatus(ReturnStatus, mesh != nullptr);
    return mesh ? mesh->topology().numEdges() : 0;
}

int MFnMesh::numPolygons(MStatus* ReturnStatus) const {
    auto mesh = host::readMesh(object_);
    setStatus(ReturnStatus, mesh != nullptr);
    return mesh ? mesh->numFaces() : 0;
}

int MFnMesh::numFaceVertices(MStatus* ReturnStatus) const {
    auto mesh = host::readMesh(object_);
    setStatus(ReturnStatus, mesh != nullptr);
    return mesh ? static_cast<int>(mesh->faceConnects.size()) : 0;
}

int MFnMesh::polygonVertexCount(int polygonId, MStatus* ReturnStatus) const {
    auto mesh = host::readMesh(object_);
    const bool ok = mesh && polygonId >= 0 && polygonId < mesh->numFaces();
    setStatus(ReturnStatus, ok);
    return ok ? mesh->faceCounts[static_cast<std::size_t>(polygonId)] : 0;
}

MMatrix MFnMesh::spaceMatrix(MSpace::Space space) const {
    return host::meshSpaceMatrix(object_, space);
}

MStatus MFnMesh::getPoints(MFloatPointArray& vertexArray, MSpace::Space space) const {
    auto mesh = host::readMesh(object_);
    if (!mesh) return MS::kFailure;
    const MMatrix m = spaceMatrix(space);
    const bool identity = isIdentity(m);
    auto& out = vertexArray.vec();
    out.resize(mesh->points.size());
    for (std::size_t i = 0; i < out.size(); ++i) {
        const MPoint p = transformed(mesh->points[i], m, identity);
        out[i] = MFloatPoint(static_cast<float>(p.x), static_cast<float>(p.y), static_cast<float>(p.z));
    }
    return MS::kSuccess;
}

MStatus MFnMesh::getPoints(MPointArray& vertexArray, MSpace::Space space) const {
    auto mesh = host::readMesh(object_);
    if (!mesh) return MS::kFailure;
    const MMatrix m = spaceMatrix(space);
    const bool identity = isIdentity(m);
    auto& out = vertexArray.vec();
    out.resize(mesh->points.size());
    for (std::size_t i = 0; i < out.size(); ++i) out[i] = transformed(mesh->points[i], m, identity);
    return MS::kSuccess;
}

template <class PointArray>
static MStatus storePoints(const MObject& object, const PointArray& in, const MMatrix& toObject) {
    std::vector<std::array<float, 3>> points(in.length());
    const bool identity = toObject == MMatrix::identity;
    for (std::size_t i = 0; i < points.size(); ++i) {
        MPoint p(in[static_cast<unsigned>(i)].x, in[static_cast<unsigned>(i)].y,
                 in[static_cast<unsigned>(i)].z);
        if (!identity) p = p * toObject;
        points[i] = {static_cast<float>(p.x), static_cast<float>(p.y), static_cast<float>(p.z)};
    }
    // Maya writes as many points as the mesh has; extra input points are ignored.
    return host::writeShownPoints(object, 0, points) ? MS::kSuccess : MS::kFailure;
}

MStatus MFnMesh::setPoints(MFloatPointArray& vertexArray, MSpace::Space space) {
    return storePoints(object_, vertexArray, spaceMatrix(space).inverse());
}

MStatus MFnMesh::setPoints(MPointArray& vertexArray, MSpace::Space space) {
    return storePoints(object_, vertexArray, spaceMatrix(space).inverse());
}

MStatus MFnMesh::getPoint(int vertexId, MPoint& pos, MSpace::Space space) const {
    auto mesh = host::readMesh(object_);
    if (!mesh || vertexId < 0 || vertexId >= mesh->numVertices()) return MS::kFailure;
    const MMatrix m = spaceMatrix(space);
    pos = transformed(mesh->points[static_cast<std::size_t>(vertexId)], m, isIdentity(m));
    return MS::kSuccess;
}

MStatus MFnMesh::setPoint(int vertexId, const MPoint& pos, MSpace::Space space) {
    auto current = host::readMesh(object_);
    if (!current || vertexId < 0 || vertexId >= current->numVertices()) return MS::kFailure;
    current.reset();
    const MPoint p = space == MSpace::kWorld ? pos * spaceMatrix(space).inverse() : pos;
    const std::vector<std::array<float, 3>> point = {
        {static_cast<float>(p.x), static_cast<float>(p.y), static_cast<float>(p.z)}};
    return host::writeShownPoints(object_, static_cast<std::size_t>(vertexId), point) ? MS::kSuccess
                                                                                      : MS::kFailure;
}

MStatus MFnMesh::getVertices(MIntArray& vertexCount, MIntArray& vertexList) const {
    auto mesh = host::readMesh(object_);
    if (!mesh) return MS::kFailure;
    vertexCount.vec() = mesh->faceCounts;
    vertexList.vec() = mesh->faceConnects;
    return MS::kSuccess;
}

MStatus MFnMesh::getPolygonVertices(int polygonId, MIntArray& vertexList) const {
    auto mesh = host::readMesh(object_);
    if (!mesh || polygonId < 0 || polygonId >= mesh->topology().numFaces()) return MS::kFailure;
    core::IndexRange r = mesh->topology().faceVertices(polygonId);
    vertexList.vec().assign(r.begin(), r.end());
    return MS::kSuccess;
}

MStatus MFnMesh::getEdgeVertices(int edgeId, int2& vertexList) const {
    auto mesh = host::readMesh(object_);
    if (!mesh || edgeId < 0 || edgeId >= mesh->topology().numEdges()) return MS::kFailure;
    auto e = mesh->topology().edgeVertices(edgeId);
    vertexList[0] = e[0];
    vertexList[1] = e[1];
    return MS::kSuccess;
}

int MFnMesh::numColorSets(MStatus* ReturnStatus) const {
    auto mesh = host::readMesh(object_);
    setStatus(ReturnStatus, mesh != nullptr);
    return mesh ? static_cast<int>(mesh->colorSets.size()) : 0;
}

MStatus MFnMesh::getColorSetNames(MStringArray& setNames) const {
    setNames.clear();
    auto mesh = host::readMesh(object_);
    if (!mesh) return MS::kFailure;
    for (const auto& set : mesh->colorSets) setNames.append(MString(set.name));
    return MS::kSuccess;
}

MString MFnMesh::currentColorSetName(int, MStatus* ReturnStatus) const {
    auto mesh = host::readMesh(object_);
    setStatus(ReturnStatus, mesh != nullptr);
    return mesh ? MString(mesh->currentColorSet) : MString();
}

MString MFnMesh::createColorSetWithName(const MString& colorSetName, MDGModifier*, MIntArray*,
                                        MStatus* ReturnStatus) {
    host::MeshData* mesh = host::writeMesh(object_);
    if (!mesh || colorSetName.length() == 0) {
        setStatus(ReturnStatus, false);
        return MString();
    }
    std::string name = colorSetName.str();
    for (int n = 1;; ++n) {
        bool taken = false;
        for (const auto& set : mesh->colorSets) taken = taken || set.name == name;
        if (!taken) break;
        name = colorSetName.str() + std::to_string(n);
    }
    host::ColorSet set;
    set.name = name;
    set.colors.assign(mesh->points.size(), {0.f, 0.f, 0.f, -1.f});
    mesh->colorSets.push_back(std::move(set));
    if (mesh->currentColorSet.empty()) mesh->currentColorSet = name;
    setStatus(ReturnStatus, true);
    return MString(name);
}

MStatus MFnMesh::setCurrentColorSetName(const MString& colorSet, MDGModifier*, MIntArray*) {
    host::MeshData* mesh = host::writeMesh(object_);
    if (!mesh) return MS::kFailure;
    for (const auto& set : mesh->colorSets)
        if (set.name == colorSet.str()) {
            mesh->currentColorSet = set.name;
            return MS::kSuccess;
        }
    return MS::kInvalidParameter;
}

static const host::ColorSet* findColorSet(const host::MeshData& mesh, const std::string& name) {
    for (const auto& set : mesh.colorSets)
        if (set.name == name) return &set;
    return nullptr;
}

MStatus MFnMesh::getVertexColors(MColorArray& colors, const MString* colorSet,
                                 const MColor* defaultUnsetColor) {
    auto mesh = host::readMesh(object_);
    if (!mesh) return MS::kFailure;
    const std::string name = colorSet ? colorSet->str() : mesh->currentColorSet;
    const host::ColorSet* set = findColorSet(*mesh, name);
    const MColor unset = defaultUnsetColor ? *defaultUnsetColor : MColor(-1.f, -1.f, -1.f, -1.f);
    auto& out = colors.vec();
    out.assign(mesh->points.size(), unset);
    if (!set) return colorSet ? MS::kInvalidParameter : MS::kSuccess;
    for (std::size_t i = 0; i < out.size() && i < set->colors.size(); ++i) {
        const auto& c = set->colors[i];
        if (c[3] >= 0.f) out[i] = MColor(c[0], c[1], c[2], c[3]);
    }
    return MS::kSuccess;
}

MStatus MFnMesh::setVertexColors(MColorArray& colors, MIntArray& vertexList, MDGModifier* modifier) {
    return setVertexColors(colors, vertexList, modifier, kRGBA);
}

MStatus MFnMesh::setVertexColors(MColorArray& colors, MIntArray& vertexList, MDGModifier*,
                                 MColorRepresentation) {
    if (colors.length() != vertexList.length()) return MS::kInvalidParameter;
    host::MeshData* mesh = host::writeMesh(object_);
    if (!mesh) return MS::kFailure;
    // Without a colour set, Maya makes one ("colorSet1") and makes it current.
    if (mesh->currentColorSet.empty() || !findColorSet(*mesh, mesh->currentColorSet)) {
        MStatus s;
        createColorSetWithName("colorSet1", nullptr, nullptr, &s);
        if (!s) return s;
        mesh->currentColorSet = mesh->colorSets.back().name;
    }
    host::ColorSet* set = nullptr;
    for (auto& s : mesh->colorSets)
        if (s.name == mesh->currentColorSet) set = &s;
    set->colors.resize(mesh->points.size(), {0.f, 0.f, 0.f, -1.f});
    for (unsigned i = 0; i < vertexList.length(); ++i) {
        const int v = vertexList[i];
        if (v < 0 || static_cast<std::size_t>(v) >= set->colors.size()) return MS::kInvalidParameter;
        set->colors[static_cast<std::size_t>(v)] = {colors[i].r, colors[i].g, colors[i].b, colors[i].a};
    }
    host::scene().touch();
    return MS::kSuccess;
}

MStatus MFnMesh::updateSurface() {
    return MS::kSuccess;
}
