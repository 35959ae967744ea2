#pragma once
// Rebuilds one stored target item of a blend shape node as a new mesh.
#include <maya/MArgList.h>
#include <maya/MDagPath.h>
#include <maya/MIntArray.h>
#include <maya/MObject.h>
#include <maya/MPointArray.h>
#include <maya/MPxCommand.h>
#include <maya/MStatus.h>
#include <maya/MString.h>
#include <maya/MSyntax.h>

extern const char* const blendShapeExtractTarget_helpText;

class blendShapeExtractTarget : public MPxCommand {
public:
    blendShapeExtractTarget();

    static void* creator();
    static MSyntax newSyntax();

    MStatus doIt(const MArgList& args) override;
    MStatus redoIt() override;
    MStatus undoIt() override;
    bool isUndoable() const override { return true; }

private:
    unsigned int index;       // -index
    MString originalMeshName; // -originalMesh
    unsigned int targetItem;  // -targetItem

    MObject blendShapeNode;
    MDagPath originalMeshPath;
    MObject originalMesh;
    MObject resultMesh; // the transform made by the last redoIt; undoIt deletes it

    // The mesh that shows the original plus the given deltas, evaluated by a temporary deformer.
    MStatus evaluateTarget(const MIntArray& components, const MPointArray& points);
};
