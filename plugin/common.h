#pragma once
// Access to the data of a blend shape deformer: targets, in-between items, point deltas and
// component lists, weight maps, and the vertex tweaks of a mesh. Commands never spell an
// attribute path of the deformer themselves; they ask for the plug here. Also the number helpers
// every command compares and rounds with.
//
// Addressing: geometry index 0 of inputTarget always; a target index is a logical index of
// inputTargetGroup (the same as the weight channel); an item index is a logical index of
// inputTargetItem (6000 is the full shape, in-betweens sit at weight * 1000 + 5000); a weight map
// index is -1 for the base weights and a target index otherwise.
#include <maya/MDoubleArray.h>
#include <maya/MIntArray.h>
#include <maya/MObject.h>
#include <maya/MPlug.h>
#include <maya/MPointArray.h>
#include <maya/MStatus.h>
#include <maya/MStringArray.h>

namespace common {

// x rounded to five decimals, halves away from zero.
float roundFloat(float x);
double roundDouble(double x);
// True when |a - b| < 0.00001 (strictly).
bool compareDouble(double a, double b);

// Vertex indices named by selection strings such as "mesh.vtx[3]" and "mesh.vtx[3:7]", in order,
// duplicates kept. Malformed strings are skipped (see core/common/ComponentList.h).
MIntArray flattenComponentList(const MStringArray& components);

// inputTarget[0].inputTargetGroup[targetIndex]; a null plug when the node has no inputTarget.
MPlug targetGroupPlug(const MObject& blendShape, unsigned int targetIndex);

// Existing item indices of the target in the host's order; empty when none or on failure.
MIntArray targetItems(const MObject& blendShape, unsigned int targetIndex);

// The inputPointsTarget / inputComponentsTarget plug of one item, resolved by name.
MStatus inputPointsTargetPlug(const MObject& blendShape, unsigned int targetIndex, unsigned int itemIndex,
                              MPlug& plug);
MStatus inputComponentsTargetPlug(const MObject& blendShape, unsigned int targetIndex, unsigned int itemIndex,
                                  MPlug& plug);

// The point deltas of one item; empty when the plug cannot be resolved or holds no data.
MPointArray getTargetPoints(const MObject& blendShape, unsigned int targetIndex, unsigned int itemIndex);
// Replaces the point deltas of one item. A failure to resolve the plug is returned unchanged.
MStatus setTargetPoints(const MObject& blendShape, unsigned int targetIndex, unsigned int itemIndex,
                        const MPointArray& points);

// The elements of every component of the plug's component list, in list order, duplicates kept.
MIntArray getComponents(const MPlug& plug);
// getComponents of one item's inputComponentsTarget; empty on failure.
MIntArray getTargetComponents(const MObject& blendShape, unsigned int targetIndex, unsigned int itemIndex);
// Writes one item's component list with a setAttr command (display and undo off), one vtx entry
// per index. A failure to resolve the plug is returned unchanged and nothing is run.
MStatus setTargetComponents(const MObject& blendShape, unsigned int targetIndex, unsigned int itemIndex,
                            const MIntArray& indices);

// inputTarget[0].baseWeights for -1, inputTarget[0].inputTargetGroup[index].targetWeights
// otherwise; a null plug for indices below -1, which name no map.
MPlug weightsPlug(const MObject& blendShape, int weightMapIndex);
// The existing element indices of a weight map and their values, in physical order.
void getArrayWeights(MPlug weights, MIntArray& indices, MDoubleArray& values);
// Clears every element of the weight map by setting it to empty double array data.
MStatus deleteWeights(MPlug weights);

// The mesh's "pnts" plug.
MPlug getTweakPointsPlug(const MObject& mesh, MStatus& status);
// One point per index, in order, read from pnts[index]. A negative index reads as a zero tweak.
MStatus getVertexTweaks(const MObject& mesh, const MIntArray& indices, MPointArray& points);
// Sets pnts[indices[k]] to points[k] for every k both arrays have; negative indices are skipped.
MStatus setVertexTweaks(const MObject& mesh, const MIntArray& indices, const MPointArray& points);

} // namespace common
