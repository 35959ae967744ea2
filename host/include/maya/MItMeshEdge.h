#pragma once
// Iterator over the edges of a mesh (or of an edge component).
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

class MItMeshEdge {
public:
    MItMeshEdge(MObject& polyObject, MStatus* ReturnStatus = NULL);
    MItMeshEdge(MObject& polyObject, MObject& component, MStatus* ReturnStatus = NULL);
    MItMeshEdge(const MDagPath& polyObject, MObject& component = MObject::kNullObj,
                MStatus* ReturnStatus = NULL);
    ~MItMeshEdge();

    bool isDone(MStatus* ReturnStatus = NULL);
    MStatus next();
    MStatus reset();
    int count(MStatus* ReturnStatus = NULL);
    int index(MStatus* ReturnStatus = NULL) const;
    // The edge's first (0) or second (1) vertex.
    int index(int index, MStatus* ReturnStatus = NULL);
    MStatus setIndex(int index, int& prevIndex);
    MPoint center(MSpace::Space space = MSpace::kObject, MStatus* ReturnStatus = NULL);
    MPoint point(int index, MSpace::Space space = MSpace::kObject, MStatus* ReturnStatus = NULL);
    int getConnectedFaces(MIntArray& faceList, MStatus* ReturnStatus = NULL) const;
    int getConnectedEdges(MIntArray& edgeList, MStatus* ReturnStatus = NULL) const;
    bool onBoundary(MStatus* ReturnStatus = NULL);

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
