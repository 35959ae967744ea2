#pragma once
// Reads and edits the per-vertex weight map of a blend shape target or of the node's base weights;
// with a skin cluster it moves a map to or from one influence.
#include "core/weights/WeightMap.h"

#include <maya/MArgDatabase.h>
#include <maya/MArgList.h>
#include <maya/MColorArray.h>
#include <maya/MDagPath.h>
#include <maya/MDoubleArray.h>
#include <maya/MFloatPointArray.h>
#include <maya/MIntArray.h>
#include <maya/MObject.h>
#include <maya/MPlug.h>
#include <maya/MPointArray.h>
#include <maya/MPxCommand.h>
#include <maya/MStatus.h>
#include <maya/MString.h>
#include <maya/MSyntax.h>

#include <vector>

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

    // True when the file name's last four characters are "json"; the plain layout otherwise.
    static bool fileTypeIsJSON(const MString& fileName);

private:
    // The mode that ran last, which decides what undo restores.
    enum class Mode {
        none,
        getIndices,
        getWeights,
        setWeights,
        invert,
        mirror,
        flip,
        trim,
        freeze,
        flush,
        remove,
        exportMap,
        importMap,
        combine
    };

    MStatus parseArguments(const MArgDatabase& argData);
    bool checkMeshes();
    Mode selectedMode() const;

    // The weight map: existing indices ascending, the value of each.
    MIntArray getWeightIndices();
    void getWeights(MIntArray& indices, MDoubleArray& weights);
    core::WeightMap readMap();
    core::WeightMap readAndSaveMap();
    void clearMap();
    void writeElements(const core::WeightMap& elements);
    // Clears the map and writes the pairs, leaving 1.0 unset (except for base weights); an all-ones
    // map is stored empty. Nothing happens for no pairs.
    void setWeights(const std::vector<int>& indices, const std::vector<double>& weights);
    void restoreSavedWeights();
    std::vector<float> axisCoordinates() const;
    void warnDropped(const core::DroppedPairs& dropped) const;

    bool invertWeights();
    bool mirrorWeights();
    bool trimWeights();
    bool freezeWeights();
    void flushWeights();
    bool exportWeights(const core::WeightMap& pairs);
    bool exportMap();
    bool readWeights(core::WeightMap& pairs);
    bool readUsableWeights(core::WeightMap& pairs);
    bool importWeights();
    bool combineWeights();
    bool skinClusterExport();
    bool skinClusterImport();
    bool checkInfluenceIndex(unsigned int influences) const;
    bool readSkinWeights(const MObject& component, MDoubleArray& weights, unsigned int& influences);
    bool writeSkinWeights(const MObject& component, unsigned int influences, MDoubleArray& weights,
                          MDoubleArray* oldValues);

    bool addMode;              // -addWeights
    bool deleteMode;           // -delete
    bool exportMode;           // -export
    bool flipMode;             // -flip
    float flushValue;          // -flush
    bool flushValueSet;        // -flush given
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
    bool orderBased;           // -orderBased given

    MObject blendShapeNode;
    MString blendShapeName;
    MDagPath originalMesh;
    MDagPath orderMesh;
    MObject skinClusterNode;
    bool useSculptTool;
    unsigned int vertexCount;
    MFloatPointArray meshPoints;
    MPlug weightsPlug;
    MPlug freezePlug;

    Mode ranMode;
    MIntArray undoIndices;
    MDoubleArray undoWeights;
    MColorArray undoColors;
    MIntArray undoComponents; // freeze: the last item's component list and deltas
    MPointArray undoPoints;
    MObject undoSkinComponent; // export to a skin cluster: the vertices overwritten and their old weights
    MDoubleArray undoSkinWeights;
    unsigned int undoSkinInfluences;
};
