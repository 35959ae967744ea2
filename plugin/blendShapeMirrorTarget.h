#pragma once
// Mirrors, copies to the opposite side or flips a blend shape target across an axis plane.
#include <maya/MArgList.h>
#include <maya/MPxCommand.h>
#include <maya/MStatus.h>
#include <maya/MString.h>
#include <maya/MSyntax.h>

extern const char* const blendShapeMirrorTarget_helpText;

class blendShapeMirrorTarget : public MPxCommand {
public:
    blendShapeMirrorTarget();

    static void* creator();
    static MSyntax newSyntax();

    MStatus doIt(const MArgList& args) override;
    MStatus redoIt() override;
    MStatus undoIt() override;
    bool isUndoable() const override { return true; }

private:
    MString axis;             // -axis
    bool direction;           // -direction
    bool flip;                // -flip
    bool inbetween;           // -inbetween
    MString meshName;         // -mesh
    MString orderMeshName;    // -orderBased
    MString originalMeshName; // -originalMesh
    MString skipComponents;   // -skipComponents
    unsigned int sourceIndex; // -sourceIndex
    unsigned int targetIndex; // -targetIndex
    MString targetName;       // -targetName
    unsigned int targetItem;  // -targetItem
    float tolerance;          // -tolerance
    MString tweakMeshName;    // -tweakMesh
    int type;                 // -type
};
