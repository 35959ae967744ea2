#pragma once
// Tests a mesh for positional symmetry and records the pairs found in the vertex order map,
// or rebuilds one side of a mesh from another mesh's map.
#include <maya/MArgList.h>
#include <maya/MDagPath.h>
#include <maya/MIntArray.h>
#include <maya/MObject.h>
#include <maya/MPointArray.h>
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
    // Rebuilds the tested side from the order-map mesh's map.
    MStatus applyMap();
    // Searches the positional partners and reports the vertices without one.
    MStatus checkSymmetry();

    bool addToMap;            // -addToMap
    bool applyOrderMap;       // -applyOrderMap given
    MString orderMapMeshName; // -applyOrderMap
    MString axis;             // -axis
    bool direction;           // -direction, read as a boolean; true tests the negative side
    double tolerance;         // -tolerance
    MDagPath meshPath;
    MDagPath orderMapPath;  // the -applyOrderMap mesh, when found
    MPointArray undoPoints; // the mesh's points before the order map was applied
    MIntArray components;   // the selected components of the mesh
    int componentKind;      // -1 none, 0 vertices, 1 edges, 2 faces
};
