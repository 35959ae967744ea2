#include "blendShapeEditWeights.h"

#include "commandSupport.h"
#include "common.h"
#include "core/json/WeightsFile.h"
#include "core/weights/WeightEdits.h"
#include "mirrorMatching.h"
#include "targetCommandChecks.h"
#include "vertexOrderMap.h"

#include <maya/MArgDatabase.h>
#include <maya/MColor.h>
#include <maya/MDagPathArray.h>
#include <maya/MFnDependencyNode.h>
#include <maya/MFnMesh.h>
#include <maya/MFnSingleIndexedComponent.h>
#include <maya/MFnSkinCluster.h>
#include <maya/MGlobal.h>
#include <maya/MPoint.h>
#include <maya/MSelectionList.h>
#include <maya/MStringArray.h>

#include <numeric>
#include <string>

const char* const blendShapeEditWeights_helpText =
    "\n"
    "Description: Edit blend shape weights.\n"
    "\n"
    "Flags: kv_blendShapeEditWeights\n"
    "    -h      -help               <n/a>      this message\n"
    "    modes:\n"
    "    -add    -add                <n/a>      add weights from a file\n"
    "    -del    -delete             <n/a>      delete weights\n"
    "    -ex     -export             <n/a>      export weights to a file\n"
    "    -flp    -flip               <n/a>      flip weights\n"
    "    -fl     -flush              <double>   flush weights with value (1 clears all weights)\n"
    "    -f      -freeze             <n/a>      freeze weights\n"
    "    -fp     -freezePaint        <n/a>      freeze paint\n"
    "    -gi     -getIndices         <n/a>      get weights indices\n"
    "    -gw     -getWeights         <n/a>      get weights\n"
    "    -im     -import             <n/a>      import weights from a file\n"
    "    -iv     -invert             <n/a>      invert weights\n"
    "    -m      -mirror             <n/a>      mirror weights\n"
    "    -sw     -setWeights         <n/a>      set weights\n"
    "    -sc     -skinCluster        <string>   name of the skin cluster\n"
    "    -sub    -subtract           <n/a>      subtract weights from a file\n"
    "    -t      -trim               <n/a>      trim weights\n"
    "    options:\n"
    "    -av     -allValues          <n/a>      keep all values (invert mode)\n"
    "    -ax     -axis               <string>   symmetry axis (optional, default: x)\n"
    "    -dir    -direction          <int>      direction (optional, default: 1; positive to negative)\n"
    "    -fn     -fileName           <string>   file name for export/import\n"
    "    -i      -index              <int>      index of the source target channel\n"
    "    -ii     -influenceIndex     <int>      skin cluster influence index\n"
    "    -ob     -orderBased         <string>   use the vertex order from the given mesh\n"
    "    -om     -originalMesh       <string>   original shape node\n"
    "    -sm     -skinMesh           <string>   shape node with skin cluster\n"
    "    -ti     -targetItem         <int>      target item value\n"
    "    -tol    -tolerance          <double>   tolerance value (optional, default: 0.001)\n"
    "    -w      -weight             <double>   weight value (multi use)\n"
    "    -wi     -weightIndex        <int>      index of the weight (multi use)\n"
    "Usage: Execute the command with the following arguments:\n"
    "Execute: kv_blendShapeEditWeights\n"
    "Return Value: int/intArray/floatArray (depending on the mode)\n";

namespace {

// 0, 1, ..., count - 1.
std::vector<int> vertexRange(unsigned int count) {
    std::vector<int> vertices(count);
    std::iota(vertices.begin(), vertices.end(), 0);
    return vertices;
}

// A vertex component holding the given vertices.
MObject vertexComponent(MIntArray& vertices) {
    MFnSingleIndexedComponent component;
    MObject object = component.create(MFn::kMeshVertComponent);
    component.addElements(vertices);
    return object;
}

MIntArray allVertices(unsigned int count) {
    const std::vector<int> vertices = vertexRange(count);
    return MIntArray(vertices.data(), count);
}

} // namespace

blendShapeEditWeights::blendShapeEditWeights()
    : addMode(false), deleteMode(false), exportMode(false), flipMode(false), flushValue(0.0f),
      flushValueSet(false), freezeMode(false), freezePaintMode(false), getIndicesMode(false),
      getWeightsMode(false), importMode(false), invertMode(false), mirrorMode(false), setWeightsMode(false),
      subtractMode(false), trimMode(false), allValues(false), axis("x"), direction(true), targetIndex(0),
      influenceIndex(0), targetItem(6000), tolerance(0.001f), orderBased(false), useSculptTool(false),
      vertexCount(0), ranMode(Mode::none), undoSkinInfluences(0) {}

void* blendShapeEditWeights::creator() {
    return new blendShapeEditWeights();
}

MSyntax blendShapeEditWeights::newSyntax() {
    MSyntax syntax;
    syntax.addFlag("-h", "-help");
    syntax.addFlag("-aw", "-addWeights");
    syntax.addFlag("-del", "-delete");
    syntax.addFlag("-ex", "-export");
    syntax.addFlag("-flp", "-flip");
    syntax.addFlag("-fl", "-flush", MSyntax::kDouble);
    syntax.addFlag("-f", "-freeze");
    syntax.addFlag("-fp", "-freezePaint");
    syntax.addFlag("-gi", "-getIndices");
    syntax.addFlag("-gw", "-getWeights");
    syntax.addFlag("-im", "-import");
    syntax.addFlag("-iv", "-invert");
    syntax.addFlag("-m", "-mirror");
    syntax.addFlag("-sw", "-setWeights");
    syntax.addFlag("-sc", "-skinCluster", MSyntax::kString);
    syntax.addFlag("-sub", "-subtract");
    syntax.addFlag("-t", "-trim");
    syntax.addFlag("-av", "-allValues");
    syntax.addFlag("-ax", "-axis", MSyntax::kString);
    syntax.addFlag("-dir", "-direction", MSyntax::kBoolean);
    syntax.addFlag("-fn", "-fileName", MSyntax::kString);
    syntax.addFlag("-i", "-index", MSyntax::kLong);
    syntax.addFlag("-ii", "-influenceIndex", MSyntax::kLong);
    syntax.addFlag("-ob", "-orderBased", MSyntax::kString);
    syntax.addFlag("-om", "-originalMesh", MSyntax::kString);
    syntax.addFlag("-sm", "-skinMesh", MSyntax::kString);
    syntax.addFlag("-ti", "-targetItem", MSyntax::kLong);
    syntax.addFlag("-tol", "-tolerance", MSyntax::kDouble);
    syntax.addFlag("-w", "-weight", MSyntax::kDouble);
    syntax.makeFlagMultiUse("-weight");
    syntax.addFlag("-wi", "-weightIndex", MSyntax::kLong);
    syntax.makeFlagMultiUse("-weightIndex");
    syntax.setObjectType(MSyntax::kSelectionList, 0);
    syntax.useSelectionAsDefault(true);
    return syntax;
}

MStatus blendShapeEditWeights::doIt(const MArgList& args) {
    MStatus status;
    MArgDatabase argData(syntax(), args, &status);
    if (!status) return status;
    if (common::answerHelp(argData, blendShapeEditWeights_helpText)) return MS::kSuccess;

    status = parseArguments(argData);
    if (!status) return status;
    if (orderMeshName.length() == 0) orderMeshName = originalMeshName;

    MSelectionList objects;
    status = argData.getObjects(objects);
    if (!status) {
        MGlobal::displayError("Error getting objects");
        setResult(0);
        return status;
    }
    if (objects.length() == 0) {
        displayError("No blend shape node provided.");
        setResult(0);
        return MS::kFailure;
    }
    objects.getDependNode(0, blendShapeNode);
    if (!blendShapeNode.hasFn(MFn::kBlendShape)) {
        displayError("The node is not a blend shape node.");
        setResult(0);
        return MS::kFailure;
    }
    blendShapeName = MFnDependencyNode(blendShapeNode).name();

    if (skinClusterName.length() != 0) originalMeshName = skinMeshName;
    if (originalMeshName.length() == 0) {
        if (mirrorMode || trimMode || addMode || subtractMode || flushValueSet) {
            MGlobal::displayError("The original mesh is not defined.");
            setResult(0);
            return MS::kSuccess;
        }
    } else if (!checkMeshes()) {
        setResult(0);
        return MS::kSuccess;
    }

    if (axis != "x" && axis != "y" && axis != "z") {
        MGlobal::displayError("The axis string is not correcty defined. Use x, y, or z.");
        setResult(0);
        return MS::kSuccess;
    }

    weightsPlug = common::weightsPlug(blendShapeNode, targetIndex);
    if (weightsPlug.isNull()) {
        MString message("No weight map has the index ");
        message += targetIndex;
        MGlobal::displayError(message + "; use -1 for the base weights or a target index.");
        setResult(0);
        return MS::kSuccess;
    }
    freezePlug = MFnDependencyNode(blendShapeNode).findPlug("freeze", false, &status);
    if (skinClusterName.length() != 0) {
        MSelectionList list;
        list.add(skinClusterName);
        list.getDependNode(0, skinClusterNode);
        if (!skinClusterNode.hasFn(MFn::kSkinClusterFilter)) {
            MGlobal::displayError(skinClusterName + " is not a skin cluster.");
            setResult(0);
            return MS::kSuccess;
        }
    }

    meshPoints.clear();
    if (originalMesh.isValid()) MFnMesh(originalMesh).getPoints(meshPoints, MSpace::kObject);
    vertexCount = meshPoints.length();
    useSculptTool = MGlobal::optionVarIntValue("TALVENUseMayaSculptTool") != 0;
    return redoIt();
}

MStatus blendShapeEditWeights::parseArguments(const MArgDatabase& argData) {
    addMode = argData.isFlagSet("-aw");
    deleteMode = argData.isFlagSet("-del");
    exportMode = argData.isFlagSet("-ex");
    flipMode = argData.isFlagSet("-flp");
    flushValueSet = argData.isFlagSet("-fl");
    freezeMode = argData.isFlagSet("-f");
    freezePaintMode = argData.isFlagSet("-fp");
    getIndicesMode = argData.isFlagSet("-gi");
    getWeightsMode = argData.isFlagSet("-gw");
    importMode = argData.isFlagSet("-im");
    invertMode = argData.isFlagSet("-iv");
    mirrorMode = argData.isFlagSet("-m");
    setWeightsMode = argData.isFlagSet("-sw");
    subtractMode = argData.isFlagSet("-sub");
    trimMode = argData.isFlagSet("-t");
    allValues = argData.isFlagSet("-av");
    orderBased = argData.isFlagSet("-ob");

    MStatus status;
    double value = 0.0;
    if (flushValueSet) {
        status = argData.getFlagArgument("-fl", 0, value);
        if (!status) return status;
        flushValue = static_cast<float>(value);
    }
    if (argData.isFlagSet("-tol")) {
        status = argData.getFlagArgument("-tol", 0, value);
        if (!status) return status;
        tolerance = static_cast<float>(value);
    }
    if (argData.isFlagSet("-sc") && !(status = argData.getFlagArgument("-sc", 0, skinClusterName)))
        return status;
    if (argData.isFlagSet("-ax") && !(status = argData.getFlagArgument("-ax", 0, axis))) return status;
    if (argData.isFlagSet("-dir") && !(status = argData.getFlagArgument("-dir", 0, direction))) return status;
    if (argData.isFlagSet("-fn") && !(status = argData.getFlagArgument("-fn", 0, fileName))) return status;
    if (argData.isFlagSet("-i") && !(status = argData.getFlagArgument("-i", 0, targetIndex))) return status;
    if (argData.isFlagSet("-ii") && !(status = argData.getFlagArgument("-ii", 0, influenceIndex)))
        return status;
    if (orderBased && !(status = argData.getFlagArgument("-ob", 0, orderMeshName))) return status;
    if (argData.isFlagSet("-om") && !(status = argData.getFlagArgument("-om", 0, originalMeshName)))
        return status;
    if (argData.isFlagSet("-sm") && !(status = argData.getFlagArgument("-sm", 0, skinMeshName)))
        return status;
    if (argData.isFlagSet("-ti") && !(status = argData.getFlagArgument("-ti", 0, targetItem))) return status;

    MArgList use;
    const unsigned int indexUses = argData.numberOfFlagUses("-wi");
    for (unsigned int i = 0; i < indexUses; ++i) {
        if (!(status = argData.getFlagArgumentList("-wi", i, use))) return status;
        weightIndexList.append(use.asInt(0));
    }
    const unsigned int weightUses = argData.numberOfFlagUses("-w");
    for (unsigned int i = 0; i < weightUses; ++i) {
        if (!(status = argData.getFlagArgumentList("-w", i, use))) return status;
        weightList.append(use.asDouble(0));
    }
    return MS::kSuccess;
}

// The original mesh (and a separate order mesh) must name mesh shapes or transforms of one.
bool blendShapeEditWeights::checkMeshes() {
    const bool separateOrderMesh = orderBased && orderMeshName != originalMeshName;
    MSelectionList list;
    const unsigned int names = separateOrderMesh ? 2u : 1u;
    for (unsigned int i = 0; i < names; ++i) {
        const MString& name = i == 0 ? originalMeshName : orderMeshName;
        if (!list.add(name)) {
            MGlobal::displayError(name + " does not exist.");
            return false;
        }
    }
    if (list.length() != names) return true;

    MDagPath meshes[2];
    for (unsigned int i = 0; i < list.length(); ++i)
        if (!common::meshShapeAt(list, i, meshes[i])) return false;
    originalMesh = meshes[0];
    orderMesh = separateOrderMesh ? meshes[1] : meshes[0];
    return true;
}

blendShapeEditWeights::Mode blendShapeEditWeights::selectedMode() const {
    if (getIndicesMode) return Mode::getIndices;
    if (getWeightsMode) return Mode::getWeights;
    if (setWeightsMode) return Mode::setWeights;
    if (invertMode) return Mode::invert;
    if (mirrorMode) return Mode::mirror;
    if (flipMode) return Mode::flip;
    if (trimMode) return Mode::trim;
    if (freezeMode) return Mode::freeze;
    if (flushValueSet) return Mode::flush;
    if (deleteMode) return Mode::remove;
    if (exportMode) return Mode::exportMap;
    if (importMode) return Mode::importMap;
    if (addMode || subtractMode) return Mode::combine;
    return Mode::none;
}

MStatus blendShapeEditWeights::redoIt() {
    ranMode = selectedMode();
    switch (ranMode) {
    case Mode::getIndices:
        setResult(getWeightIndices());
        break;
    case Mode::getWeights: {
        MIntArray indices;
        MDoubleArray weights;
        getWeights(indices, weights);
        setResult(weights);
        break;
    }
    case Mode::setWeights: {
        readAndSaveMap();
        core::WeightMap pairs{std::vector<int>(weightIndexList.length()),
                              std::vector<double>(weightList.length())};
        if (weightIndexList.length()) weightIndexList.get(pairs.indices.data());
        if (weightList.length()) weightList.get(pairs.weights.data());
        warnDropped(core::keepUsablePairs(pairs, vertexCount));
        setWeights(pairs.indices, pairs.weights);
        setResult(1);
        break;
    }
    case Mode::invert:
        setResult(invertWeights());
        break;
    case Mode::mirror:
    case Mode::flip:
        setResult(mirrorWeights());
        break;
    case Mode::trim:
        setResult(trimWeights());
        break;
    case Mode::freeze:
        setResult(freezeWeights());
        break;
    case Mode::flush:
        flushWeights();
        setResult(1);
        break;
    case Mode::remove:
        readAndSaveMap();
        clearMap();
        setResult(1);
        break;
    case Mode::exportMap:
        setResult(skinClusterName.length() ? skinClusterExport() : exportMap());
        break;
    case Mode::importMap:
        setResult(skinClusterName.length() ? skinClusterImport() : importWeights());
        break;
    case Mode::combine:
        setResult(combineWeights());
        break;
    case Mode::none:
        break;
    }
    return MS::kSuccess;
}

MStatus blendShapeEditWeights::undoIt() {
    switch (ranMode) {
    case Mode::setWeights:
    case Mode::invert:
    case Mode::mirror:
    case Mode::trim:
    case Mode::flush:
    case Mode::remove:
        restoreSavedWeights();
        break;
    case Mode::freeze: {
        restoreSavedWeights();
        // Nothing to put back when the freeze reached no item.
        if (undoComponents.length() == 0) break;
        if (!common::setTargetComponents(blendShapeNode, static_cast<unsigned int>(targetIndex),
                                         static_cast<unsigned int>(targetItem), undoComponents)) {
            MGlobal::displayError("Error setting components.");
            return MS::kFailure;
        }
        if (!common::setTargetPoints(blendShapeNode, static_cast<unsigned int>(targetIndex),
                                     static_cast<unsigned int>(targetItem), undoPoints)) {
            MGlobal::displayError("Error setting points.");
            return MS::kFailure;
        }
        break;
    }
    case Mode::importMap:
        if (skinClusterName.length()) {
            restoreSavedWeights();
        } else if (freezePaintMode && undoColors.length() && originalMesh.isValid()) {
            MIntArray vertices = allVertices(undoColors.length());
            MFnMesh(originalMesh).setVertexColors(undoColors, vertices);
        }
        break;
    case Mode::exportMap:
        if (skinClusterName.length() && !undoSkinComponent.isNull())
            writeSkinWeights(undoSkinComponent, undoSkinInfluences, undoSkinWeights, nullptr);
        break;
    default:
        break;
    }
    return MS::kSuccess;
}

bool blendShapeEditWeights::fileTypeIsJSON(const MString& fileName) {
    return json::fileTypeIsJSON(fileName.asChar());
}

MIntArray blendShapeEditWeights::getWeightIndices() {
    MIntArray indices;
    weightsPlug.getExistingArrayAttributeIndices(indices);
    return indices;
}

void blendShapeEditWeights::getWeights(MIntArray& indices, MDoubleArray& weights) {
    common::getArrayWeights(weightsPlug, indices, weights);
}

core::WeightMap blendShapeEditWeights::readMap() {
    MIntArray indices;
    MDoubleArray weights;
    getWeights(indices, weights);
    core::WeightMap map{std::vector<int>(indices.length()), std::vector<double>(weights.length())};
    if (indices.length()) indices.get(map.indices.data());
    if (weights.length()) weights.get(map.weights.data());
    return map;
}

core::WeightMap blendShapeEditWeights::readAndSaveMap() {
    core::WeightMap map = readMap();
    undoIndices = MIntArray(map.indices.data(), static_cast<unsigned int>(map.size()));
    undoWeights = MDoubleArray(map.weights.data(), static_cast<unsigned int>(map.size()));
    return map;
}

void blendShapeEditWeights::clearMap() {
    common::deleteWeights(weightsPlug);
}

void blendShapeEditWeights::writeElements(const core::WeightMap& elements) {
    for (std::size_t k = 0; k < elements.size(); ++k) {
        if (elements.indices[k] < 0) continue;
        weightsPlug.elementByLogicalIndex(static_cast<unsigned int>(elements.indices[k]))
            .setDouble(elements.weights[k]);
    }
}

void blendShapeEditWeights::setWeights(const std::vector<int>& indices, const std::vector<double>& weights) {
    if (indices.empty()) return;
    clearMap();
    writeElements(core::weightsToSet(indices, weights, targetIndex == -1));
}

void blendShapeEditWeights::restoreSavedWeights() {
    for (unsigned int k = 0; k < undoIndices.length() && k < undoWeights.length(); ++k) {
        if (undoIndices[k] < 0) continue;
        weightsPlug.elementByLogicalIndex(static_cast<unsigned int>(undoIndices[k]))
            .setDouble(undoWeights[k]);
    }
}

std::vector<float> blendShapeEditWeights::axisCoordinates() const {
    const unsigned int c = axis == "y" ? 1 : axis == "z" ? 2 : 0;
    std::vector<float> coordinates(meshPoints.length());
    for (unsigned int v = 0; v < meshPoints.length(); ++v) coordinates[v] = meshPoints[v][c];
    return coordinates;
}

void blendShapeEditWeights::warnDropped(const core::DroppedPairs& dropped) const {
    if (dropped.total() == 0) return;
    MString message("Skipped ");
    message += static_cast<unsigned int>(dropped.total());
    message += " weights:";
    const char* separator = " ";
    if (dropped.unpaired) {
        message += separator;
        message += static_cast<unsigned int>(dropped.unpaired);
        message += " without a matching index or value";
        separator = ", ";
    }
    if (dropped.outOfRange) {
        message += separator;
        message += static_cast<unsigned int>(dropped.outOfRange);
        message += " with a vertex index outside the mesh";
        if (vertexCount) {
            message += " (0 to ";
            message += vertexCount - 1;
            message += ")";
        }
        separator = ", ";
    }
    if (dropped.notFinite) {
        message += separator;
        message += static_cast<unsigned int>(dropped.notFinite);
        message += " whose weight is not a finite number";
    }
    MGlobal::displayWarning(message + ".");
}

bool blendShapeEditWeights::invertWeights() {
    const core::WeightMap map = readAndSaveMap();
    if (map.empty()) return false;
    clearMap();
    writeElements(core::invertedWeights(map, vertexCount, allValues));
    return true;
}

bool blendShapeEditWeights::mirrorWeights() {
    const core::WeightMap map = readAndSaveMap();
    if (map.empty()) return false;
    // Partners are placed by the original mesh's vertices: without it every weight would be dropped.
    if (!originalMesh.isValid()) {
        MGlobal::displayError("The original mesh is not defined.");
        return false;
    }
    const MIntArray sources(map.indices.data(), static_cast<unsigned int>(map.size()));
    MIntArray partners;
    if (orderBased) {
        MPlug orderMap;
        if (!orderMesh.isValid() || !common::findVertexOrderMap(orderMesh, orderMap)) {
            MGlobal::displayError(orderMeshName + " has no vertex order map.");
            return false;
        }
        const unsigned int mapLength = common::readVertexOrderMap(orderMap).length();
        if (mapLength != vertexCount) {
            MString message("The vertex order map of ");
            message += orderMeshName + " has ";
            message += mapLength;
            message += " entries for ";
            message += vertexCount;
            MGlobal::displayWarning(message + " vertices; vertices it does not cover are skipped.");
        }
        partners = common::getMirroredOrderedMeshIndices(orderMesh, sources);
    } else {
        partners = common::getMirroredMeshIndices(axis, originalMesh, sources, tolerance);
    }
    const MString countError = common::mirrorCountError(sources.length(), partners.length());
    if (countError.length()) {
        MGlobal::displayError(countError);
        return false;
    }

    clearMap();
    std::vector<int> partnerList(partners.length());
    if (partners.length()) partners.get(partnerList.data());
    const std::vector<float> coordinates = axisCoordinates();
    const core::MirroredWeights result = mirrorMode
                                             ? core::mirroredWeights(map, partnerList, coordinates, direction)
                                             : core::flippedWeights(map, partnerList, coordinates);
    writeElements(result.writes);
    if (result.skipped && orderBased) {
        MString message("Skipped ");
        message += static_cast<unsigned int>(result.skipped);
        MGlobal::displayInfo(message + " asymmetrical components.");
    }
    return true;
}

bool blendShapeEditWeights::trimWeights() {
    const core::WeightMap map = readAndSaveMap();
    if (map.empty()) return false;
    clearMap();
    writeElements(core::trimmedWeights(map, axisCoordinates(), tolerance, direction));
    return true;
}

bool blendShapeEditWeights::freezeWeights() {
    if (targetIndex < 0) {
        MGlobal::displayError("The base weights cannot be frozen; give the index of a target.");
        return false;
    }
    undoComponents.clear();
    undoPoints.clear();
    const core::WeightMap map = readAndSaveMap();
    if (map.empty()) return false;
    const unsigned int target = static_cast<unsigned int>(targetIndex);
    const MIntArray items = common::targetItems(blendShapeNode, target);
    for (unsigned int i = 0; i < items.length(); ++i) {
        const unsigned int item = static_cast<unsigned int>(items[i]);
        MIntArray components = common::getTargetComponents(blendShapeNode, target, item);
        if (components.length() == 0) {
            components = MIntArray(1, 0);
            if (!common::setTargetComponents(blendShapeNode, target, item, components)) {
                MGlobal::displayError("Error setting components for empty target.");
                return false;
            }
        }
        MPointArray points = common::getTargetPoints(blendShapeNode, target, item);
        if (points.length() == 0) {
            points.append(MPoint(0.0, 0.0, 0.0));
            if (!common::setTargetPoints(blendShapeNode, target, item, points)) {
                MGlobal::displayError("Error setting points for empty target.");
                return false;
            }
        }
        undoComponents = components;
        undoPoints = points;

        std::vector<int> componentList(components.length());
        components.get(componentList.data());
        const std::vector<int> positions = core::firstPositions(componentList, map.indices);
        for (std::size_t k = 0; k < positions.size(); ++k) {
            const int j = positions[k];
            if (j < 0 || static_cast<unsigned int>(j) >= points.length()) continue;
            MPoint& delta = points[static_cast<unsigned int>(j)];
            const double w = map.weights[k];
            delta = MPoint(delta.x * w, delta.y * w, delta.z * w, delta.w);
        }
        if (!common::setTargetComponents(blendShapeNode, target, item, components)) {
            MGlobal::displayError("Error setting components.");
            return false;
        }
        if (!common::setTargetPoints(blendShapeNode, target, item, points)) {
            MGlobal::displayError("Error setting points.");
            return false;
        }
    }
    clearMap();
    return true;
}

void blendShapeEditWeights::flushWeights() {
    readAndSaveMap();
    MSelectionList selection;
    MGlobal::getActiveSelectionList(selection);
    if (selection.length() == 0) return;
    MDagPath path;
    MObject component;
    selection.getDagPath(0, path, component);
    if (!component.isNull() && component.hasFn(MFn::kMeshVertComponent)) {
        MIntArray vertices;
        MFnSingleIndexedComponent(component).getElements(vertices);
        for (unsigned int k = 0; k < vertices.length(); ++k) {
            if (vertices[k] < 0) continue;
            weightsPlug.elementByLogicalIndex(static_cast<unsigned int>(vertices[k])).setFloat(flushValue);
        }
        return;
    }
    if (common::compareDouble(flushValue, 1.0) || flushValue <= -1.0f || vertexCount == 0) return;
    for (unsigned int v = 0; v < vertexCount; ++v) weightsPlug.elementByLogicalIndex(v).setFloat(flushValue);
}

bool blendShapeEditWeights::exportWeights(const core::WeightMap& pairs) {
    if (pairs.empty()) {
        MGlobal::displayError("No weights to export");
        return false;
    }
    if (!json::writeWeightsFile(fileName.asChar(), pairs.indices, pairs.weights, fileTypeIsJSON(fileName))) {
        MGlobal::displayError("Unable to open file for writing");
        return false;
    }
    return true;
}

bool blendShapeEditWeights::exportMap() {
    core::WeightMap pairs;
    if (!freezePaintMode) {
        pairs = readMap();
    } else if (useSculptTool) {
        if (freezePlug.isNull() || !freezePlug.isArray()) {
            MGlobal::displayError(blendShapeName + " has no freeze attribute.");
            return false;
        }
        MIntArray indices;
        freezePlug.getExistingArrayAttributeIndices(indices);
        for (unsigned int k = 0; k < indices.length(); ++k) {
            const double value = freezePlug.elementByPhysicalIndex(k).asDouble();
            if (common::roundDouble(value) > 0.0) pairs.append(indices[k], 1.0 - value);
        }
    } else {
        if (!originalMesh.isValid() || MFnMesh(originalMesh).numColorSets() == 0) {
            MGlobal::displayError("The original mesh has no colour set to export freeze paint from.");
            return false;
        }
        MColorArray colors;
        MFnMesh(originalMesh).getVertexColors(colors);
        for (unsigned int v = 0; v < colors.length(); ++v) {
            if (common::roundFloat(colors[v].b) > 0.0f) pairs.append(static_cast<int>(v), 1.0 - colors[v].b);
        }
    }
    return exportWeights(pairs);
}

bool blendShapeEditWeights::readWeights(core::WeightMap& pairs) {
    const std::string path = fileName.asChar();
    const bool read = fileTypeIsJSON(fileName) ? json::readFile(path, pairs.indices, pairs.weights)
                                               : json::readFileSimple(path, pairs.indices, pairs.weights);
    if (!read) MGlobal::displayError("Unable to open file for reading");
    return read;
}

// readWeights, keeping only pairs that can be written to this mesh.
bool blendShapeEditWeights::readUsableWeights(core::WeightMap& pairs) {
    core::WeightMap read;
    if (!readWeights(read)) return false;
    warnDropped(core::keepUsablePairs(read, vertexCount));
    pairs.indices.insert(pairs.indices.end(), read.indices.begin(), read.indices.end());
    pairs.weights.insert(pairs.weights.end(), read.weights.begin(), read.weights.end());
    return true;
}

bool blendShapeEditWeights::importWeights() {
    // The file is read twice into the same pairs; writing a pair twice leaves the same map.
    core::WeightMap pairs;
    const bool first = readUsableWeights(pairs);
    const bool second = readUsableWeights(pairs);
    if (!first || !second) return false;

    if (!freezePaintMode) {
        readAndSaveMap();
        setWeights(pairs.indices, pairs.weights);
        return true;
    }
    if (useSculptTool) {
        if (freezePlug.isNull() || !freezePlug.isArray()) {
            MGlobal::displayError(blendShapeName + " has no freeze attribute.");
            return false;
        }
        common::deleteWeights(freezePlug);
        for (std::size_t k = 0; k < pairs.size(); ++k)
            freezePlug.elementByLogicalIndex(static_cast<unsigned int>(pairs.indices[k]))
                .setDouble(1.0 - pairs.weights[k]);
        return true;
    }
    if (!originalMesh.isValid()) {
        MGlobal::displayError("The original mesh is not defined.");
        return false;
    }
    MFnMesh mesh(originalMesh);
    mesh.getVertexColors(undoColors);
    MColorArray colors(static_cast<unsigned int>(pairs.size()));
    MIntArray vertices(static_cast<unsigned int>(pairs.size()));
    for (unsigned int k = 0; k < vertices.length(); ++k) {
        const float f = static_cast<float>(1.0 - pairs.weights[k]);
        colors[k] = MColor(0.4f * f, 0.7f * f, f, 1.0f);
        vertices[k] = pairs.indices[k];
    }
    return static_cast<bool>(mesh.setVertexColors(colors, vertices));
}

bool blendShapeEditWeights::combineWeights() {
    core::WeightMap file;
    if (!readUsableWeights(file)) return false;
    const core::WeightMap current = readAndSaveMap();
    std::vector<double> result = core::combinedWeights(
        current, file, vertexCount, addMode ? core::Combine::add : core::Combine::subtract);
    setWeights(vertexRange(vertexCount), result);
    return true;
}

bool blendShapeEditWeights::readSkinWeights(const MObject& component, MDoubleArray& weights,
                                            unsigned int& influences) {
    return static_cast<bool>(
        MFnSkinCluster(skinClusterNode).getWeights(originalMesh, component, weights, influences));
}

bool blendShapeEditWeights::writeSkinWeights(const MObject& component, unsigned int influences,
                                             MDoubleArray& weights, MDoubleArray* oldValues) {
    MIntArray all(influences);
    for (unsigned int j = 0; j < influences; ++j) all[j] = static_cast<int>(j);
    return static_cast<bool>(
        MFnSkinCluster(skinClusterNode).setWeights(originalMesh, component, all, weights, true, oldValues));
}

bool blendShapeEditWeights::checkInfluenceIndex(unsigned int influences) const {
    if (influenceIndex >= 0 && static_cast<unsigned int>(influenceIndex) < influences) return true;
    MString message("The influence index ");
    message += influenceIndex;
    message += " is out of range: " + skinClusterName + " has ";
    message += influences;
    MGlobal::displayError(message + " influences.");
    return false;
}

bool blendShapeEditWeights::skinClusterExport() {
    core::WeightMap map = readMap();
    if (map.empty()) return false;
    MDagPathArray influencePaths;
    const unsigned int influences = MFnSkinCluster(skinClusterNode).influenceObjects(influencePaths);
    if (!checkInfluenceIndex(influences)) return false;
    const unsigned int j = static_cast<unsigned int>(influenceIndex);
    warnDropped(core::keepUsablePairs(map, vertexCount));
    if (map.empty()) return false;
    undoSkinComponent = MObject();
    undoSkinInfluences = influences;

    unsigned int count = influences;
    MDoubleArray weights;
    if (map.size() != vertexCount) {
        MIntArray vertices = allVertices(vertexCount);
        MObject everyVertex = vertexComponent(vertices);
        if (!readSkinWeights(everyVertex, weights, count)) return false;
        for (unsigned int v = 0; v < vertexCount; ++v) weights[v * influences + j] = 0.0;
        undoSkinWeights.clear();
        if (!writeSkinWeights(everyVertex, influences, weights, &undoSkinWeights)) return false;
        undoSkinComponent = everyVertex;
    }
    MIntArray vertices(map.indices.data(), static_cast<unsigned int>(map.size()));
    MObject mapVertices = vertexComponent(vertices);
    if (!readSkinWeights(mapVertices, weights, count)) return false;
    if (undoSkinComponent.isNull()) {
        undoSkinComponent = mapVertices;
        undoSkinWeights = weights;
    }
    for (unsigned int k = 0; k < map.size(); ++k) weights[k * influences + j] = map.weights[k];
    return writeSkinWeights(mapVertices, influences, weights, nullptr);
}

bool blendShapeEditWeights::skinClusterImport() {
    readAndSaveMap();
    MIntArray vertices = allVertices(vertexCount);
    MObject everyVertex = vertexComponent(vertices);
    MDoubleArray weights;
    unsigned int influences = 0;
    if (!readSkinWeights(everyVertex, weights, influences)) return false;
    if (!checkInfluenceIndex(influences)) return false;
    std::vector<double> values(vertexCount);
    for (unsigned int v = 0; v < vertexCount; ++v)
        values[v] = weights[v * influences + static_cast<unsigned int>(influenceIndex)];
    setWeights(vertexRange(vertexCount), values);
    return true;
}
