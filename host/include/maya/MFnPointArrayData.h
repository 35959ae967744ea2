#pragma once
#include <maya/MFnData.h>
#include <maya/MPointArray.h>

class MFnPointArrayData : public MFnData {
public:
    MFnPointArrayData() = default;
    MFnPointArrayData(MObject& object, MStatus* ReturnStatus = NULL);
    MFnPointArrayData(const MObject& object, MStatus* ReturnStatus = NULL);
    MFn::Type type() const override { return MFn::kPointArrayData; }

    unsigned int length(MStatus* ReturnStatus = NULL) const;
    MStatus copyTo(MPointArray&) const;
    MStatus set(const MPointArray& newArray);
    MPointArray array(MStatus* ReturnStatus = NULL);
    MObject create(MStatus* ReturnStatus = NULL);
    MObject create(const MPointArray& in, MStatus* ReturnStatus = NULL);

protected:
    bool accepts(const MObject& object) const override;
};
