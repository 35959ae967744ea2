#pragma once
// Iterator over the faces of a mesh (or of a face component).
#include <maya/MDagPath.h>
#include <maya/MObject.h>
#include <maya/MPoint.h>
#include <maya/MSpace.h>
#include <maya/MStatus.h>

#include <memory>
#include <vector>

class MIntArray;

namespace host {
struct MeshData;
}

class MItMeshPolygon {
public:
    MItMeshPolygon(const MObject& polyObject, MStatus* ReturnStatus = NULL);
    MItMeshPolygon(const MDagPath& polyObject, MObject& component = MObject::kNullObj,
                   MStatus* ReturnStatus = NULL);
    ~MItMeshPolygon();

    bool isDone(MStatus* ReturnStatus = NULL);
    MStatus next();
    MStatus reset();
    unsigned int count(MStatus* ReturnStatus = NULL);
    unsigned int index(MStatus* ReturnStatus = NULL);
    MStatus setIndex(int index, int& prevIndex);
    unsigned int polygonVertexCount(MStatus* ReturnStatus = NULL) const;
    MStatus getVertices(MIntArray& vertices);
    MStatus getEdges(MIntArray& edges);
    MStatus getConnectedFaces(MIntArray& faces);
    MPoint center(MSpace::Space space = MSpace::kObject, MStatus* ReturnStatus = NULL);
    MPoint point(int index, MSpace::Space space = MSpace::kObject, MStatus* ReturnStatus = NULL);

private:
    void init(const MObject& mesh, const MObject& component, MStatus* ReturnStatus);
    std::shared_ptr<const host::MeshData> mesh_;
    MObject node_;
    std::vector<int> elements_;
    bool all_ = true;
    int position_ = 0;
    int current_ = 0;
    int count_ = 0;
};
