#pragma once
// Function set for transforms: translation, rotation and scale.
#include <maya/MFnDagNode.h>
#include <maya/MSpace.h>
#include <maya/MTransformationMatrix.h>
#include <maya/MVector.h>

class MFnTransform : public MFnDagNode {
public:
    MFnTransform() = default;
    MFnTransform(MObject& object, MStatus* ReturnStatus = NULL);
    MFnTransform(const MObject& object, MStatus* ReturnStatus = NULL);
    MFnTransform(const MDagPath& object, MStatus* ReturnStatus = NULL);
    MFn::Type type() const override { return MFn::kTransform; }

    MObject create(MObject parent = MObject::kNullObj, MStatus* ReturnStatus = NULL);
    MTransformationMatrix transformation(MStatus* ReturnStatus = NULL) const;
    MStatus set(const MTransformationMatrix& transform);
    MVector getTranslation(MSpace::Space space, MStatus* ReturnStatus = NULL) const;
    MStatus setTranslation(const MVector& vec, MSpace::Space space);
    MStatus getScale(double scale[3]) const;
    MStatus setScale(const double scale[3]);
    MStatus getRotation(double rotation[3], MTransformationMatrix::RotationOrder& order) const;
    MStatus setRotation(const double rotation[3], MTransformationMatrix::RotationOrder order);
    MTransformationMatrix::RotationOrder rotationOrder(MStatus* ReturnStatus = NULL) const;

protected:
    bool accepts(const MObject& object) const override;
};
