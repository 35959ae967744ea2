#pragma once
// Mirrors, copies to the opposite side or flips a blend shape target across an axis plane.
#include <maya/MArgDatabase.h>
#include <maya/MArgList.h>
#include <maya/MDagPath.h>
#include <maya/MIntArray.h>
#include <maya/MObject.h>
#include <maya/MPointArray.h>
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
    MStatus parseArguments(const MArgDatabase& argData);
    bool resolveMeshes();
    bool readSource();
    bool matchPartners(MIntArray& partners);
    bool createTarget();
    bool writeTweaks(const MIntArray& components, const MPointArray& points);

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
    bool orderBased;          // -orderBased given

    MObject blendShapeNode;
    MDagPath originalMesh;
    MDagPath orderMesh;
    MDagPath tweakMesh;

    // What redoIt changed, for undoIt: the source data as read (after the skip list), the
    // destination data before an apply, the created target, and the tweaks overwritten.
    MIntArray sourceComponents;
    MPointArray sourcePoints;
    MIntArray destComponents;
    MPointArray destPoints;
    MIntArray tweakComponents;
    MPointArray previousTweaks;
    bool targetWritten;
    bool targetCreated;
    bool tweaksWritten;
};
