#pragma once
// Moves the data of one target item to another item number of the same target.
#include <maya/MArgList.h>
#include <maya/MIntArray.h>
#include <maya/MObject.h>
#include <maya/MPointArray.h>
#include <maya/MPxCommand.h>
#include <maya/MStatus.h>
#include <maya/MString.h>
#include <maya/MSyntax.h>

extern const char* const blendShapeSetInbetweenPosition_helpText;

class blendShapeSetInbetweenPosition : public MPxCommand {
public:
    blendShapeSetInbetweenPosition();

    static void* creator();
    static MSyntax newSyntax();

    MStatus doIt(const MArgList& args) override;
    MStatus redoIt() override;
    MStatus undoIt() override;
    bool isUndoable() const override { return true; }

private:
    unsigned int index;          // -index
    unsigned int sourcePosition; // -sourcePosition
    unsigned int targetPosition; // -targetPosition

    MObject blendShapeNode;
    // The source item's lists as read; valid once the item has been moved.
    MIntArray components;
    MPointArray points;
    bool changed;

    // Removes item `position` of the target from the node.
    void removeItem(unsigned int position) const;
};
