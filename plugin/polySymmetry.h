#pragma once
// Tests a mesh for positional symmetry and records the pairs found in the vertex order map,
// or rebuilds one side of a mesh from another mesh's map.
#include <maya/MArgList.h>
#include <maya/MPxCommand.h>
#include <maya/MStatus.h>
#include <maya/MString.h>
#include <maya/MSyntax.h>

extern const char* const polySymmetry_helpText;

class polySymmetry : public MPxCommand {
public:
    polySymmetry();

    static void* creator();
    static MSyntax newSyntax();

    MStatus doIt(const MArgList& args) override;
    MStatus redoIt() override;
    MStatus undoIt() override;
    bool isUndoable() const override { return true; }

private:
    bool addToMap;            // -addToMap
    bool applyOrderMap;       // -applyOrderMap given
    MString orderMapMeshName; // -applyOrderMap
    MString axis;             // -axis
    bool direction;           // -direction, read as a boolean; true tests the negative side
    double tolerance;         // -tolerance
};
