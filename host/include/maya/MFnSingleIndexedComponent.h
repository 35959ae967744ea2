#pragma once
// Function set for components addressed by one index (vertices, edges, faces).
#include <maya/MFnComponent.h>

class MIntArray;

class MFnSingleIndexedComponent : public MFnComponent {
public:
    MFnSingleIndexedComponent() = default;
    MFnSingleIndexedComponent(MObject& object, MStatus* ReturnStatus = NULL);
    MFnSingleIndexedComponent(const MObject& object, MStatus* ReturnStatus = NULL);
    MFn::Type type() const override { return MFn::kSingleIndexedComponent; }

    MObject create(MFn::Type compType, MStatus* ReturnStatus = NULL);
    MStatus addElement(int element);
    MStatus addElements(MIntArray& elements);
    int element(int index, MStatus* ReturnStatus = NULL) const;
    MStatus getElements(MIntArray& elements) const;
    MStatus setCompleteData(int numElements);
    MStatus getCompleteData(int& numElements) const;
};
