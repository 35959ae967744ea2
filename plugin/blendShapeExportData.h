#pragma once
// Writes the deltas of chosen blend-shape targets to a JSON delta file.
#include <maya/MArgDatabase.h>
#include <maya/MArgList.h>
#include <maya/MIntArray.h>
#include <maya/MObject.h>
#include <maya/MPxCommand.h>
#include <maya/MStatus.h>
#include <maya/MString.h>
#include <maya/MStringArray.h>
#include <maya/MSyntax.h>

extern const char* const blendShapeExportData_helpText;

class blendShapeExportData : public MPxCommand {
public:
    blendShapeExportData();

    static void* creator();
    static MSyntax newSyntax();

    MStatus doIt(const MArgList& args) override;
    MStatus redoIt() override;
    MStatus undoIt() override;
    bool isUndoable() const override { return false; }

private:
    bool deltaMode;            // -delta
    MString fileName;          // -fileName
    MStringArray channelNames; // -channelName, every use in order
    MIntArray indices;         // -index, every use in order
    MObject blendShapeNode;

    MStatus parseArguments(const MArgDatabase& argData);
    bool exportDeltas();
};
