#pragma once
// Base function set for components.
#include <maya/MFnBase.h>

class MFnComponent : public MFnBase {
public:
    MFnComponent() = default;
    MFnComponent(MObject& object, MStatus* ReturnStatus = NULL);
    MFnComponent(const MObject& object, MStatus* ReturnStatus = NULL);
    MFn::Type type() const override { return MFn::kComponent; }

    int elementCount(MStatus* ReturnStatus = NULL) const;
    MFn::Type componentType(MStatus* ReturnStatus = NULL) const;
    bool isEmpty(MStatus* ReturnStatus = NULL) const;
    bool isComplete(MStatus* ReturnStatus = NULL) const;
    MStatus setComplete(bool completeFlag);

protected:
    bool accepts(const MObject& object) const override;
};
