#pragma once
// A path to a DAG node. The host has no instancing, so a node has exactly one path.
#include <maya/MFn.h>
#include <maya/MObject.h>
#include <maya/MStatus.h>
#include <maya/MString.h>

#include <memory>

class MMatrix;

class MDagPath {
public:
    MDagPath() = default;
    MDagPath(const MDagPath& src) = default;
    MDagPath& operator=(const MDagPath& src) = default;
    ~MDagPath() = default;

    static MStatus getAPathTo(const MObject& node, MDagPath& path);

    bool hasFn(MFn::Type type, MStatus* ReturnStatus = nullptr) const;
    MFn::Type apiType(MStatus* ReturnStatus = nullptr) const;
    bool isValid(MStatus* ReturnStatus = nullptr) const;
    MObject node(MStatus* ReturnStatus = nullptr) const;
    MObject transform(MStatus* ReturnStatus = nullptr) const;
    unsigned int length(MStatus* ReturnStatus = nullptr) const;
    unsigned int childCount(MStatus* ReturnStatus = nullptr) const;
    MObject child(unsigned int i, MStatus* ReturnStatus = nullptr) const;
    MStatus push(const MObject& child);
    MStatus pop(unsigned int num = 1);
    MStatus extendToShape();
    MStatus extendToShapeDirectlyBelow(unsigned int num);
    MStatus numberOfShapesDirectlyBelow(unsigned int& num) const;
    MString fullPathName(MStatus* ReturnStatus = nullptr) const;
    MString partialPathName(MStatus* ReturnStatus = nullptr) const;
    MMatrix inclusiveMatrix(MStatus* ReturnStatus = nullptr) const;
    MMatrix exclusiveMatrix(MStatus* ReturnStatus = nullptr) const;
    MMatrix inclusiveMatrixInverse(MStatus* ReturnStatus = nullptr) const;
    bool isInstanced(MStatus* ReturnStatus = nullptr) const;
    bool operator==(const MDagPath& other) const;
    bool operator!=(const MDagPath& other) const { return !(*this == other); }

    // Host access, not part of Maya's interface: never used by plugin code.
    explicit MDagPath(const MObject& node) : node_(node) {}

private:
    MObject node_;
};
