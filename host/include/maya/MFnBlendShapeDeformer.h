#pragma once
// Function set for blend shape deformers.
#include <maya/MFnDependencyNode.h>

class MObjectArray;
class MIntArray;
class MFloatArray;

class MFnBlendShapeDeformer : public MFnDependencyNode {
public:
    enum Origin { kLocalOrigin, kWorldOrigin };
    enum HistoryLocation { kFrontOfChain, kNormal, kOther };
    enum TargetType { kObject, kTangent };

    MFnBlendShapeDeformer() = default;
    MFnBlendShapeDeformer(MObject& object, MStatus* ReturnStatus = NULL);
    MFnBlendShapeDeformer(const MObject& object, MStatus* ReturnStatus = NULL);
    MFn::Type type() const override { return MFn::kBlendShape; }

    MObject create(MObject baseObject, Origin originSpace = kLocalOrigin, MStatus* ReturnStatus = NULL);
    MObject create(const MObjectArray& baseObjects, Origin originSpace = kLocalOrigin,
                   HistoryLocation = kNormal, MStatus* ReturnStatus = NULL);
    MStatus addBaseObject(MObject& object);
    MStatus getBaseObjects(MObjectArray& objects) const;
    MStatus addTarget(const MObject& baseObject, int weightIndex, const MObject& newTarget, double fullWeight,
                      TargetType targetType = kObject);
    MStatus addTarget(const MObject& baseObject, int weightIndex, double fullWeight,
                      TargetType targetType = kObject);
    MStatus removeTarget(const MObject& baseObject, int weightIndex, const MObject& target,
                         double fullWeight);
    MStatus getTargets(MObject baseObject, int weightIndex, MObjectArray& targetObjects) const;
    unsigned int numWeights(MStatus* ReturnStatus = NULL) const;
    MStatus weightIndexList(MIntArray& indexList) const;
    float weight(unsigned int index, MStatus* ReturnStatus = NULL) const;
    MStatus setWeight(unsigned int index, float weight);
    float envelope(MStatus* ReturnStatus = NULL) const;
    MStatus setEnvelope(float envelope);
    Origin origin(MStatus* ReturnStatus = NULL) const;
    MStatus setOrigin(Origin space);

protected:
    bool accepts(const MObject& object) const override;
};
