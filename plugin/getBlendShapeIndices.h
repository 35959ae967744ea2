#pragma once
// kv_getBlendShapeIndices: the weight indices of a blend shape node, which need not be contiguous.
#include <maya/MArgList.h>
#include <maya/MObject.h>
#include <maya/MPxCommand.h>
#include <maya/MStatus.h>
#include <maya/MSyntax.h>

extern const char* const getBlendShapeIndices_helpText;

class getBlendShapeIndices : public MPxCommand {
public:
    getBlendShapeIndices() = default;
    static void* creator();
    static MSyntax newSyntax();

    MStatus doIt(const MArgList& args) override;
    MStatus redoIt() override;
    MStatus undoIt() override;
    bool isUndoable() const override;

private:
    MObject blendShape_;
};
