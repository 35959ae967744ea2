#pragma once
// Reads and edits the per-vertex weight map of a blend shape target or of the node's base weights;
// with a skin cluster it moves a map to or from one influence.
#include <maya/MArgList.h>
#include <maya/MDoubleArray.h>
#include <maya/MIntArray.h>
#include <maya/MPxCommand.h>
#include <maya/MStatus.h>
#include <maya/MString.h>
#include <maya/MSyntax.h>

extern const char* const blendShapeEditWeights_helpText;

class blendShapeEditWeights : public MPxCommand {
public:
    blendShapeEditWeights();

    static void* creator();
    static MSyntax newSyntax();

    MStatus doIt(const MArgList& args) override;
    MStatus redoIt() override;
    MStatus undoIt() override;
    bool isUndoable() const override { return true; }

private:
    bool addMode;              // -addWeights
    bool deleteMode;           // -delete
    bool exportMode;           // -export
    bool flipMode;             // -flip
    float flushValue;          // -flush
    bool freezeMode;           // -freeze
    bool freezePaintMode;      // -freezePaint
    bool getIndicesMode;       // -getIndices
    bool getWeightsMode;       // -getWeights
    bool importMode;           // -import
    bool invertMode;           // -invert
    bool mirrorMode;           // -mirror
    bool setWeightsMode;       // -setWeights
    MString skinClusterName;   // -skinCluster
    bool subtractMode;         // -subtract
    bool trimMode;             // -trim
    bool allValues;            // -allValues
    MString axis;              // -axis
    bool direction;            // -direction
    MString fileName;          // -fileName
    int targetIndex;           // -index
    int influenceIndex;        // -influenceIndex
    MString orderMeshName;     // -orderBased
    MString originalMeshName;  // -originalMesh
    MString skinMeshName;      // -skinMesh
    int targetItem;            // -targetItem
    float tolerance;           // -tolerance
    MDoubleArray weightList;   // -weight
    MIntArray weightIndexList; // -weightIndex
};
