// Vertex, edge and face iterators over a mesh's topology.
#include <maya/MIntArray.h>
#include <maya/MItMeshEdge.h>
#include <maya/MItMeshPolygon.h>
#include <maya/MItMeshVertex.h>

#include "api/MeshAccess.h"
#include "api/ObjectRef.h"
#include "api/StatusOut.h"

using host::setStatus;

namespace {

// A transform stands for its shape.
MObject meshNodeOf(const MObject& object) {
    host::NodePtr node = host::nodeOf(object);
    if (node && node->type().transform) {
        MDagPath path(object);
        if (path.extendToShape() == MS::kSuccess) return path.node();
    }
    return object;
}

void assign(MIntArray& out, core::IndexRange range) {
    out.vec().assign(range.begin(), range.end());
}

MPoint pointOf(const host::MeshData& mesh, int v, const MMatrix& m) {
    if (v < 0 || v >= mesh.numVertices()) return MPoint();
    const auto& p = mesh.points[static_cast<std::size_t>(v)];
    return MPoint(p[0], p[1], p[2]) * m;
}

// Shared state of the three iterators: which elements are walked and where we are.
struct Walk {
    static int currentOf(const std::vector<int>& elements, bool all, int position) {
        if (all) return position;
        return position < static_cast<int>(elements.size()) ? elements[static_cast<std::size_t>(position)]
                                                            : -1;
    }
};

} // namespace

// Vertices.
MItMeshVertex::MItMeshVertex(MObject& polyObject, MStatus* ReturnStatus) {
    node_ = meshNodeOf(polyObject);
    mesh_ = host::readMesh(node_);
    count_ = mesh_ ? mesh_->topology().numVertices() : 0;
    setStatus(ReturnStatus, mesh_ != nullptr);
}

MItMeshVertex::MItMeshVertex(const MDagPath& polyObject, MObject& component, MStatus* ReturnStatus) {
    node_ = meshNodeOf(polyObject.node());
    mesh_ = host::readMesh(node_);
    count_ = mesh_ ? mesh_->topology().numVertices() : 0;
    host::componentElements(component, elements_, all_);
    current_ = Walk::currentOf(elements_, all_, 0);
    setStatus(ReturnStatus, mesh_ != nullptr);
}

MItMeshVertex::~MItMeshVertex() = default;

bool MItMeshVertex::isDone(MStatus* ReturnStatus) {
    setStatus(ReturnStatus, true);
    return position_ >= (all_ ? count_ : static_cast<int>(elements_.size()));
}
MStatus MItMeshVertex::next() {
    ++position_;
    current_ = Walk::currentOf(elements_, all_, position_);
    return MS::kSuccess;
}
MStatus MItMeshVertex::reset() {
    position_ = 0;
    current_ = Walk::currentOf(elements_, all_, 0);
    return MS::kSuccess;
}
int MItMeshVertex::count(MStatus* ReturnStatus) {
    setStatus(ReturnStatus, mesh_ != nullptr);
    return all_ ? count_ : static_cast<int>(elements_.size());
}
int MItMeshVertex::index(MStatus* ReturnStatus) {
    setStatus(ReturnStatus, current_ >= 0 && current_ < count_);
    return current_;
}
MStatus MItMeshVertex::setIndex(int index, int& prevIndex) {
    prevIndex = current_;
    if (!mesh_ || index < 0 || index >= count_) return MS::kFailure;
    current_ = index;
    return MS::kSuccess;
}
MPoint MItMeshVertex::position(MSpace::Space space, MStatus* ReturnStatus) {
    const bool ok = mesh_ && current_ >= 0 && current_ < mesh_->numVertices();
    setStatus(ReturnStatus, ok);
    return ok ? pointOf(*mesh_, current_, host::meshSpaceMatrix(node_, space)) : MPoint();
}
MStatus MItMeshVertex::getConnectedEdges(MIntArray& edgeList) {
    if (!mesh_ || current_ < 0 || current_ >= count_) return MS::kFailure;
    assign(edgeList, mesh_->topology().vertexEdges(current_));
    return MS::kSuccess;
}
MStatus MItMeshVertex::getConnectedFaces(MIntArray& faceList) {
    if (!mesh_ || current_ < 0 || current_ >= count_) return MS::kFailure;
    assign(faceList, mesh_->topology().vertexFaces(current_));
    return MS::kSuccess;
}
MStatus MItMeshVertex::getConnectedVertices(MIntArray& vertexList) {
    if (!mesh_ || current_ < 0 || current_ >= count_) return MS::kFailure;
    assign(vertexList, mesh_->topology().vertexVertices(current_));
    return MS::kSuccess;
}
MStatus MItMeshVertex::numConnectedEdges(int& edgeCount) const {
    if (!mesh_ || current_ < 0 || current_ >= count_) return MS::kFailure;
    edgeCount = mesh_->topology().vertexEdges(current_).size();
    return MS::kSuccess;
}
MStatus MItMeshVertex::numConnectedFaces(int& faceCount) const {
    if (!mesh_ || current_ < 0 || current_ >= count_) return MS::kFailure;
    faceCount = mesh_->topology().vertexFaces(current_).size();
    return MS::kSuccess;
}
bool MItMeshVertex::onBoundary(MStatus* ReturnStatus) {
    const bool ok = mesh_ && current_ >= 0 && current_ < count_;
    setStatus(ReturnStatus, ok);
    if (!ok) return false;
    for (int e : mesh_->topology().vertexEdges(current_))
        if (mesh_->topology().edgeFaces(e).size() < 2) return true;
    return false;
}

// Edges.
void MItMeshEdge::init(const MObject& mesh, const MObject& component, MStatus* ReturnStatus) {
    node_ = meshNodeOf(mesh);
    mesh_ = host::readMesh(node_);
    count_ = mesh_ ? mesh_->topology().numEdges() : 0;
    host::componentElements(component, elements_, all_);
    current_ = Walk::currentOf(elements_, all_, 0);
    setStatus(ReturnStatus, mesh_ != nullptr);
}
MItMeshEdge::MItMeshEdge(MObject& polyObject, MStatus* ReturnStatus) {
    init(polyObject, MObject(), ReturnStatus);
}
MItMeshEdge::MItMeshEdge(MObject& polyObject, MObject& component, MStatus* ReturnStatus) {
    init(polyObject, component, ReturnStatus);
}
MItMeshEdge::MItMeshEdge(const MDagPath& polyObject, MObject& component, MStatus* ReturnStatus) {
    init(polyObject.node(), component, ReturnStatus);
}
MItMeshEdge::~MItMeshEdge() = default;

bool MItMeshEdge::isDone(MStatus* ReturnStatus) {
    setStatus(ReturnStatus, true);
    return position_ >= (all_ ? count_ : static_cast<int>(elements_.size()));
}
MStatus MItMeshEdge::next() {
    ++position_;
    current_ = Walk::currentOf(elements_, all_, position_);
    return MS::kSuccess;
}
MStatus MItMeshEdge::reset() {
    position_ = 0;
    current_ = Walk::currentOf(elements_, all_, 0);
    return MS::kSuccess;
}
int MItMeshEdge::count(MStatus* ReturnStatus) {
    setStatus(ReturnStatus, mesh_ != nullptr);
    return all_ ? count_ : static_cast<int>(elements_.size());
}
int MItMeshEdge::index(MStatus* ReturnStatus) const {
    setStatus(ReturnStatus, current_ >= 0 && current_ < count_);
    return current_;
}
int MItMeshEdge::index(int which, MStatus* ReturnStatus) {
    const bool ok = mesh_ && current_ >= 0 && current_ < count_ && (which == 0 || which == 1);
    setStatus(ReturnStatus, ok);
    return ok ? mesh_->topology().edgeVertices(current_)[static_cast<std::size_t>(which)] : -1;
}
MStatus MItMeshEdge::setIndex(int index, int& prevIndex) {
    prevIndex = current_;
    if (!mesh_ || index < 0 || index >= count_) return MS::kFailure;
    current_ = index;
    return MS::kSuccess;
}
MPoint MItMeshEdge::point(int which, MSpace::Space space, MStatus* ReturnStatus) {
    MStatus s;
    const int v = index(which, &s);
    setStatus(ReturnStatus, s == MS::kSuccess);
    return s ? pointOf(*mesh_, v, host::meshSpaceMatrix(node_, space)) : MPoint();
}
MPoint MItMeshEdge::center(MSpace::Space space, MStatus* ReturnStatus) {
    MStatus s;
    MPoint a = point(0, space, &s);
    MPoint b = point(1, space, &s);
    setStatus(ReturnStatus, s == MS::kSuccess);
    return MPoint((a.x + b.x) / 2, (a.y + b.y) / 2, (a.z + b.z) / 2);
}
int MItMeshEdge::getConnectedFaces(MIntArray& faceList, MStatus* ReturnStatus) const {
    const bool ok = mesh_ && current_ >= 0 && current_ < count_;
    setStatus(ReturnStatus, ok);
    faceList.clear();
    if (ok) assign(faceList, mesh_->topology().edgeFaces(current_));
    return static_cast<int>(faceList.length());
}
int MItMeshEdge::getConnectedEdges(MIntArray& edgeList, MStatus* ReturnStatus) const {
    const bool ok = mesh_ && current_ >= 0 && current_ < count_;
    setStatus(ReturnStatus, ok);
    edgeList.clear();
    if (!ok) return 0;
    const auto ends = mesh_->topology().edgeVertices(current_);
    for (int v : ends)
        for (int e : mesh_->topology().vertexEdges(v))
            if (e != current_) edgeList.append(e);
    return static_cast<int>(edgeList.length());
}
bool MItMeshEdge::onBoundary(MStatus* ReturnStatus) {
    const bool ok = mesh_ && current_ >= 0 && current_ < count_;
    setStatus(ReturnStatus, ok);
    return ok && mesh_->topology().edgeFaces(current_).size() < 2;
}

// Faces.
void MItMeshPolygon::init(const MObject& mesh, const MObject& component, MStatus* ReturnStatus) {
    node_ = meshNodeOf(mesh);
    mesh_ = host::readMesh(node_);
    count_ = mesh_ ? mesh_->topology().numFaces() : 0;
    host::componentElements(component, elements_, all_);
    current_ = Walk::currentOf(elements_, all_, 0);
    setStatus(ReturnStatus, mesh_ != nullptr);
}
MItMeshPolygon::MItMeshPolygon(const MObject& polyObject, MStatus* ReturnStatus) {
    init(polyObject, MObject(), ReturnStatus);
}
MItMeshPolygon::MItMeshPolygon(const MDagPath& polyObject, MObject& component, MStatus* ReturnStatus) {
    init(polyObject.node(), component, ReturnStatus);
}
MItMeshPolygon::~MItMeshPolygon() = default;

bool MItMeshPolygon::isDone(MStatus* ReturnStatus) {
    setStatus(ReturnStatus, true);
    return position_ >= (all_ ? count_ : static_cast<int>(elements_.size()));
}
MStatus MItMeshPolygon::next() {
    ++position_;
    current_ = Walk::currentOf(elements_, all_, position_);
    return MS::kSuccess;
}
MStatus MItMeshPolygon::reset() {
    position_ = 0;
    current_ = Walk::currentOf(elements_, all_, 0);
    return MS::kSuccess;
}
unsigned int MItMeshPolygon::count(MStatus* ReturnStatus) {
    setStatus(ReturnStatus, mesh_ != nullptr);
    return static_cast<unsigned int>(all_ ? count_ : static_cast<int>(elements_.size()));
}
unsigned int MItMeshPolygon::index(MStatus* ReturnStatus) {
    setStatus(ReturnStatus, current_ >= 0 && current_ < count_);
    return static_cast<unsigned int>(current_);
}
MStatus MItMeshPolygon::setIndex(int index, int& prevIndex) {
    prevIndex = current_;
    if (!mesh_ || index < 0 || index >= count_) return MS::kFailure;
    current_ = index;
    return MS::kSuccess;
}
unsigned int MItMeshPolygon::polygonVertexCount(MStatus* ReturnStatus) const {
    const bool ok = mesh_ && current_ >= 0 && current_ < count_;
    setStatus(ReturnStatus, ok);
    return ok ? static_cast<unsigned int>(mesh_->topology().faceVertices(current_).size()) : 0u;
}
MStatus MItMeshPolygon::getVertices(MIntArray& vertices) {
    if (!mesh_ || current_ < 0 || current_ >= count_) return MS::kFailure;
    assign(vertices, mesh_->topology().faceVertices(current_));
    return MS::kSuccess;
}
MStatus MItMeshPolygon::getEdges(MIntArray& edges) {
    if (!mesh_ || current_ < 0 || current_ >= count_) return MS::kFailure;
    assign(edges, mesh_->topology().faceEdges(current_));
    return MS::kSuccess;
}
MStatus MItMeshPolygon::getConnectedFaces(MIntArray& faces) {
    if (!mesh_ || current_ < 0 || current_ >= count_) return MS::kFailure;
    faces.clear();
    // Faces sharing an edge with this one, each once, in edge order.
    std::vector<int> seen;
    for (int e : mesh_->topology().faceEdges(current_))
        for (int f : mesh_->topology().edgeFaces(e))
            if (f != current_ && std::find(seen.begin(), seen.end(), f) == seen.end()) {
                seen.push_back(f);
                faces.append(f);
            }
    return MS::kSuccess;
}
MPoint MItMeshPolygon::point(int which, MSpace::Space space, MStatus* ReturnStatus) {
    const bool ok = mesh_ && current_ >= 0 && current_ < count_ && which >= 0 &&
                    which < mesh_->topology().faceVertices(current_).size();
    setStatus(ReturnStatus, ok);
    return ok ? pointOf(*mesh_, mesh_->topology().faceVertices(current_)[which],
                        host::meshSpaceMatrix(node_, space))
              : MPoint();
}
MPoint MItMeshPolygon::center(MSpace::Space space, MStatus* ReturnStatus) {
    const bool ok = mesh_ && current_ >= 0 && current_ < count_;
    setStatus(ReturnStatus, ok);
    if (!ok) return MPoint();
    const MMatrix m = host::meshSpaceMatrix(node_, space);
    double x = 0, y = 0, z = 0;
    const core::IndexRange verts = mesh_->topology().faceVertices(current_);
    for (int v : verts) {
        MPoint p = pointOf(*mesh_, v, m);
        x += p.x;
        y += p.y;
        z += p.z;
    }
    const double n = verts.size() > 0 ? verts.size() : 1;
    return MPoint(x / n, y / n, z / n);
}
