#pragma once
// Iterator over the vertices of a mesh (or of a vertex component).
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

class MItMeshVertex {
public:
    MItMeshVertex(MObject& polyObject, MStatus* ReturnStatus = NULL);
    MItMeshVertex(const MDagPath& polyObject, MObject& component = MObject::kNullObj,
                  MStatus* ReturnStatus = NULL);
    ~MItMeshVertex();

    bool isDone(MStatus* ReturnStatus = NULL);
    MStatus next();
    MStatus reset();
    int count(MStatus* ReturnStatus = NULL);
    int index(MStatus* ReturnStatus = NULL);
    MStatus setIndex(int index, int& prevIndex);
    MPoint position(MSpace::Space space = MSpace::kObject, MStatus* ReturnStatus = NULL);
    MStatus getConnectedEdges(MIntArray& edgeList);
    MStatus getConnectedFaces(MIntArray& faceList);
    MStatus getConnectedVertices(MIntArray& vertexList);
    MStatus numConnectedEdges(int& edgeCount) const;
    MStatus numConnectedFaces(int& faceCount) const;
    bool onBoundary(MStatus* ReturnStatus = NULL);

private:
    std::shared_ptr<const host::MeshData> mesh_;
    MObject node_;
    std::vector<int> elements_; // the component's vertices, or empty for all
    bool all_ = true;
    int position_ = 0;
    int current_ = 0;
    int count_ = 0;
};
