#pragma once
#include <maya/MDGModifier.h>

class MDagModifier : public MDGModifier {
public:
    MDagModifier() = default;
    MDagModifier(const MDagModifier& other) = default;
    ~MDagModifier() override = default;

    MObject createNode(const MString& type, const MObject& parent = MObject::kNullObj,
                       MStatus* ReturnStatus = NULL);
    MStatus reparentNode(const MObject& node, const MObject& newParent = MObject::kNullObj);
};
