#pragma once
// Reads a JSON delta file into a blend-shape node, or lists the file's target blocks.
#include <maya/MArgDatabase.h>
#include <maya/MArgList.h>
#include <maya/MIntArray.h>
#include <maya/MObject.h>
#include <maya/MPxCommand.h>
#include <maya/MStatus.h>
#include <maya/MString.h>
#include <maya/MStringArray.h>
#include <maya/MSyntax.h>

extern const char* const blendShapeImportData_helpText;

class blendShapeImportData : public MPxCommand {
public:
    blendShapeImportData();

    static void* creator();
    static MSyntax newSyntax();

    MStatus doIt(const MArgList& args) override;
    MStatus redoIt() override;
    MStatus undoIt() override;
    bool isUndoable() const override { return false; }

private:
    bool delta;                   // -delta
    bool listDeltas;              // -listDeltas
    bool remap;                   // -remap
    MString fileName;             // -fileName
    MIntArray sourceIndices;      // -sourceIndex, every use in order
    MIntArray destinationIndices; // -destinationIndex, every use in order
    MObject blendShapeNode;

    MStatus parseArguments(const MArgDatabase& argData);
    // Scans the file; with writing, sets the deltas it holds, otherwise lists its blocks.
    bool importDeltas(bool writing, MStringArray& list);
};
