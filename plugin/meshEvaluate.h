#pragma once
// Finds the visible or the intermediate shape node of a mesh.
#include <maya/MArgList.h>
#include <maya/MPxCommand.h>
#include <maya/MStatus.h>
#include <maya/MSyntax.h>

extern const char* const meshEvaluate_helpText;

class meshEvaluate : public MPxCommand {
public:
    meshEvaluate();

    static void* creator();
    static MSyntax newSyntax();

    MStatus doIt(const MArgList& args) override;
    MStatus redoIt() override;
    MStatus undoIt() override;
    bool isUndoable() const override { return false; }

private:
    bool intermediate; // -intermediate
};
