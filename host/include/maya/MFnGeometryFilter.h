#pragma once
// Function set for deformers: their input and output geometry.
#include <maya/MFnDependencyNode.h>

class MObjectArray;
class MDagPath;

class MFnGeometryFilter : public MFnDependencyNode {
public:
    MFnGeometryFilter() = default;
    MFnGeometryFilter(MObject& object, MStatus* ReturnStatus = NULL);
    MFnGeometryFilter(const MObject& object, MStatus* ReturnStatus = NULL);
    MFn::Type type() const override { return MFn::kGeometryFilt; }

    MStatus getInputGeometry(MObjectArray& objects) const;
    MStatus getOutputGeometry(MObjectArray& objects) const;
    MObject inputShapeAtIndex(unsigned int index, MStatus* ReturnStatus = NULL) const;
    MObject outputShapeAtIndex(unsigned int index, MStatus* ReturnStatus = NULL) const;
    MStatus getPathAtIndex(unsigned int index, MDagPath& path) const;
    unsigned int indexForOutputShape(const MObject& shape, MStatus* ReturnStatus = NULL) const;
    unsigned int numOutputConnections(MStatus* ReturnStatus = NULL) const;
    float envelope(MStatus* ReturnStatus = NULL) const;
    MStatus setEnvelope(float envelope);

protected:
    bool accepts(const MObject& object) const override;
};
