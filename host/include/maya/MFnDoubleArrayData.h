#pragma once
#include <maya/MDoubleArray.h>
#include <maya/MFnData.h>

class MFnDoubleArrayData : public MFnData {
public:
    MFnDoubleArrayData() = default;
    MFnDoubleArrayData(MObject& object, MStatus* ReturnStatus = NULL);
    MFnDoubleArrayData(const MObject& object, MStatus* ReturnStatus = NULL);
    MFn::Type type() const override { return MFn::kDoubleArrayData; }

    unsigned int length(MStatus* ReturnStatus = NULL) const;
    MStatus copyTo(MDoubleArray&) const;
    MStatus set(const MDoubleArray& newArray);
    MDoubleArray array(MStatus* ReturnStatus = NULL);
    MObject create(MStatus* ReturnStatus = NULL);
    MObject create(const MDoubleArray& in, MStatus* ReturnStatus = NULL);

protected:
    bool accepts(const MObject& object) const override;
};
