#pragma once
// Replaces the deltas of one target item by the difference between a mesh and the original mesh.
#include <maya/MArgList.h>
#include <maya/MDagPath.h>
#include <maya/MIntArray.h>
#include <maya/MObject.h>
#include <maya/MPointArray.h>
#include <maya/MPxCommand.h>
#include <maya/MStatus.h>
#include <maya/MString.h>
#include <maya/MSyntax.h>

extern const char* const blendShapeReplaceTarget_helpText;

class blendShapeReplaceTarget : public MPxCommand {
public:
    blendShapeReplaceTarget();

    static void* creator();
    static MSyntax newSyntax();

    MStatus doIt(const MArgList& args) override;
    MStatus redoIt() override;
    MStatus undoIt() override;
    bool isUndoable() const override { return true; }

private:
    unsigned int index;       // -index
    MString meshName;         // -mesh
    MString originalMeshName; // -originalMesh
    unsigned int targetItem;  // -targetItem

    MDagPath meshPath;
    MDagPath originalMeshPath;
    MObject blendShapeNode;
    // The item's lists as they were before the change; valid once a change has been written.
    MIntArray oldComponents;
    MPointArray oldPoints;
    bool changed;

    bool checkMeshes();
};
