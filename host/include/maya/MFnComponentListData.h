#pragma once
// Function set for component list data: an ordered list of components.
#include <maya/MFnData.h>

class MFnComponentListData : public MFnData {
public:
    MFnComponentListData() = default;
    MFnComponentListData(MObject& object, MStatus* ReturnStatus = NULL);
    MFnComponentListData(const MObject& object, MStatus* ReturnStatus = NULL);
    MFn::Type type() const override { return MFn::kComponentListData; }

    unsigned int length(MStatus* ReturnStatus = NULL) const;
    MObject operator[](unsigned int index) const;
    MStatus add(MObject&);
    MStatus clear();
    bool has(const MObject& component) const;
    MObject create(MStatus* ReturnStatus = NULL);

protected:
    bool accepts(const MObject& object) const override;
};
