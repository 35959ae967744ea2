#pragma once
// Removes the deltas of the selected mesh components from one target item.
#include <maya/MArgList.h>
#include <maya/MIntArray.h>
#include <maya/MObject.h>
#include <maya/MPointArray.h>
#include <maya/MPxCommand.h>
#include <maya/MStatus.h>
#include <maya/MSyntax.h>

extern const char* const blendShapeRemoveDeltas_helpText;

class blendShapeRemoveDeltas : public MPxCommand {
public:
    blendShapeRemoveDeltas();

    static void* creator();
    static MSyntax newSyntax();

    MStatus doIt(const MArgList& args) override;
    MStatus redoIt() override;
    MStatus undoIt() override;
    bool isUndoable() const override { return true; }

private:
    unsigned int index;      // -index
    unsigned int targetItem; // -targetItem

    MObject blendShapeNode;
    // The item's lists as read before the change; valid once a change has been written.
    MIntArray oldComponents;
    MPointArray oldPoints;
    bool changed;
};
