#include "editRegionMap.h"

#include "commandSupport.h"
#include "common.h"
#include "core/json/RegionFile.h"
#include "core/json/TextFile.h"
#include "core/json/WeightsFile.h"
#include "core/regions/RegionColors.h"
#include "core/regions/RegionEdits.h"

#include <maya/MColor.h>
#include <maya/MColorArray.h>
#include <maya/MFnDependencyNode.h>
#include <maya/MFnDoubleArrayData.h>
#include <maya/MFnMesh.h>
#include <maya/MFnSingleIndexedComponent.h>
#include <maya/MGlobal.h>
#include <maya/MItMeshVertex.h>
#include <maya/MObject.h>
#include <maya/MSelectionList.h>
#include <maya/MStringArray.h>

#include <algorithm>
#include <string>

const char* const editRegionMap_helpText =
    "\n"
    "Description: Edit the current region map.\n"
    "\n"
    "Flags: kv_editRegionMap\n"
    "    -h      -help               <n/a>      this message\n"
    "    -atm    -addToMap           <n/a>      add the current edits to the map\n"
    "    -ap     -append             <n/a>      append unassigned weights to the region\n"
    "    -cl     -clear              <n/a>      clear the indexed region\n"
    "    -col    -color              <int>      display as black and white (0), colored (1) or colorRamp (2) "
    "vertex colors\n"
    "    -dw     -distributeWeight   <int>      distribute remaining weight to influencing regions\n"
    "    -e      -edit               <n/a>      load the indexed region for editing\n"
    "    -ex     -export             <n/a>      export weights to a file\n"
    "    -fn     -fileName           <string>   file name for export/import\n"
    "    -im     -import             <n/a>      import weights from a file\n"
    "    -i      -index              <int>      index of the current region\n"
    "    -m      -mesh               <string>   mesh shape (needed for clear, import and color)\n"
    "    -res    -restore            <int>      stores the current region data (0) or restores the previous "
    "data (1)\n"
    "Usage: Execute the command with the following arguments:\n"
    "Execute: kv_editRegionMap\n"
    "Return Value: int\n";

namespace {

// "<node>.<attribute><k>" as a plug; a null plug when the name resolves to none.
MPlug plugByName(const MString& name) {
    MSelectionList list;
    MPlug plug;
    if (list.add(name)) list.getPlug(0, plug);
    return plug;
}

MString numbered(const MString& node, const char* attribute, int k) {
    MString name = node + "." + attribute;
    name += k;
    return name;
}

std::vector<int> toVector(const MIntArray& values) {
    std::vector<int> out(values.length());
    if (!out.empty()) values.get(out.data());
    return out;
}

// Runs a command the way the region operations do: not echoed, not recorded for undo.
MStatus run(const MString& command) {
    return MGlobal::executeCommand(command, false, false);
}

} // namespace

editRegionMap::editRegionMap()
    : addToMap(false), append(false), clear(false), color(false), colorMode(0), distributeWeight(true),
      edit(false), exportMode(false), importMode(false), indexSet(false), index(0), restore(false),
      restoreMode(0), vertexCount(0), locks{} {}

void* editRegionMap::creator() {
    return new editRegionMap();
}

MSyntax editRegionMap::newSyntax() {
    MSyntax syntax;
    syntax.addFlag("-h", "-help");
    syntax.addFlag("-atm", "-addToMap");
    syntax.addFlag("-ap", "-append");
    syntax.addFlag("-cl", "-clear");
    syntax.addFlag("-col", "-color", MSyntax::kLong);
    syntax.addFlag("-dw", "-distributeWeight", MSyntax::kLong);
    syntax.addFlag("-e", "-edit");
    syntax.addFlag("-ex", "-export");
    syntax.addFlag("-fn", "-fileName", MSyntax::kString);
    syntax.addFlag("-im", "-import");
    syntax.addFlag("-i", "-index", MSyntax::kLong);
    syntax.addFlag("-m", "-mesh", MSyntax::kString);
    syntax.addFlag("-res", "-restore", MSyntax::kLong);
    syntax.setObjectType(MSyntax::kSelectionList, 0);
    syntax.useSelectionAsDefault(true);
    return syntax;
}

MStatus editRegionMap::doIt(const MArgList& args) {
    MStatus status;
    MArgDatabase argData(syntax(), args, &status);
    if (!status) return status;
    if (common::answerHelp(argData, editRegionMap_helpText)) return MS::kSuccess;
    status = parseArguments(argData);
    if (!status) return status;

    MSelectionList objects;
    status = argData.getObjects(objects);
    if (!status) {
        MGlobal::displayError("Error getting objects");
        setResult(0);
        return status;
    }
    if (objects.length() == 0) {
        MGlobal::displayError("No region node provided.");
        setResult(0);
        return MS::kFailure;
    }
    MObject node;
    objects.getDependNode(0, node);
    if (!findRegionNode(node) || ((clear || importMode || color || append) && !findMesh())) {
        setResult(0);
        return MS::kSuccess;
    }
    return redoIt();
}

MStatus editRegionMap::parseArguments(const MArgDatabase& argData) {
    addToMap = argData.isFlagSet("-atm");
    append = argData.isFlagSet("-ap");
    clear = argData.isFlagSet("-cl");
    color = argData.isFlagSet("-col");
    edit = argData.isFlagSet("-e");
    exportMode = argData.isFlagSet("-ex");
    importMode = argData.isFlagSet("-im");
    indexSet = argData.isFlagSet("-i");
    restore = argData.isFlagSet("-res");

    MStatus status;
    if (color && !(status = argData.getFlagArgument("-col", 0, colorMode))) return status;
    if (argData.isFlagSet("-dw")) {
        int distribute = 1;
        if (!(status = argData.getFlagArgument("-dw", 0, distribute))) return status;
        distributeWeight = distribute != 0;
    }
    if (argData.isFlagSet("-fn") && !(status = argData.getFlagArgument("-fn", 0, fileName))) return status;
    if (indexSet && !(status = argData.getFlagArgument("-i", 0, index))) return status;
    if (argData.isFlagSet("-m") && !(status = argData.getFlagArgument("-m", 0, meshName))) return status;
    if (restore && !(status = argData.getFlagArgument("-res", 0, restoreMode))) return status;
    return MS::kSuccess;
}

// The region node must get its TALVENRegion connection from the blend shape it serves; its region
// plugs and locks are resolved by name.
bool editRegionMap::findRegionNode(const MObject& node) {
    MStatus status;
    const MFnDependencyNode region(node, &status);
    MPlug source;
    if (status) {
        regionNodeName = region.name();
        const MPlug link = region.findPlug("TALVENRegion", false, &status);
        if (status) source = link.source();
    }
    if (source.isNull()) {
        MGlobal::displayError("The region data node is not connected to a blend shape node.");
        return false;
    }
    baseWeightsPlug = common::weightsPlug(source.node(), -1);
    for (int k = 0; k < core::kRegionCount; ++k)
        regionPlugs[k] = plugByName(numbered(regionNodeName, "regionWeights", k));
    for (int k = 0; k < core::kRegionCount; ++k) {
        MString name = regionNodeName + ".regionLock[";
        name += k;
        const MPlug lock = plugByName(name + "]");
        bool locked = false;
        if (!lock.isNull()) lock.getValue(locked);
        locks[k] = locked ? 1 : 0;
    }
    return true;
}

// The -mesh flag must name a mesh shape.
bool editRegionMap::findMesh() {
    if (meshName.length() == 0) {
        MGlobal::displayError("The mesh is not defined.");
        return false;
    }
    MSelectionList list;
    list.add(meshName);
    MObject mesh;
    if (list.length() == 0 || !list.getDependNode(0, mesh) || !mesh.hasFn(MFn::kMesh) ||
        !list.getDagPath(0, meshPath)) {
        MStringArray names;
        if (list.length()) list.getSelectionStrings(0, names);
        MGlobal::displayError((names.length() ? names[0] : meshName) + " is not a mesh object.");
        return false;
    }
    if (clear || importMode) vertexCount = static_cast<unsigned int>(MFnMesh(meshPath).numVertices());
    return true;
}

// One operation per call, the first of: import, export, addToMap, append, edit, clear, restore, color.
MStatus editRegionMap::redoIt() {
    bool done = false;
    if (importMode)
        done = importRegions();
    else if (exportMode)
        done = exportRegions();
    else if (addToMap)
        done = addToRegionMap() == MS::kSuccess;
    else if (append)
        done = appendWeights() == MS::kSuccess;
    else if (edit)
        done = editRegion() == MS::kSuccess;
    else if (clear)
        done = clearRegion() == MS::kSuccess;
    else if (restore)
        done = restoreRegions();
    else if (color)
        done = colorRegions() == MS::kSuccess;
    setResult(done ? 1 : 0);
    return MS::kSuccess;
}

MStatus editRegionMap::undoIt() {
    return MS::kSuccess;
}

bool editRegionMap::fileTypeIsJSON(const MString& fileName) {
    return json::fileTypeIsJSON(fileName.asChar());
}

MStatus editRegionMap::getRegionData(core::RegionMap& map) {
    for (int k = 0; k < core::kRegionCount; ++k) {
        std::vector<double>& weights = map.regions[k];
        weights.clear();
        if (regionPlugs[k].isNull()) return MS::kFailure;
        // An attribute that holds no data yet is an empty region.
        MStatus status;
        const MObject data = regionPlugs[k].asMObject(&status);
        if (!status || data.isNull()) continue;
        MFnDoubleArrayData array(data, &status);
        if (!status) continue;
        const MDoubleArray values = array.array();
        weights.resize(values.length());
        if (!weights.empty()) values.get(weights.data());
    }
    map.matchLengths();
    return MS::kSuccess;
}

MStatus editRegionMap::setRegionData(int region, const std::vector<double>& weights) {
    MStatus status;
    const MDoubleArray values(weights.data(), static_cast<unsigned int>(weights.size()));
    MFnDoubleArrayData array;
    const MObject data = array.create(values, &status);
    if (!status) return status;
    return regionPlugs[region].setValue(data);
}

MIntArray editRegionMap::getWeightIndices() {
    MIntArray indices;
    baseWeightsPlug.getExistingArrayAttributeIndices(indices);
    return indices;
}

void editRegionMap::getWeights(MIntArray& indices, MDoubleArray& weights) {
    common::getArrayWeights(baseWeightsPlug, indices, weights);
}

bool editRegionMap::exportRegions() {
    core::RegionMap map;
    if (!getRegionData(map)) return false;
    const bool asJson = fileTypeIsJSON(fileName);
    std::string text;
    if (indexSet) {
        text = json::formatRegion(core::isRegionIndex(index) ? map.regions[index] : std::vector<double>(),
                                  asJson);
    } else {
        MString settings;
        MGlobal::executeCommand("getAttr " + regionNodeName + ".regions", settings, false, false);
        text = json::formatRegionMap(map, settings.asChar(), asJson);
    }
    if (!json::writeWholeFile(fileName.asChar(), text)) {
        MGlobal::displayError("Unable to open file for writing");
        return false;
    }
    return true;
}

bool editRegionMap::importRegions() {
    core::RegionMap map;
    std::string settings;
    if (!json::readRegionFile(fileName.asChar(), fileTypeIsJSON(fileName), map, settings)) {
        MGlobal::displayError("Unable to open file for reading");
        return false;
    }
    // A short row leaves the later regions short; such a file is refused like one of the wrong length.
    bool fits = true;
    for (const std::vector<double>& weights : map.regions) fits = fits && weights.size() == vertexCount;
    if (!fits) {
        MGlobal::displayError(
            "The stored vertex count doesn't match the resolution of the currently loaded mesh");
        return false;
    }
    for (const MPlug& plug : regionPlugs)
        if (plug.isNull()) return false;
    // The settings go into the command unescaped: a quote in them makes the command fail, and then
    // nothing is changed.
    if (!run("setAttr " + regionNodeName + ".regions -type \"string\" \"" + MString(settings.c_str()) + "\""))
        return false;
    for (int k = 0; k < core::kRegionCount; ++k)
        if (!setRegionData(k, map.regions[k])) return false;
    return true;
}

MStatus editRegionMap::editRegion() {
    core::RegionMap map;
    MStatus status = getRegionData(map);
    if (!status) return status;
    if (!core::isRegionIndex(index)) return MS::kSuccess; // no such region: nothing to load
    if (baseWeightsPlug.isNull()) return MS::kFailure;
    const std::vector<double>& weights = map.regions[index];
    for (unsigned int v = 0; v < weights.size(); ++v) {
        status = baseWeightsPlug.elementByLogicalIndex(v).setDouble(weights[v]);
        if (!status) return status;
    }
    return MS::kSuccess;
}

MStatus editRegionMap::addToRegionMap() {
    // Only a region of the map can take painted weights; any other index changes nothing.
    if (!core::isRegionIndex(index) || baseWeightsPlug.isNull()) return MS::kFailure;
    MIntArray indices;
    MDoubleArray weights;
    getWeights(indices, weights);
    core::RegionMap map;
    MStatus status = getRegionData(map);
    if (!status) return status;
    std::vector<double> painted(weights.length());
    if (!painted.empty()) weights.get(painted.data());
    core::addPaintedWeights(map, locks, index, toVector(indices), painted, distributeWeight);
    for (int k = 0; k < core::kRegionCount; ++k)
        if (!(status = setRegionData(k, map.regions[k]))) return status;
    return MS::kSuccess;
}

// Fills the selected vertices of the first selection item: into region `index`, or with -1 after
// the mix of their edge neighbours.
MStatus editRegionMap::appendWeights() {
    if (index != -1 && !core::isRegionIndex(index)) return MS::kFailure;
    std::vector<int> vertices;
    MSelectionList selection;
    MGlobal::getActiveSelectionList(selection);
    MDagPath path;
    MObject component;
    if (selection.length() && selection.getDagPath(0, path, component) && !component.isNull() &&
        component.hasFn(MFn::kMeshVertComponent)) {
        MIntArray selected;
        MFnSingleIndexedComponent(component).getElements(selected);
        vertices = toVector(selected);
        std::sort(vertices.begin(), vertices.end());
        vertices.erase(std::unique(vertices.begin(), vertices.end()), vertices.end());
    }
    core::RegionMap map;
    MStatus status = getRegionData(map);
    if (!status) return status;

    core::NeighbourLists neighbours;
    if (index == -1) {
        MItMeshVertex iterator(meshPath, MObject::kNullObj, &status);
        if (!status) return status;
        MIntArray connected;
        int previous = 0;
        for (const int v : vertices) {
            if (v >= 0 && static_cast<std::size_t>(v) < map.vertexCount() && iterator.setIndex(v, previous) &&
                iterator.getConnectedVertices(connected)) {
                for (unsigned int j = 0; j < connected.length(); ++j)
                    neighbours.indices.push_back(connected[j]);
            }
            neighbours.offsets.push_back(static_cast<int>(neighbours.indices.size()));
        }
    }
    core::appendUnassigned(map, locks, index, vertices, neighbours);
    for (int k = 0; k < core::kRegionCount; ++k) {
        if (index != -1 && k != index) continue;
        if (!(status = setRegionData(k, map.regions[k]))) return status;
    }
    return MS::kSuccess;
}

MStatus editRegionMap::clearRegion() {
    if (!core::isRegionIndex(index) || regionPlugs[index].isNull()) return MS::kFailure;
    return setRegionData(index, std::vector<double>(vertexCount, 0.0));
}

// Store (0) copies every region into its buffer through a connection that is removed again;
// restore (anything else) copies the buffers back the same way and then empties them.
bool editRegionMap::restoreRegions() {
    const bool store = restoreMode == 0;
    for (int k = 0; k < core::kRegionCount; ++k) {
        const MString weights = numbered(regionNodeName, "regionWeights", k);
        const MString buffer = numbered(regionNodeName, "regionWeightsBuffer", k);
        const MString plugs = store ? weights + " " + buffer : buffer + " " + weights;
        if (!run("connectAttr -f " + plugs) || !run("disconnectAttr " + plugs)) return false;
    }
    if (store) return true;
    for (int k = 0; k < core::kRegionCount; ++k) {
        MPlug buffer = plugByName(numbered(regionNodeName, "regionWeightsBuffer", k));
        if (buffer.isNull() || !buffer.setValue(MObject::kNullObj)) return false;
    }
    return true;
}

MStatus editRegionMap::colorRegions() {
    core::RegionMap map;
    MStatus status = getRegionData(map);
    if (!status) return status;
    const core::RegionColors shades = core::regionColors(map, locks, colorMode);
    MFnMesh mesh(meshPath, &status);
    if (!status) return status;
    // No colour set is created: a mesh without one shows nothing.
    if (mesh.numColorSets() == 0) return MS::kSuccess;
    const unsigned int count = static_cast<unsigned int>(map.vertexCount());
    MColorArray colors;
    MIntArray vertices;
    colors.setLength(count);
    vertices.setLength(count);
    for (unsigned int v = 0; v < count; ++v) {
        colors[v] = MColor(shades.rgb[v * 3], shades.rgb[v * 3 + 1], shades.rgb[v * 3 + 2], 1.0f);
        vertices[v] = static_cast<int>(v);
    }
    if (!(status = mesh.setVertexColors(colors, vertices))) return status;
    if (colorMode != 1) {
        MString report("Partial weights found: ");
        report += static_cast<int>(shades.partial);
        MGlobal::displayInfo(report);
    }
    return MS::kSuccess;
}
