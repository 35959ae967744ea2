#include "blendShapeMirrorTarget.h"

#include "commandSupport.h"
#include "common.h"
#include "core/targets/MirrorDeltas.h"
#include "mirrorMatching.h"
#include "targetCommandChecks.h"
#include "targetDeltas.h"

#include <maya/MArgDatabase.h>
#include <maya/MFnDagNode.h>
#include <maya/MFnDependencyNode.h>
#include <maya/MFnMesh.h>
#include <maya/MGlobal.h>
#include <maya/MSelectionList.h>
#include <maya/MStringArray.h>

#include <cstdint>
#include <vector>

const char* const blendShapeMirrorTarget_helpText =
    "\n"
    "Description: Mirrors an existing blend shape target.\n"
    "\n"
    "Flags: kv_blendShapeMirrorTarget\n"
    "    -h      -help               <n/a>      this message\n"
    "    -ax     -axis               <string>   symmetry axis (optional, default: x)\n"
    "    -dir    -direction          <int>      direction (optional, default: 1; positive to negative)\n"
    "    -f      -flip               <int>      mirror the shape in place\n"
    "    -ib     -inbetween          <int>      target is an in-between shape\n"
    "    -m      -mesh               <string>   deformed mesh\n"
    "    -ob     -orderBased         <string>   use the vertex order from the given mesh\n"
    "    -om     -originalMesh       <string>   original shape node\n"
    "    -sc     -skipComponents     <string>   list of components which should not be mirrored\n"
    "    -si     -sourceIndex        <int>      index of the source target channel\n"
    "    -ti     -targetIndex        <int>      index of the destination target channel (optional, important "
    "for duplication)\n"
    "    -tn     -targetName         <string>   name of the mirrored blend shape target (optional, important "
    "for duplication)\n"
    "    -tit    -targetItem         <int>      target item value\n"
    "    -tol    -tolerance          <float>    tolerance value (optional, default: 0.001)\n"
    "    -tm     -tweakMesh          <string>   name of the mesh the mirrored deltas should be applied to as "
    "tweaks\n"
    "    -t      -type               <int>      mirror mode (0: mirror, 1: copy to opposite, 2: apply to "
    "opposite)\n"
    "Usage: Execute the command with the following arguments:\n"
    "Execute: kv_blendShapeMirrorTarget -ax <string> -dir <int> -f <int> -ib <int> -m <string> -om <string> "
    "-si <int> -t <int> -ti <int> -tn <string> -tol <float> -tit <int>\n"
    "Return Value: int\n";

blendShapeMirrorTarget::blendShapeMirrorTarget()
    : axis("x"), direction(true), flip(false), inbetween(false), sourceIndex(0), targetIndex(0),
      targetItem(6000), tolerance(0.001f), type(0), orderBased(false), targetWritten(false),
      targetCreated(false), tweaksWritten(false) {}

void* blendShapeMirrorTarget::creator() {
    return new blendShapeMirrorTarget();
}

MSyntax blendShapeMirrorTarget::newSyntax() {
    MSyntax syntax;
    syntax.addFlag("-h", "-help");
    syntax.addFlag("-ax", "-axis", MSyntax::kString);
    syntax.addFlag("-dir", "-direction", MSyntax::kBoolean);
    syntax.addFlag("-f", "-flip", MSyntax::kBoolean);
    syntax.addFlag("-ib", "-inbetween", MSyntax::kBoolean);
    syntax.addFlag("-m", "-mesh", MSyntax::kString);
    syntax.addFlag("-ob", "-orderBased", MSyntax::kString);
    syntax.addFlag("-om", "-originalMesh", MSyntax::kString);
    syntax.addFlag("-sc", "-skipComponents", MSyntax::kString);
    syntax.addFlag("-si", "-sourceIndex", MSyntax::kLong);
    syntax.addFlag("-ti", "-targetIndex", MSyntax::kLong);
    syntax.addFlag("-tn", "-targetName", MSyntax::kString);
    syntax.addFlag("-tit", "-targetItem", MSyntax::kLong);
    syntax.addFlag("-tol", "-tolerance", MSyntax::kDouble);
    syntax.addFlag("-tm", "-tweakMesh", MSyntax::kString);
    syntax.addFlag("-t", "-type", MSyntax::kLong);
    syntax.setObjectType(MSyntax::kSelectionList, 0);
    syntax.useSelectionAsDefault(true);
    return syntax;
}

MStatus blendShapeMirrorTarget::doIt(const MArgList& args) {
    MStatus status;
    MArgDatabase argData(syntax(), args, &status);
    if (!status) return status;
    if (common::answerHelp(argData, blendShapeMirrorTarget_helpText)) return MS::kSuccess;

    status = parseArguments(argData);
    if (!status) return status;
    if (orderMeshName.length() == 0) orderMeshName = originalMeshName;

    status = common::getBlendShapeObject(argData, blendShapeNode);
    if (!status) return status;
    if (!common::originalMeshGiven(originalMeshName)) return MS::kSuccess;
    if (!resolveMeshes()) {
        setResult(0);
        return MS::kSuccess;
    }
    if (!common::validAxis(axis)) return MS::kSuccess;
    return redoIt();
}

MStatus blendShapeMirrorTarget::parseArguments(const MArgDatabase& argData) {
    orderBased = argData.isFlagSet("-ob");
    MStatus status;
    int number = 0;
    double value = 0.0;
    const auto readIndex = [&](const char* flag, unsigned int& member) {
        if (!argData.isFlagSet(flag)) return true;
        if (!(status = argData.getFlagArgument(flag, 0, number))) return false;
        member = static_cast<unsigned int>(number);
        return true;
    };
    const auto readText = [&](const char* flag, MString& member) {
        return !argData.isFlagSet(flag) || (status = argData.getFlagArgument(flag, 0, member));
    };
    const auto readSwitch = [&](const char* flag, bool& member) {
        return !argData.isFlagSet(flag) || (status = argData.getFlagArgument(flag, 0, member));
    };
    if (!readText("-ax", axis) || !readSwitch("-dir", direction) || !readSwitch("-f", flip) ||
        !readSwitch("-ib", inbetween) || !readText("-m", meshName) || !readText("-ob", orderMeshName) ||
        !readText("-om", originalMeshName) || !readText("-sc", skipComponents) ||
        !readIndex("-si", sourceIndex) || !readIndex("-ti", targetIndex) || !readText("-tn", targetName) ||
        !readIndex("-tit", targetItem) || !readText("-tm", tweakMeshName))
        return status;
    if (argData.isFlagSet("-tol")) {
        if (!(status = argData.getFlagArgument("-tol", 0, value))) return status;
        tolerance = static_cast<float>(value);
    }
    if (argData.isFlagSet("-t") && !(status = argData.getFlagArgument("-t", 0, type))) return status;
    return MS::kSuccess;
}

// The original mesh, a separate order mesh and the tweak mesh, in that order, fill the mesh slots by
// position: without a separate order mesh a tweak mesh lands in the order mesh's slot. When two names
// resolve to one node the slots stay as they are.
bool blendShapeMirrorTarget::resolveMeshes() {
    MStringArray names;
    names.append(originalMeshName);
    if (orderBased && orderMeshName.length() && orderMeshName != originalMeshName)
        names.append(orderMeshName);
    if (tweakMeshName.length()) names.append(tweakMeshName);
    MSelectionList list;
    for (unsigned int i = 0; i < names.length(); ++i) {
        if (!list.add(names[i])) {
            MGlobal::displayError(names[i] + " is not a mesh object.");
            return false;
        }
    }
    if (list.length() != names.length()) return true;

    for (unsigned int i = 0; i < list.length(); ++i) {
        MDagPath path;
        if (!common::meshShapeAt(list, i, path)) return false;
        if (i == 0) {
            originalMesh = path;
            if (orderMeshName == originalMeshName) orderMesh = path;
        } else if (i == 1) {
            orderMesh = path;
        } else {
            tweakMesh = path;
        }
    }
    return true;
}

MStatus blendShapeMirrorTarget::redoIt() {
    targetWritten = targetCreated = tweaksWritten = false;
    setResult(0);
    if (!readSource()) return MS::kSuccess;
    if (type == 2 &&
        !common::readTargetFillingEmpty(blendShapeNode, targetIndex, targetItem, destComponents, destPoints))
        return MS::kSuccess;
    MIntArray partners;
    if (!matchPartners(partners)) return MS::kSuccess;
    if (type == 1 && !createTarget()) return MS::kSuccess;
    if (flip) direction = !direction;

    core::MirrorSettings settings;
    settings.axis = common::axisNumber(axis);
    settings.type = type;
    settings.flip = flip;
    settings.direction = direction;
    settings.tolerance = tolerance;
    // The order map's -1 reads as the unsigned maximum: no partner.
    std::vector<std::uint32_t> partnerList(partners.length());
    for (unsigned int i = 0; i < partners.length(); ++i)
        partnerList[i] = static_cast<std::uint32_t>(partners[i]);
    const core::MirroredDeltas mirrored =
        core::mirrorDeltas(common::toTargetDeltas(sourceComponents, sourcePoints), partnerList,
                           common::axisCoordinates(originalMesh, settings.axis), settings);
    if (orderBased && mirrored.skipped) {
        MString message("Skipped ");
        message += static_cast<double>(mirrored.skipped);
        MGlobal::displayInfo(message + " asymmetrical components.");
    }

    const MIntArray components = common::toIntArray(mirrored.output.components);
    const MPointArray points = common::toPointArray(mirrored.output.deltas);
    targetWritten = true;
    if (!common::setTargetComponents(blendShapeNode, targetIndex, targetItem, components)) {
        MGlobal::displayError("Error setting mirrored components.");
        return MS::kSuccess;
    }
    if (!common::setTargetPoints(blendShapeNode, targetIndex, targetItem, points)) {
        MGlobal::displayError("Error setting mirrored points.");
        return MS::kSuccess;
    }
    if (tweakMesh.isValid() && !writeTweaks(components, points)) return MS::kSuccess;
    setResult(1);
    return MS::kSuccess;
}

// The source item's data as read (an empty target is given one zero delta first), less the skip
// list's components unless the matching goes by the order map.
bool blendShapeMirrorTarget::readSource() {
    if (!common::readTargetFillingEmpty(blendShapeNode, sourceIndex, targetItem, sourceComponents,
                                        sourcePoints))
        return false;
    if (orderBased || skipComponents.length() == 0) return true;
    MStringArray skipNames;
    skipComponents.split(' ', skipNames);
    const MIntArray skip = common::flattenComponentList(skipNames);
    std::vector<int> skipList(skip.length());
    if (skip.length()) skip.get(skipList.data());
    core::TargetDeltas deltas = common::toTargetDeltas(sourceComponents, sourcePoints);
    core::removeSkipped(deltas, skipList);
    sourceComponents = common::toIntArray(deltas.components);
    sourcePoints = common::toPointArray(deltas.deltas);
    return true;
}

bool blendShapeMirrorTarget::matchPartners(MIntArray& partners) {
    partners = orderBased ? common::getMirroredOrderedMeshIndices(orderMesh, sourceComponents)
                          : common::getMirroredMeshIndices(axis, originalMesh, sourceComponents, tolerance);
    const MString error = common::mirrorCountError(sourceComponents.length(), partners.length());
    if (error.length() == 0) return true;
    MGlobal::displayError(error);
    return false;
}

// Adds the destination target through the host's blendShape command, from a duplicate of the
// original mesh named after the target. Item numbers below 5000 wrap to very large weights, which
// the host wraps back to the same item.
bool blendShapeMirrorTarget::createTarget() {
    MStatus status;
    MFnMesh meshFn;
    MObject duplicate = meshFn.copy(originalMesh.node(), MObject::kNullObj, &status);
    if (!status) {
        MGlobal::displayError("The original mesh cannot be duplicated.");
        return false;
    }
    targetName = MFnDependencyNode(duplicate).setName(targetName);
    // A new channel takes the duplicate's name as its alias; a name the node already answers to
    // would leave the channel unnamed and make undo remove the other plug's alias.
    const MString blendShapeName = MFnDependencyNode(blendShapeNode).name();
    MSelectionList existing;
    if (!inbetween && existing.add(blendShapeName + "." + targetName)) {
        MGlobal::displayError(blendShapeName + " already has a target or attribute named " + targetName +
                              ".");
        MGlobal::deleteNode(duplicate);
        return false;
    }

    const double weight = static_cast<double>(targetItem - 5000u) / 1000.0;
    MString command("blendShape -e ");
    command += inbetween ? "-ib" : "";
    command += " -t " + meshName + " ";
    command += static_cast<double>(targetIndex);
    command += " " + targetName + " ";
    command += weight;
    command += " " + blendShapeName;
    targetCreated = MGlobal::executeCommand(command, false, false);
    MGlobal::deleteNode(duplicate);
    return targetCreated;
}

bool blendShapeMirrorTarget::writeTweaks(const MIntArray& components, const MPointArray& points) {
    tweakComponents = components;
    if (!common::getVertexTweaks(tweakMesh.node(), tweakComponents, previousTweaks)) {
        MGlobal::displayError("Error getting tweak data.");
        return false;
    }
    tweaksWritten = true;
    if (!common::setVertexTweaks(tweakMesh.node(), tweakComponents, points)) {
        MGlobal::displayError("Error setting tweak data.");
        return false;
    }
    return true;
}

MStatus blendShapeMirrorTarget::undoIt() {
    MStatus status;
    if (targetWritten && (type == 0 || type == 2)) {
        const MIntArray& components = type == 0 ? sourceComponents : destComponents;
        const MPointArray& points = type == 0 ? sourcePoints : destPoints;
        if (!(status = common::setTargetComponents(blendShapeNode, targetIndex, targetItem, components))) {
            MGlobal::displayError("Error setting components.");
            return status;
        }
        if (!(status = common::setTargetPoints(blendShapeNode, targetIndex, targetItem, points))) {
            MGlobal::displayError("Error setting points.");
            return status;
        }
    }
    if (targetCreated) {
        const MString node = MFnDependencyNode(blendShapeNode).name();
        MString index, item;
        index += static_cast<double>(targetIndex);
        item += static_cast<double>(targetItem);
        MString command;
        if (!inbetween) command += "removeMultiInstance -b 1 " + node + ".w[" + index + "];";
        command += "removeMultiInstance -b 1 " + node + ".it[0].itg[" + index + "].iti[" + item + "];";
        if (!inbetween) {
            command += "removeMultiInstance -b 1 " + node + ".it[0].itg[" + index + "];";
            command += "aliasAttr -rm " + node + "." + targetName + ";";
        }
        MGlobal::executeCommand(command, false, false);
    }
    if (tweaksWritten && !common::setVertexTweaks(tweakMesh.node(), tweakComponents, previousTweaks)) {
        MGlobal::displayError("Error setting tweak data.");
        setResult(0);
    }
    return MS::kSuccess;
}
