// Blend shape deformer function set. Base objects are the shapes the deformer's outputs end in;
// targets are stored as sparse deltas against the deformer's input geometry.
#include <maya/MFnBlendShapeDeformer.h>
#include <maya/MIntArray.h>
#include <maya/MObjectArray.h>

#include "api/DeformerAccess.h"
#include "api/MeshAccess.h"
#include "api/ObjectRef.h"
#include "api/StatusOut.h"
#include "deform/BlendShapeBuild.h"
#include "deform/DeformerChain.h"
#include "engine/Scene.h"
#include "eval/DeformerData.h"
#include "eval/Evaluator.h"

#include <algorithm>

using host::setStatus;

namespace {

// The geometry index of a base object on the deformer, or none.
std::optional<unsigned> baseIndex(const MObject& deformer, const MObject& base) {
    host::NodePtr node = host::nodeOf(deformer);
    host::NodePtr shape = host::meshShapeOf(base);
    return node && shape ? host::indexForShape(node, shape) : std::nullopt;
}

// A target's geometry: a mesh shape (a transform stands for its shape) as it shows, or mesh data.
host::MeshPtr targetGeometry(const MObject& target) {
    host::NodePtr shape = host::meshShapeOf(target);
    return shape ? host::evaluatedMesh(shape) : host::readMesh(target);
}

} // namespace

MFnBlendShapeDeformer::MFnBlendShapeDeformer(MObject& object, MStatus* ReturnStatus) {
    host::initFunctionSet(*this, object, ReturnStatus);
}
MFnBlendShapeDeformer::MFnBlendShapeDeformer(const MObject& object, MStatus* ReturnStatus) {
    host::initFunctionSet(*this, object, ReturnStatus);
}
bool MFnBlendShapeDeformer::accepts(const MObject& object) const {
    return object.hasFn(MFn::kBlendShape);
}

MObject MFnBlendShapeDeformer::create(MObject baseObject, Origin originSpace, MStatus* ReturnStatus) {
    MObjectArray bases;
    bases.append(baseObject);
    return create(bases, originSpace, kNormal, ReturnStatus);
}

// kOther names a place the caller picks afterwards; the deformer then goes where kNormal puts it.
MObject MFnBlendShapeDeformer::create(const MObjectArray& baseObjects, Origin originSpace,
                                      HistoryLocation location, MStatus* ReturnStatus) {
    std::vector<host::NodePtr> shapes;
    for (unsigned i = 0; i < baseObjects.length(); ++i) shapes.push_back(host::meshShapeOf(baseObjects[i]));
    host::NodePtr node = shapes.empty() || std::count(shapes.begin(), shapes.end(), nullptr) > 0
                             ? nullptr
                             : host::createBlendShape(shapes, "", location == kFrontOfChain, nullptr);
    if (!node) {
        if (ReturnStatus) *ReturnStatus = MS::kInvalidParameter;
        return MObject();
    }
    MObject object = host::ObjectRef::ofNode(node);
    setObject(object);
    setOrigin(originSpace);
    setStatus(ReturnStatus, true);
    return object;
}

MStatus MFnBlendShapeDeformer::addBaseObject(MObject& object) {
    host::NodePtr node = host::nodeOf(object_);
    host::NodePtr shape = host::meshShapeOf(object);
    if (!node || !shape) return MS::kInvalidParameter;
    const std::vector<unsigned> used = host::outputIndices(node);
    const unsigned index = used.empty() ? 0 : used.back() + 1;
    return host::insertDeformer(node, index, shape, false, nullptr) ? MS::kSuccess : MS::kFailure;
}

MStatus MFnBlendShapeDeformer::getBaseObjects(MObjectArray& objects) const {
    objects.clear();
    host::NodePtr node = host::nodeOf(object_);
    if (!node) return MS::kFailure;
    for (unsigned index : host::outputIndices(node))
        objects.append(host::ObjectRef::ofNode(host::outputShape(node, index)));
    return MS::kSuccess;
}

MStatus MFnBlendShapeDeformer::addTarget(const MObject& baseObject, int weightIndex, const MObject& newTarget,
                                         double fullWeight, TargetType targetType) {
    if (targetType != kObject) return MS::kNotImplemented;
    const auto index = baseIndex(object_, baseObject);
    host::MeshPtr target = targetGeometry(newTarget);
    if (!index || weightIndex < 0 || !target) return MS::kInvalidParameter;
    return host::addBlendShapeTarget(host::nodeOf(object_), *index, static_cast<unsigned>(weightIndex),
                                     target.get(), fullWeight, nullptr)
               ? MS::kSuccess
               : MS::kFailure;
}

MStatus MFnBlendShapeDeformer::addTarget(const MObject& baseObject, int weightIndex, double fullWeight,
                                         TargetType targetType) {
    if (targetType != kObject) return MS::kNotImplemented;
    const auto index = baseIndex(object_, baseObject);
    if (!index || weightIndex < 0) return MS::kInvalidParameter;
    return host::addBlendShapeTarget(host::nodeOf(object_), *index, static_cast<unsigned>(weightIndex),
                                     nullptr, fullWeight, nullptr)
               ? MS::kSuccess
               : MS::kFailure;
}

// Items are found by their weight; the target object only has to be a mesh.
MStatus MFnBlendShapeDeformer::removeTarget(const MObject& baseObject, int weightIndex, const MObject& target,
                                            double fullWeight) {
    const auto index = baseIndex(object_, baseObject);
    const auto item = host::itemForWeight(fullWeight);
    if (!index || weightIndex < 0 || !item || !targetGeometry(target)) return MS::kInvalidParameter;
    host::NodePtr node = host::nodeOf(object_);
    const host::Plug items = host::childPlug(
        host::targetGroupPlug(node, *index, static_cast<unsigned>(weightIndex)), "inputTargetItem");
    if (!items.element(*item).hasStoredValue()) return MS::kInvalidParameter;
    host::removeBlendShapeItems(node, *index, static_cast<unsigned>(weightIndex), item);
    return MS::kSuccess;
}

// The meshes connected as live targets (inputGeomTarget) of the target's items.
MStatus MFnBlendShapeDeformer::getTargets(MObject baseObject, int weightIndex,
                                          MObjectArray& targetObjects) const {
    targetObjects.clear();
    const auto index = baseIndex(object_, baseObject);
    if (!index || weightIndex < 0) return MS::kInvalidParameter;
    const host::Plug items = host::childPlug(
        host::targetGroupPlug(host::nodeOf(object_), *index, static_cast<unsigned>(weightIndex)),
        "inputTargetItem");
    for (uint32_t item : items.existingIndices()) {
        const host::Plug source =
            host::scene().sourceOf(host::childPlug(items.element(item), "inputGeomTarget"));
        if (!source.isNull()) targetObjects.append(host::ObjectRef::ofNode(source.node()));
    }
    return MS::kSuccess;
}

unsigned int MFnBlendShapeDeformer::numWeights(MStatus* ReturnStatus) const {
    host::Plug p = host::nodePlug(object_, "weight");
    setStatus(ReturnStatus, !p.isNull());
    return static_cast<unsigned int>(p.numElements());
}

MStatus MFnBlendShapeDeformer::weightIndexList(MIntArray& indexList) const {
    indexList.clear();
    host::Plug p = host::nodePlug(object_, "weight");
    if (p.isNull()) return MS::kFailure;
    for (uint32_t index : p.existingIndices()) indexList.append(static_cast<int>(index));
    return MS::kSuccess;
}

float MFnBlendShapeDeformer::weight(unsigned int index, MStatus* ReturnStatus) const {
    host::Plug p = host::nodePlug(object_, "weight");
    setStatus(ReturnStatus, !p.isNull());
    return p.isNull() ? 0.f : static_cast<float>(host::valueAsDouble(p.element(index).value()));
}

MStatus MFnBlendShapeDeformer::setWeight(unsigned int index, float weight) {
    host::Plug p = host::nodePlug(object_, "weight");
    return !p.isNull() && p.element(index).setValue(static_cast<double>(weight)) ? MS::kSuccess
                                                                                 : MS::kFailure;
}

float MFnBlendShapeDeformer::envelope(MStatus* ReturnStatus) const {
    return host::envelopeOf(object_, ReturnStatus);
}
MStatus MFnBlendShapeDeformer::setEnvelope(float envelope) {
    return host::setEnvelopeOf(object_, envelope);
}

MFnBlendShapeDeformer::Origin MFnBlendShapeDeformer::origin(MStatus* ReturnStatus) const {
    host::Plug p = host::nodePlug(object_, "origin");
    setStatus(ReturnStatus, !p.isNull());
    return !p.isNull() && host::valueAsDouble(p.value()) == 0.0 ? kWorldOrigin : kLocalOrigin;
}

MStatus MFnBlendShapeDeformer::setOrigin(Origin space) {
    host::Plug p = host::nodePlug(object_, "origin");
    return !p.isNull() && p.setValue(space == kWorldOrigin ? 0 : 1) ? MS::kSuccess : MS::kFailure;
}
