#pragma once
// Function set for dependency nodes: name, type, attributes and plugs.
#include <maya/MFnBase.h>
#include <maya/MPlug.h>
#include <maya/MString.h>

class MPlugArray;
class MStringArray;

class MFnDependencyNode : public MFnBase {
public:
    MFnDependencyNode() = default;
    MFnDependencyNode(MObject& object, MStatus* ReturnStatus = NULL);
    MFnDependencyNode(const MObject& object, MStatus* ReturnStatus = NULL);
    MFn::Type type() const override { return MFn::kDependencyNode; }

    MObject create(const MString& type, MStatus* ReturnStatus = NULL);
    MObject create(const MString& type, const MString& name, MStatus* ReturnStatus = NULL);
    MString typeName(MStatus* ReturnStatus = NULL) const;
    MString name(MStatus* ReturnStatus = NULL) const;
    MString absoluteName(MStatus* ReturnStatus = NULL) const;
    MString setName(const MString& name, bool createNamespace = false, MStatus* ReturnStatus = NULL);
    MString setName(const MString& name, MStatus* ReturnStatus);
    MStatus getConnections(MPlugArray& array) const;
    unsigned int attributeCount(MStatus* ReturnStatus = NULL) const;
    MObject attribute(unsigned int index, MStatus* ReturnStatus = NULL) const;
    MObject attribute(const MString& attrName, MStatus* ReturnStatus = NULL) const;
    bool hasAttribute(const MString& name, MStatus* ReturnStatus = NULL) const;
    MPlug findPlug(const MObject& attr, bool wantNetworkedPlug, MStatus* ReturnStatus = NULL) const;
    MPlug findPlug(const MString& attrName, bool wantNetworkedPlug, MStatus* ReturnStatus = NULL) const;
    MPlug findPlug(const MObject& attr, MStatus* ReturnStatus = NULL) const;
    MPlug findPlug(const MString& attrName, MStatus* ReturnStatus = NULL) const;
    bool findAlias(const MString& alias, MObject& attrObj, MStatus* ReturnStatus = NULL) const;
    bool getAliasList(MStringArray& strArray, MStatus* ReturnStatus = NULL);
    MString plugsAlias(const MPlug& plug, MStatus* ReturnStatus = NULL);
    bool isLocked(MStatus* ReturnStatus = NULL) const;
    bool isFromReferencedFile(MStatus* ReturnStatus = NULL) const;

protected:
    bool accepts(const MObject& object) const override;
};
