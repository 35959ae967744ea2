#pragma once
// Function set for skin clusters: influences and per-vertex weights.
#include <maya/MFnGeometryFilter.h>

class MDagPath;
class MDagPathArray;
class MDoubleArray;
class MFloatArray;
class MIntArray;

class MFnSkinCluster : public MFnGeometryFilter {
public:
    MFnSkinCluster() = default;
    MFnSkinCluster(MObject& object, MStatus* ReturnStatus = NULL);
    MFnSkinCluster(const MObject& object, MStatus* ReturnStatus = NULL);
    MFn::Type type() const override { return MFn::kSkinClusterFilter; }

    unsigned int influenceObjects(MDagPathArray& paths, MStatus* ReturnStatus = NULL) const;
    unsigned int indexForInfluenceObject(const MDagPath& path, MStatus* ReturnStatus = NULL) const;
    MStatus getWeights(const MDagPath& path, const MObject& components, unsigned int influenceIndex,
                       MDoubleArray& weights) const;
    MStatus getWeights(const MDagPath& path, const MObject& components, MDoubleArray& weights,
                       unsigned int& influenceCount) const;
    MStatus getWeights(const MDagPath& path, const MObject& components, MIntArray& influenceIndices,
                       MDoubleArray& weights) const;
    MStatus getWeights(const MDagPath& path, const MObject& components, unsigned int influenceIndex,
                       MFloatArray& weights) const;
    MStatus getWeights(const MDagPath& path, const MObject& components, MFloatArray& weights,
                       unsigned int& influenceCount) const;
    MStatus setWeights(const MDagPath& path, const MObject& components, unsigned int jointIndex, double value,
                       bool normalize = true, MDoubleArray* oldValues = NULL);
    MStatus setWeights(const MDagPath& path, const MObject& components, MIntArray& influenceIndices,
                       MDoubleArray& values, bool normalize = true, MDoubleArray* oldValues = NULL);
    MStatus setWeights(const MDagPath& path, const MObject& components, unsigned int jointIndex, float value,
                       bool normalize = true, MFloatArray* oldValues = NULL);
    MStatus setWeights(const MDagPath& path, const MObject& components, MIntArray& influenceIndices,
                       MFloatArray& values, bool normalize = true, MFloatArray* oldValues = NULL);

protected:
    bool accepts(const MObject& object) const override;
};
