#include "blendShapeSplitTarget.h"

#include "commandSupport.h"
#include "common.h"
#include "core/targets/SplitWeights.h"
#include "targetCommandChecks.h"
#include "targetDeltas.h"

#include <maya/MArgDatabase.h>
#include <maya/MFnSingleIndexedComponent.h>
#include <maya/MGlobal.h>
#include <maya/MPlug.h>
#include <maya/MSelectionList.h>
#include <maya/MStringArray.h>

#include <vector>

const char* const blendShapeSplitTarget_helpText =
    "\n"
    "Description: Splits an existing blend shape target.\n"
    "\n"
    "Flags: kv_blendShapeSplitTarget\n"
    "    -h      -help               <n/a>      this message\n"
    "    -ax     -axis               <string>   symmetry axis (optional, default: x)\n"
    "    -b      -blend              <float>    blend width value\n"
    "    -c      -center             <float>    split center position\n"
    "    -i      -index              <int>      index of the source target channel\n"
    "    -iv     -invert             <int>      switches between the positive or negative side\n"
    "    -om     -originalMesh       <string>   original shape node\n"
    "    -tol    -tolerance          <float>    tolerance value (optional, default: 0.001)\n"
    "Usage: Execute the command with the following arguments:\n"
    "Execute: kv_blendShapeSplitTarget -ax <string> -b <float> -c <float> -i <int> -iv <int> -om <string> "
    "-tol <float>\n"
    "Return Value: int\n";

blendShapeSplitTarget::blendShapeSplitTarget()
    : axis("x"), blend(0.0), center(0.0), index(0), side(0), tolerance(0.001), hardSplit(false) {}

void* blendShapeSplitTarget::creator() {
    return new blendShapeSplitTarget();
}

MSyntax blendShapeSplitTarget::newSyntax() {
    MSyntax syntax;
    syntax.addFlag("-h", "-help");
    syntax.addFlag("-ax", "-axis", MSyntax::kString);
    syntax.addFlag("-b", "-blend", MSyntax::kDouble);
    syntax.addFlag("-c", "-center", MSyntax::kDouble);
    syntax.addFlag("-i", "-index", MSyntax::kLong);
    syntax.addFlag("-iv", "-invert", MSyntax::kLong);
    syntax.addFlag("-om", "-originalMesh", MSyntax::kString);
    syntax.addFlag("-tol", "-tolerance", MSyntax::kDouble);
    syntax.setObjectType(MSyntax::kSelectionList, 0);
    syntax.useSelectionAsDefault(true);
    return syntax;
}

MStatus blendShapeSplitTarget::doIt(const MArgList& args) {
    MStatus status;
    MArgDatabase argData(syntax(), args, &status);
    if (!status) return status;
    if (common::answerHelp(argData, blendShapeSplitTarget_helpText)) return MS::kSuccess;

    status = parseArguments(argData);
    if (!status) return status;

    status = common::getBlendShapeObject(argData, blendShapeNode);
    if (!status) return status;
    if (!common::originalMeshGiven(originalMeshName)) return MS::kSuccess;
    if (!checkOriginalMesh()) {
        setResult(0);
        return MS::kSuccess;
    }
    if (!common::validAxis(axis)) return MS::kSuccess;
    if (index < -1) {
        MString message("No weight map has the index ");
        message += index;
        MGlobal::displayError(message + "; use -1 for the base weights or a target index.");
        setResult(0);
        return MS::kSuccess;
    }
    return redoIt();
}

MStatus blendShapeSplitTarget::parseArguments(const MArgDatabase& argData) {
    MStatus status;
    if (argData.isFlagSet("-ax") && !(status = argData.getFlagArgument("-ax", 0, axis))) return status;
    if (argData.isFlagSet("-b") && !(status = argData.getFlagArgument("-b", 0, blend))) return status;
    if (argData.isFlagSet("-c") && !(status = argData.getFlagArgument("-c", 0, center))) return status;
    if (argData.isFlagSet("-i") && !(status = argData.getFlagArgument("-i", 0, index))) return status;
    if (argData.isFlagSet("-iv") && !(status = argData.getFlagArgument("-iv", 0, side))) return status;
    if (argData.isFlagSet("-om") && !(status = argData.getFlagArgument("-om", 0, originalMeshName)))
        return status;
    if (argData.isFlagSet("-tol") && !(status = argData.getFlagArgument("-tol", 0, tolerance))) return status;
    return MS::kSuccess;
}

// The original mesh must name a mesh shape itself; a transform is not taken.
bool blendShapeSplitTarget::checkOriginalMesh() {
    MSelectionList list;
    MStringArray typed;
    if (list.add(originalMeshName)) list.getSelectionStrings(0, typed);
    const MString name = typed.length() ? typed[0] : originalMeshName;
    if (!list.getDagPath(0, originalMesh) || !originalMesh.node().hasFn(MFn::kMesh)) {
        MGlobal::displayError(name + " is not a mesh object.");
        return false;
    }
    return true;
}

MStatus blendShapeSplitTarget::redoIt() {
    hardSplit = core::isHardSplit(blend);
    setResult(0);
    if (!readComponents()) return MS::kSuccess;

    core::SplitSettings settings;
    settings.blend = blend;
    settings.center = center;
    settings.side = side;
    settings.tolerance = tolerance;
    settings.baseWeights = index == -1;
    const int axisNumber = common::axisNumber(axis);
    const std::vector<float> coordinates = common::axisCoordinates(originalMesh, axisNumber);
    const core::TargetDeltas read = common::toTargetDeltas(components, points);
    const std::vector<double> weights = core::splitWeights(read.components, coordinates, settings);

    if (baseHardSplit()) {
        const core::TargetDeltas halved = core::halvedCentreDeltas(read, coordinates, axisNumber, tolerance);
        // The new component list holds the vertices read; the node still has them unless the
        // target was empty and got its placeholder vertex, so only that case is written.
        if (halved.components.empty() && !common::setTargetComponents(blendShapeNode, 0, 6000, MIntArray())) {
            MGlobal::displayError("Error setting components.");
            return MS::kSuccess;
        }
        if (!common::setTargetPoints(blendShapeNode, 0, 6000, common::toPointArray(halved.deltas))) {
            MGlobal::displayError("Error setting points.");
            return MS::kSuccess;
        }
    }

    MPlug weightsPlug = common::weightsPlug(blendShapeNode, index);
    common::deleteWeights(weightsPlug);
    for (std::size_t k = 0; k < weights.size(); ++k) {
        if (read.components[k] < 0) continue;
        weightsPlug.elementByLogicalIndex(static_cast<unsigned int>(read.components[k]))
            .setFloat(static_cast<float>(weights[k]));
    }
    setResult(1);
    return MS::kSuccess;
}

// Base weights: the components and deltas of target 0's full item. A target: the components of
// all its items, empty ones filled on the node, without duplicates.
bool blendShapeSplitTarget::readComponents() {
    if (index == -1) return common::readTargetFillingEmpty(blendShapeNode, 0, 6000, components, points);
    const unsigned int target = static_cast<unsigned int>(index);
    const MIntArray items = common::targetItems(blendShapeNode, target);
    MIntArray all;
    for (unsigned int i = 0; i < items.length(); ++i) {
        const unsigned int item = static_cast<unsigned int>(items[i]);
        const MIntArray itemComponents = common::getTargetComponents(blendShapeNode, target, item);
        if (itemComponents.length() == 0 &&
            !common::setTargetComponents(blendShapeNode, target, item, MIntArray(1, 0))) {
            MGlobal::displayError("Error setting components for empty target.");
            return false;
        }
        for (unsigned int k = 0; k < itemComponents.length(); ++k) all.append(itemComponents[k]);
    }
    MFnSingleIndexedComponent vertices;
    vertices.create(MFn::kMeshVertComponent);
    vertices.addElements(all);
    vertices.getElements(components);
    points.clear();
    return true;
}

MStatus blendShapeSplitTarget::undoIt() {
    if (!baseHardSplit()) return MS::kSuccess;
    // The component list is the one redoIt found (see there): only the deltas need restoring.
    const MStatus status = common::setTargetPoints(blendShapeNode, 0, 6000, points);
    if (!status) MGlobal::displayError("Error setting points.");
    return status;
}
