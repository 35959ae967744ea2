#include "polyMapVertexOrder.h"

#include "commandSupport.h"
#include "symmetrySupport.h"
#include "targetDeltas.h"
#include "vertexOrderMap.h"

#include "core/mesh/MeshTopology.h"
#include "core/symmetry/MeshShells.h"
#include "core/symmetry/OrderMapping.h"
#include "core/symmetry/ShellPairing.h"
#include "core/symmetry/TopologyQueries.h"

#include <maya/MArgDatabase.h>
#include <maya/MFn.h>
#include <maya/MFnMesh.h>
#include <maya/MFnSingleIndexedComponent.h>
#include <maya/MGlobal.h>
#include <maya/MSelectionList.h>

#include <array>
#include <functional>
#include <memory>
#include <string>
#include <vector>

const char* const polyMapVertexOrder_helpText =
    "\n"
    "Description: Creates a reversed vertex order and stores it on the given target mesh.\n"
    "\n"
    "Flags: kv_polyMapVertexOrder\n"
    "    -h      -help               <n/a>      this message\n"
    "    -atm    -addToMap           <n/a>      add to the map based on two selected edges\n"
    "    -a      -axis               <string>   symmetry axis\n"
    "    -ck     -check              <n/a>      check if all mapping indices are set; selects the symmetric "
    "components if vertices are selected\n"
    "    -ct     -copyTo             <string>   copy the vertex mapping to the given mesh\n"
    "    -sl     -select             <n/a>      select all found components\n"
    "    -sm     -selectMapped       <n/a>      select all mapped components\n"
    "    -su     -selectUnmapped     <n/a>      select all unmapped components\n"
    "    -tol    -tolerance          <float>    tolerance value (optional, default: 0.0001)\n"
    "    -v      -verbose            <int>      output info to the script editor (0: none, 1: simple, 2: "
    "full)\n"
    "Usage: Execute the command with the following arguments:\n"
    "Execute: kv_polyMapVertexOrder -a <string> -tol <float> polyName\n"
    "Return Value: int\n";

namespace {

unsigned int axisIndexOf(const MString& axis) {
    if (axis == "y") return 1;
    if (axis == "z") return 2;
    return 0;
}

// A symmetry edge the user selected: its vertices in the host's stored order and its two faces.
bool readUserEdge(const MFnMesh& meshFn, const core::MeshTopology& topology, int edge,
                  std::array<int, 2>& ends, int& face1, int& face2, core::SymmetryReport& report) {
    int2 vertices = {-1, -1};
    if (!meshFn.getEdgeVertices(edge, vertices)) {
        report.warning("The symmetry edge is not connected to any faces.");
        return false;
    }
    ends = {vertices[0], vertices[1]};
    const int own = core::getEdgeByVertex(topology, ends[0], ends[1]);
    return core::getConnectedEdgeFaces(topology, own, face1, face2, report);
}

} // namespace

polyMapVertexOrder::polyMapVertexOrder()
    : addToMap(false), axis("x"), check(false), copyTo(false), select(false), selectMapped(false),
      selectUnmapped(false), tolerance(0.0001), verbose(0), axisIndex(0), verticesSelected(false) {}

void* polyMapVertexOrder::creator() {
    return new polyMapVertexOrder();
}

MSyntax polyMapVertexOrder::newSyntax() {
    MSyntax syntax;
    syntax.addFlag("-h", "-help");
    syntax.addFlag("-atm", "-addToMap");
    syntax.addFlag("-a", "-axis", MSyntax::kString);
    syntax.addFlag("-ck", "-check");
    syntax.addFlag("-ct", "-copyTo", MSyntax::kString);
    syntax.addFlag("-sl", "-select");
    syntax.addFlag("-sm", "-selectMapped");
    syntax.addFlag("-su", "-selectUnmapped");
    syntax.addFlag("-tol", "-tolerance", MSyntax::kDouble);
    syntax.addFlag("-v", "-verbose", MSyntax::kLong);
    syntax.setObjectType(MSyntax::kSelectionList, 0);
    syntax.useSelectionAsDefault(true);
    return syntax;
}

MStatus polyMapVertexOrder::doIt(const MArgList& args) {
    MStatus status;
    MArgDatabase argData(syntax(), args, &status);
    if (!status) return status;
    if (common::answerHelp(argData, polyMapVertexOrder_helpText)) return MS::kSuccess;

    addToMap = argData.isFlagSet("-addToMap");
    if (argData.isFlagSet("-axis")) argData.getFlagArgument("-axis", 0, axis);
    check = argData.isFlagSet("-check");
    copyTo = argData.isFlagSet("-copyTo");
    if (copyTo) argData.getFlagArgument("-copyTo", 0, copyToName);
    select = argData.isFlagSet("-select");
    selectMapped = argData.isFlagSet("-selectMapped");
    selectUnmapped = argData.isFlagSet("-selectUnmapped");
    if (argData.isFlagSet("-tolerance")) argData.getFlagArgument("-tolerance", 0, tolerance);
    if (argData.isFlagSet("-verbose")) argData.getFlagArgument("-verbose", 0, verbose);

    MSelectionList objects;
    status = common::getMeshObjects(argData, objects);
    if (!status) return status;
    MObject component;
    status = common::getMeshObject(objects, 0, meshPath, component);
    if (!status) return status;
    meshObject = meshPath.node();
    if (!component.isNull()) {
        MFnSingleIndexedComponent componentFn(component);
        if (componentFn.componentType() == MFn::kMeshEdgeComponent) componentFn.getElements(selectedEdges);
        if (componentFn.componentType() == MFn::kMeshVertComponent) {
            componentFn.getElements(selectedVertices);
            verticesSelected = true;
        }
    }
    axisIndex = axisIndexOf(axis);
    return redoIt();
}

MStatus polyMapVertexOrder::redoIt() {
    common::ScriptEditorReport report;
    MStatus status;
    MFnMesh meshFn(meshPath, &status);
    if (!status) return status;

    // The topology is read once, when the selected edges or the mapping first need it.
    core::MeshTopology topology;
    std::vector<double> points;
    std::unique_ptr<core::MeshShells> shells;
    const auto readTopology = [&]() {
        if (!shells) {
            // Every table but the faces of each vertex, which no step of the mapping reads.
            status =
                common::readMeshTopology(meshPath, topology, points,
                                         core::MeshTopology::kEdgeFaces | core::MeshTopology::kVertexEdges);
            shells.reset(new core::MeshShells(topology));
        }
        return status;
    };

    // Start components of the shells whose symmetry edge the user selected.
    core::ShellComponents components;
    core::UserShells userShells;
    std::vector<std::array<int, 2>> extensionEdges;
    const unsigned int edgeCount = selectedEdges.length();
    if (edgeCount != 0 && !readTopology()) return status;
    if (!addToMap || edgeCount == 1) {
        for (unsigned int k = 0; k < edgeCount; ++k) {
            std::array<int, 2> ends{};
            int face1 = -1, face2 = -1;
            if (!readUserEdge(meshFn, topology, selectedEdges[k], ends, face1, face2, report))
                return MS::kFailure;
            components.appendStart(face1, face2, ends[0], ends[1], -1, -1);
            const core::IndexRange shellFaces = shells->faces(shells->shellOf(face1));
            userShells.shellStarts.push_back(shellFaces[0]);
            userShells.faces.push_back(face1);
            if (addToMap) components.appendCounts(shellFaces.size(), 0);
        }
    } else if (edgeCount == 2) {
        for (unsigned int k = 0; k < 2; ++k) {
            int2 ends = {-1, -1};
            meshFn.getEdgeVertices(selectedEdges[k], ends);
            extensionEdges.push_back({ends[0], ends[1]});
        }
    }

    MPlug plug;
    const bool hasMap = common::findVertexOrderMap(meshPath, plug);
    MIntArray stored;
    if (!hasMap && (check || copyTo || selectMapped || selectUnmapped)) {
        setResult(-1);
        return MS::kSuccess;
    }
    if (hasMap) {
        stored = common::readVertexOrderMap(plug);
        if (check || selectMapped || selectUnmapped) return doSelectShells(stored);
        if (copyTo) {
            status = common::copyVertexOrderMap(plug, copyToName);
            if (!status) return status;
            setResult(1);
            return MS::kSuccess;
        }
    }

    if (!readTopology()) return status;
    const double usedTolerance =
        tolerance == 0.0 ? core::averageEdgeLength(topology, points, 5) / 100.0 : tolerance;
    bool errors = false;
    {
        core::SymmetryMesh mesh{topology, points, *shells, meshPath.fullPathName().asChar()};
        core::PairingSettings settings{axisIndex, usedTolerance, verbose, select};
        std::vector<std::string> selection;
        common::ClosestFaceSearch closestFace(meshObject);
        if (!addToMap) {
            core::getMultiShellComponents(mesh, settings, userShells, std::ref(closestFace), components,
                                          errors, selection, report);
        } else if (extensionEdges.size() == 2 && !core::getShellPairExtensionComponents(
                                                     mesh, settings, extensionEdges[0], extensionEdges[1],
                                                     components, errors, selection, report)) {
            return MS::kFailure;
        }
        if (select) common::selectComponents(selection);
    }
    // The walks read faces and the faces of edges only: the points, the shells and the vertex tables are
    // let go first, so that the walks' working memory reuses theirs.
    std::vector<double>().swap(points);
    shells.reset();
    topology.release(core::MeshTopology::kVertexEdges);

    std::vector<int> map;
    const unsigned int numVertices = static_cast<unsigned int>(topology.numVertices());
    if (!addToMap) {
        map.assign(numVertices, -1);
    } else {
        if (stored.length() != numVertices) {
            setResult(-1);
            MGlobal::displayError("Unable to extend the order mapping because the vertex count has changed.");
            return MS::kFailure;
        }
        map.resize(numVertices);
        for (unsigned int v = 0; v < numVertices; ++v) map[v] = stored[v];
    }

    int mappedShells = 0;
    if (!core::mapShells(topology, components, map, mappedShells, report)) return MS::kFailure;

    if (!hasMap) {
        status = common::createVertexOrderMap(meshPath, plug);
        if (!status) return status;
    }
    status = common::writeVertexOrderMap(plug, common::toIntArray(map));
    if (!status) return status;
    setResult(addToMap || mappedShells > 0 ? 1 : -1);
    if (errors) {
        MGlobal::displayInfo("One or more errors occurred while mapping the mesh.");
        MGlobal::displayInfo(
            "To receive more info on the failed components reload the unmapped mesh and run the "
            "following command:");
        MString command = MString("kv_polyMapVertexOrder -axis ") + axis + " -tolerance ";
        command += usedTolerance;
        MGlobal::displayInfo(command + " -verbose 1;");
        MGlobal::displayInfo("For full details set the verbose flag to 2.");
        MGlobal::displayWarning("Not all vertices have been mapped. See script editor for details.");
    }
    return MS::kSuccess;
}

MStatus polyMapVertexOrder::doSelectShells(const MIntArray& map) {
    const unsigned int numVertices = static_cast<unsigned int>(MFnMesh(meshPath).numVertices());
    if (map.length() == 0 || map.length() != numVertices) {
        setResult(-1);
        return MS::kSuccess;
    }
    MIntArray mapped, unmapped;
    for (unsigned int v = 0; v < numVertices; ++v)
        (map[v] == -1 ? unmapped : mapped).append(static_cast<int>(v));
    if (check && verticesSelected) {
        // Each vertex once: a vertex on the plane is its own partner.
        MIntArray pairs;
        std::vector<char> chosen(numVertices, 0);
        const auto choose = [&](int v) {
            if (v < 0 || static_cast<unsigned int>(v) >= numVertices || chosen[static_cast<unsigned int>(v)])
                return;
            chosen[static_cast<unsigned int>(v)] = 1;
            pairs.append(v);
        };
        for (unsigned int k = 0; k < selectedVertices.length(); ++k) {
            const int v = selectedVertices[k];
            choose(v);
            if (v >= 0 && static_cast<unsigned int>(v) < numVertices)
                choose(map[static_cast<unsigned int>(v)]);
        }
        return common::selectVertices(meshPath, pairs);
    }
    if (check) {
        setResult(static_cast<int>(unmapped.length()));
        return MS::kSuccess;
    }
    return common::selectVertices(meshPath, selectMapped ? mapped : unmapped);
}

MStatus polyMapVertexOrder::undoIt() {
    MPlug plug;
    common::findVertexOrderMap(meshPath, plug);
    return MS::kSuccess;
}
