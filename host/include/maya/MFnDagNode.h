#pragma once
// Function set for DAG nodes: parents, children, paths.
#include <maya/MDagPath.h>
#include <maya/MFnDependencyNode.h>

class MMatrix;

class MFnDagNode : public MFnDependencyNode {
public:
    enum { kNextPos = 0xFF };

    MFnDagNode() = default;
    MFnDagNode(MObject& object, MStatus* ret = NULL);
    MFnDagNode(const MObject& object, MStatus* ret = NULL);
    MFnDagNode(const MDagPath& object, MStatus* ret = NULL);
    MFn::Type type() const override { return MFn::kDagNode; }

    MObject create(const MString& type, MObject parent = MObject::kNullObj, MStatus* ReturnStatus = NULL);
    MObject create(const MString& type, const MString& name, MObject parent = MObject::kNullObj,
                   MStatus* ReturnStatus = NULL);
    unsigned int parentCount(MStatus* ReturnStatus = NULL) const;
    MObject parent(unsigned int i, MStatus* ReturnStatus = NULL) const;
    MStatus addChild(MObject& child, unsigned int index = kNextPos, bool keepExistingParents = false);
    MStatus removeChild(MObject& child);
    unsigned int childCount(MStatus* ReturnStatus = NULL) const;
    MObject child(unsigned int i, MStatus* ReturnStatus = NULL) const;
    bool hasChild(MObject& node, MStatus* ReturnStatus = NULL) const;
    bool isIntermediateObject(MStatus* ReturnStatus = NULL) const;
    MStatus setIntermediateObject(bool isIntermediate);
    MString fullPathName(MStatus* ReturnStatus = NULL) const;
    MString partialPathName(MStatus* ReturnStatus = NULL) const;
    MStatus getPath(MDagPath& path) const;
    MDagPath dagPath(MStatus* ReturnStatus = NULL) const;
    MMatrix transformationMatrix(MStatus* ReturnStatus = NULL) const;

protected:
    bool accepts(const MObject& object) const override;
};
