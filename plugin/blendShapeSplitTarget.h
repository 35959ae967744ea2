#pragma once
// Paints the weights of a target so that it acts on one side of an axis plane only.
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

extern const char* const blendShapeSplitTarget_helpText;

class blendShapeSplitTarget : public MPxCommand {
public:
    blendShapeSplitTarget();

    static void* creator();
    static MSyntax newSyntax();

    MStatus doIt(const MArgList& args) override;
    MStatus redoIt() override;
    MStatus undoIt() override;
    bool isUndoable() const override { return true; }

private:
    MStatus parseArguments(const MArgDatabase& argData);
    bool checkOriginalMesh();
    bool readComponents();
    bool baseHardSplit() const { return index == -1 && hardSplit; }

    MString axis;             // -axis
    double blend;             // -blend
    double center;            // -center
    int index;                // -index
    int side;                 // -invert
    MString originalMeshName; // -originalMesh
    double tolerance;         // -tolerance

    MObject blendShapeNode;
    MDagPath originalMesh;
    MIntArray components; // components whose weights are set
    MPointArray points;   // deltas of target 0 (base weights only), kept for undo
    bool hardSplit;
};
