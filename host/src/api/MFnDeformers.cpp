// Deformer function sets. Evaluation-related operations (creating deformers, adding targets,
// skin weights) belong to the deformer services and answer kNotImplemented until they exist.
#include <maya/MDagPath.h>
#include <maya/MDagPathArray.h>
#include <maya/MDoubleArray.h>
#include <maya/MFloatArray.h>
#include <maya/MFnBlendShapeDeformer.h>
#include <maya/MFnSkinCluster.h>
#include <maya/MIntArray.h>
#include <maya/MObjectArray.h>

#include "api/ObjectRef.h"
#include "engine/Plug.h"
#include "api/StatusOut.h"

using host::setStatus;

namespace {



bool nodeHas(const MObject& object, MFn::Type type) {
    host::NodePtr node = host::nodeOf(object);
    return node && node->type().hasFn(type);
}

host::Plug nodePlug(const MObject& object, const std::string& path) {
    host::NodePtr node = host::nodeOf(object);
    return node ? host::resolveAttrPath(node, path, nullptr) : host::Plug();
}

} // namespace

MFnGeometryFilter::MFnGeometryFilter(MObject& object, MStatus* ReturnStatus) { host::initFunctionSet(*this, object, ReturnStatus); }
MFnGeometryFilter::MFnGeometryFilter(const MObject& object, MStatus* ReturnStatus) {
    host::initFunctionSet(*this, object, ReturnStatus);
}
bool MFnGeometryFilter::accepts(const MObject& object) const { return nodeHas(object, MFn::kGeometryFilt); }
MStatus MFnGeometryFilter::getInputGeometry(MObjectArray&) const { return MS::kNotImplemented; }
MStatus MFnGeometryFilter::getOutputGeometry(MObjectArray&) const { return MS::kNotImplemented; }
MObject MFnGeometryFilter::inputShapeAtIndex(unsigned int, MStatus* ReturnStatus) const {
    if (ReturnStatus) *ReturnStatus = MS::kNotImplemented;
    return MObject();
}
MObject MFnGeometryFilter::outputShapeAtIndex(unsigned int, MStatus* ReturnStatus) const {
    if (ReturnStatus) *ReturnStatus = MS::kNotImplemented;
    return MObject();
}
MStatus MFnGeometryFilter::getPathAtIndex(unsigned int, MDagPath&) const { return MS::kNotImplemented; }
unsigned int MFnGeometryFilter::indexForOutputShape(const MObject&, MStatus* ReturnStatus) const {
    if (ReturnStatus) *ReturnStatus = MS::kNotImplemented;
    return 0;
}
unsigned int MFnGeometryFilter::numOutputConnections(MStatus* ReturnStatus) const {
    if (ReturnStatus) *ReturnStatus = MS::kNotImplemented;
    return 0;
}
float MFnGeometryFilter::envelope(MStatus* ReturnStatus) const {
    host::Plug p = nodePlug(object_, "envelope");
    setStatus(ReturnStatus, !p.isNull());
    return p.isNull() ? 0.f : static_cast<float>(host::valueAsDouble(p.value()));
}
MStatus MFnGeometryFilter::setEnvelope(float envelope) {
    host::Plug p = nodePlug(object_, "envelope");
    return !p.isNull() && p.setValue(static_cast<double>(envelope)) ? MS::kSuccess : MS::kFailure;
}

MFnBlendShapeDeformer::MFnBlendShapeDeformer(MObject& object, MStatus* ReturnStatus) {
    host::initFunctionSet(*this, object, ReturnStatus);
}
MFnBlendShapeDeformer::MFnBlendShapeDeformer(const MObject& object, MStatus* ReturnStatus) {
    host::initFunctionSet(*this, object, ReturnStatus);
}
bool MFnBlendShapeDeformer::accepts(const MObject& object) const { return nodeHas(object, MFn::kBlendShape); }

MObject MFnBlendShapeDeformer::create(MObject, Origin, MStatus* ReturnStatus) {
    if (ReturnStatus) *ReturnStatus = MS::kNotImplemented;
    return MObject();
}
MObject MFnBlendShapeDeformer::create(const MObjectArray&, Origin, HistoryLocation, MStatus* ReturnStatus) {
    if (ReturnStatus) *ReturnStatus = MS::kNotImplemented;
    return MObject();
}
MStatus MFnBlendShapeDeformer::addBaseObject(MObject&) { return MS::kNotImplemented; }
MStatus MFnBlendShapeDeformer::getBaseObjects(MObjectArray&) const { return MS::kNotImplemented; }
MStatus MFnBlendShapeDeformer::addTarget(const MObject&, int, const MObject&, double, TargetType) {
    return MS::kNotImplemented;
}
MStatus MFnBlendShapeDeformer::addTarget(const MObject&, int, double, TargetType) { return MS::kNotImplemented; }
MStatus MFnBlendShapeDeformer::removeTarget(const MObject&, int, const MObject&, double) {
    return MS::kNotImplemented;
}
MStatus MFnBlendShapeDeformer::getTargets(MObject, int, MObjectArray&) const { return MS::kNotImplemented; }

unsigned int MFnBlendShapeDeformer::numWeights(MStatus* ReturnStatus) const {
    host::Plug p = nodePlug(object_, "weight");
    setStatus(ReturnStatus, !p.isNull());
    return static_cast<unsigned int>(p.numElements());
}

MStatus MFnBlendShapeDeformer::weightIndexList(MIntArray& indexList) const {
    indexList.clear();
    host::Plug p = nodePlug(object_, "weight");
    if (p.isNull()) return MS::kFailure;
    for (uint32_t index : p.existingIndices()) indexList.append(static_cast<int>(index));
    return MS::kSuccess;
}

float MFnBlendShapeDeformer::weight(unsigned int index, MStatus* ReturnStatus) const {
    host::Plug p = nodePlug(object_, "weight");
    setStatus(ReturnStatus, !p.isNull());
    return p.isNull() ? 0.f : static_cast<float>(host::valueAsDouble(p.element(index).value()));
}

MStatus MFnBlendShapeDeformer::setWeight(unsigned int index, float weight) {
    host::Plug p = nodePlug(object_, "weight");
    return !p.isNull() && p.element(index).setValue(static_cast<double>(weight)) ? MS::kSuccess : MS::kFailure;
}

float MFnBlendShapeDeformer::envelope(MStatus* ReturnStatus) const {
    host::Plug p = nodePlug(object_, "envelope");
    setStatus(ReturnStatus, !p.isNull());
    return p.isNull() ? 0.f : static_cast<float>(host::valueAsDouble(p.value()));
}
MStatus MFnBlendShapeDeformer::setEnvelope(float envelope) {
    host::Plug p = nodePlug(object_, "envelope");
    return !p.isNull() && p.setValue(static_cast<double>(envelope)) ? MS::kSuccess : MS::kFailure;
}
MFnBlendShapeDeformer::Origin MFnBlendShapeDeformer::origin(MStatus* ReturnStatus) const {
    host::Plug p = nodePlug(object_, "origin");
    setStatus(ReturnStatus, !p.isNull());
    return !p.isNull() && host::valueAsDouble(p.value()) == 0.0 ? kWorldOrigin : kLocalOrigin;
}
MStatus MFnBlendShapeDeformer::setOrigin(Origin space) {
    host::Plug p = nodePlug(object_, "origin");
    return !p.isNull() && p.setValue(space == kWorldOrigin ? 0 : 1) ? MS::kSuccess : MS::kFailure;
}

MFnSkinCluster::MFnSkinCluster(MObject& object, MStatus* ReturnStatus) { host::initFunctionSet(*this, object, ReturnStatus); }
MFnSkinCluster::MFnSkinCluster(const MObject& object, MStatus* ReturnStatus) { host::initFunctionSet(*this, object, ReturnStatus); }
bool MFnSkinCluster::accepts(const MObject& object) const { return nodeHas(object, MFn::kSkinClusterFilter); }
unsigned int MFnSkinCluster::influenceObjects(MDagPathArray& paths, MStatus* ReturnStatus) const {
    paths.clear();
    if (ReturnStatus) *ReturnStatus = MS::kNotImplemented;
    return 0;
}
unsigned int MFnSkinCluster::indexForInfluenceObject(const MDagPath&, MStatus* ReturnStatus) const {
    if (ReturnStatus) *ReturnStatus = MS::kNotImplemented;
    return 0;
}
MStatus MFnSkinCluster::getWeights(const MDagPath&, const MObject&, unsigned int, MDoubleArray&) const {
    return MS::kNotImplemented;
}
MStatus MFnSkinCluster::getWeights(const MDagPath&, const MObject&, MDoubleArray&, unsigned int&) const {
    return MS::kNotImplemented;
}
MStatus MFnSkinCluster::getWeights(const MDagPath&, const MObject&, MIntArray&, MDoubleArray&) const {
    return MS::kNotImplemented;
}
MStatus MFnSkinCluster::getWeights(const MDagPath&, const MObject&, unsigned int, MFloatArray&) const {
    return MS::kNotImplemented;
}
MStatus MFnSkinCluster::getWeights(const MDagPath&, const MObject&, MFloatArray&, unsigned int&) const {
    return MS::kNotImplemented;
}
MStatus MFnSkinCluster::setWeights(const MDagPath&, const MObject&, unsigned int, double, bool, MDoubleArray*) {
    return MS::kNotImplemented;
}
MStatus MFnSkinCluster::setWeights(const MDagPath&, const MObject&, MIntArray&, MDoubleArray&, bool, MDoubleArray*) {
    return MS::kNotImplemented;
}
MStatus MFnSkinCluster::setWeights(const MDagPath&, const MObject&, unsigned int, float, bool, MFloatArray*) {
    return MS::kNotImplemented;
}
MStatus MFnSkinCluster::setWeights(const MDagPath&, const MObject&, MIntArray&, MFloatArray&, bool, MFloatArray*) {
    return MS::kNotImplemented;
}
