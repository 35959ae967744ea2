#pragma once
// Batches graph edits and applies them on doIt; undoIt reverses what doIt did.
#include <maya/MObject.h>
#include <maya/MPlug.h>
#include <maya/MStatus.h>
#include <maya/MString.h>

#include <functional>
#include <vector>

class MDGModifier {
public:
    MDGModifier() = default;
    MDGModifier(const MDGModifier& other) = default;
    virtual ~MDGModifier() = default;

    MObject createNode(const MString& type, MStatus* ReturnStatus = NULL);
    MStatus deleteNode(const MObject& node, bool includeParents = true);
    MStatus renameNode(const MObject& node, const MString& newName);
    MStatus connect(const MPlug& source, const MPlug& dest);
    MStatus disconnect(const MPlug& source, const MPlug& dest);
    MStatus newPlugValueDouble(const MPlug& plug, double plugValue);
    MStatus newPlugValueFloat(const MPlug& plug, float plugValue);
    MStatus newPlugValueInt(const MPlug& plug, int plugValue);
    MStatus newPlugValueBool(const MPlug& plug, bool plugValue);
    MStatus newPlugValue(const MPlug& plug, const MObject& plugValue);
    MStatus commandToExecute(const MString& command);
    MStatus doIt();
    MStatus undoIt();

protected:
    struct Step {
        std::function<MStatus()> apply;
        std::function<MStatus()> revert;
    };
    std::vector<Step> pending_;
    std::vector<Step> done_;
};
