#pragma once
// Function set for polygon meshes.
#include <maya/MColor.h>
#include <maya/MFloatPoint.h>
#include <maya/MFnDagNode.h>
#include <maya/MPoint.h>
#include <maya/MSpace.h>
#include <maya/MString.h>

class MPointArray;
class MFloatPointArray;
class MFloatArray;
class MIntArray;
class MColorArray;
class MStringArray;
class MDGModifier;
class MVector;

namespace host {
struct MeshData;
}

class MFnMesh : public MFnDagNode {
public:
    enum MColorRepresentation { kAlpha = 1, kRGB = 3, kRGBA = 4 };

    MFnMesh() = default;
    MFnMesh(MObject& object, MStatus* ReturnStatus = NULL);
    MFnMesh(const MObject& object, MStatus* ReturnStatus = NULL);
    MFnMesh(const MDagPath& object, MStatus* ReturnStatus = NULL);
    MFn::Type type() const override { return MFn::kMesh; }
    MStatus setObject(MObject& object) override;
    MStatus setObject(const MObject& object) override;
    MStatus setObject(const MDagPath& path);

    MObject create(int numVertices, int numPolygons, const MFloatPointArray& vertexArray,
                   const MIntArray& polygonCounts, const MIntArray& polygonConnects,
                   MObject parentOrOwner = MObject::kNullObj, MStatus* ReturnStatus = NULL);
    MObject create(int numVertices, int numPolygons, const MPointArray& vertexArray,
                   const MIntArray& polygonCounts, const MIntArray& polygonConnects,
                   MObject parentOrOwner = MObject::kNullObj, MStatus* ReturnStatus = NULL);
    MObject create(int numVertices, int numPolygons, const MPointArray& vertexArray,
                   const MIntArray& polygonCounts, const MIntArray& polygonConnects, bool storeDoubles,
                   MObject parentOrOwner = MObject::kNullObj, MStatus* ReturnStatus = NULL);
    MObject copy(const MObject& source, MObject parentOrOwner = MObject::kNullObj,
                 MStatus* ReturnStatus = NULL);

    int numVertices(MStatus* ReturnStatus = NULL) const;
    int numEdges(MStatus* ReturnStatus = NULL) const;
    int numPolygons(MStatus* ReturnStatus = NULL) const;
    int numFaceVertices(MStatus* ReturnStatus = NULL) const;
    int polygonVertexCount(int polygonId, MStatus* ReturnStatus = NULL) const;

    MStatus getPoints(MFloatPointArray& vertexArray, MSpace::Space space = MSpace::kObject) const;
    MStatus getPoints(MPointArray& vertexArray, MSpace::Space space = MSpace::kObject) const;
    MStatus setPoints(MFloatPointArray& vertexArray, MSpace::Space space = MSpace::kObject);
    MStatus setPoints(MPointArray& vertexArray, MSpace::Space space = MSpace::kObject);
    MStatus getPoint(int vertexId, MPoint& pos, MSpace::Space space = MSpace::kObject) const;
    MStatus setPoint(int vertexId, const MPoint& pos, MSpace::Space space = MSpace::kObject);
    MStatus getVertices(MIntArray& vertexCount, MIntArray& vertexList) const;
    MStatus getPolygonVertices(int polygonId, MIntArray& vertexList) const;
    MStatus getEdgeVertices(int edgeId, int2& vertexList) const;

    int numColorSets(MStatus* ReturnStatus = NULL) const;
    MStatus getColorSetNames(MStringArray& setNames) const;
    MString currentColorSetName(int instance = -1, MStatus* ReturnStatus = NULL) const;
    MString createColorSetWithName(const MString& colorSetName, MDGModifier* modifier = NULL,
                                   MIntArray* instances = NULL, MStatus* ReturnStatus = NULL);
    MStatus setCurrentColorSetName(const MString& colorSet, MDGModifier* modifier = NULL,
                                   MIntArray* instances = NULL);
    MStatus getVertexColors(MColorArray& colors, const MString* colorSet = NULL,
                            const MColor* defaultUnsetColor = NULL);
    MStatus setVertexColors(MColorArray& colors, MIntArray& vertexList, MDGModifier* modifier = NULL);
    MStatus setVertexColors(MColorArray& colors, MIntArray& vertexList, MDGModifier* modifier,
                            MColorRepresentation rep);
    MStatus updateSurface();

protected:
    bool accepts(const MObject& object) const override;

private:
    MMatrix spaceMatrix(MSpace::Space space) const;
    // Gives the geometry to its owner: mesh data, or a new shape under a transform (or a new one).
    MObject place(host::MeshData&& mesh, MObject parentOrOwner, MStatus* ReturnStatus);
};
