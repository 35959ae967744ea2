#pragma once
// Moves the data of one target item to another item number of the same target.
#include <maya/MArgList.h>
#include <maya/MPxCommand.h>
#include <maya/MStatus.h>
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
};
