#pragma once
// kv_reorderRotation: the Euler angles that give the same orientation in another rotate order, so a
// pose can move between controls whose rotate orders differ. A pure calculation: no node changes.
#include <maya/MArgList.h>
#include <maya/MPxCommand.h>
#include <maya/MStatus.h>
#include <maya/MSyntax.h>

extern const char* const reorderRotation_helpText;

class reorderRotation : public MPxCommand {
public:
    reorderRotation();
    static void* creator();
    static MSyntax newSyntax();

    MStatus doIt(const MArgList& args) override;
    MStatus redoIt() override;
    MStatus undoIt() override;
    bool isUndoable() const override;

private:
    // Rotate orders as the rotateOrder attribute numbers them: 0 xyz, 1 yzx, 2 zxy, 3 xzy, 4 yxz,
    // 5 zyx; other values count as xyz.
    int inOrder_;
    int outOrder_;
    double inRotation_[3]; // degrees
};
