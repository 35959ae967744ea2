#pragma once
#include <maya/MFnData.h>
#include <maya/MIntArray.h>

class MFnIntArrayData : public MFnData {
public:
    MFnIntArrayData() = default;
    MFnIntArrayData(MObject& object, MStatus* ReturnStatus = NULL);
    MFnIntArrayData(const MObject& object, MStatus* ReturnStatus = NULL);
    MFn::Type type() const override { return MFn::kIntArrayData; }

    unsigned int length(MStatus* ReturnStatus = NULL) const;
    MStatus copyTo(MIntArray&) const;
    MStatus set(const MIntArray& newArray);
    MIntArray array(MStatus* ReturnStatus = NULL);
    MObject create(MStatus* ReturnStatus = NULL);
    MObject create(const MIntArray& in, MStatus* ReturnStatus = NULL);

protected:
    bool accepts(const MObject& object) const override;
};
