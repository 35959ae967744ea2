#pragma once
// Turns a sculpt made on a deformed mesh into a corrective mesh in the space of the original
// shape.
#include <maya/MArgList.h>
#include <maya/MObject.h>
#include <maya/MPxCommand.h>
#include <maya/MStatus.h>
#include <maya/MString.h>
#include <maya/MSyntax.h>

extern const char* const sculptExtractDeltaMesh_helpText;

class sculptExtractDeltaMesh : public MPxCommand {
public:
    sculptExtractDeltaMesh();

    static void* creator();
    static MSyntax newSyntax();

    MStatus doIt(const MArgList& args) override;
    MStatus redoIt() override;
    MStatus undoIt() override;
    bool isUndoable() const override { return true; }

private:
    bool compare;             // -compare
    MString meshName;         // -mesh
    MString originalMeshName; // -originalMesh
    MObject sculptMesh;       // shape of the sculpted mesh
    MObject deformedMesh;     // shape of the skinned mesh
    MObject originalMesh;     // its original (intermediate) shape
    MObject createdMesh;      // transform of the corrective mesh, deleted on undo
};
