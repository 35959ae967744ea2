#pragma once
// Rebuilds one stored target item of a blend shape node as a new mesh.
#include <maya/MArgList.h>
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
};
