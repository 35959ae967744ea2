// Geometry filter function set: the deformer side shared by all deformer types. Input and output
// shapes are found through the connections of the deformer's history chain.
#include <maya/MDagPath.h>
#include <maya/MFnGeometryFilter.h>
#include <maya/MObjectArray.h>

#include "api/DeformerAccess.h"
#include "api/ObjectRef.h"
#include "api/StatusOut.h"
#include "deform/DeformerChain.h"

using host::setStatus;

namespace {

MObject shapeObject(const host::NodePtr& shape, MStatus* ReturnStatus) {
    setStatus(ReturnStatus, shape != nullptr);
    return shape ? host::ObjectRef::ofNode(shape) : MObject();
}

} // namespace

MFnGeometryFilter::MFnGeometryFilter(MObject& object, MStatus* ReturnStatus) {
    host::initFunctionSet(*this, object, ReturnStatus);
}
MFnGeometryFilter::MFnGeometryFilter(const MObject& object, MStatus* ReturnStatus) {
    host::initFunctionSet(*this, object, ReturnStatus);
}
bool MFnGeometryFilter::accepts(const MObject& object) const {
    return object.hasFn(MFn::kGeometryFilt);
}

MStatus MFnGeometryFilter::getInputGeometry(MObjectArray& objects) const {
    objects.clear();
    host::NodePtr node = host::nodeOf(object_);
    if (!node) return MS::kFailure;
    for (unsigned index : host::inputIndices(node))
        objects.append(host::ObjectRef::ofNode(host::inputShape(node, index)));
    return MS::kSuccess;
}

MStatus MFnGeometryFilter::getOutputGeometry(MObjectArray& objects) const {
    objects.clear();
    host::NodePtr node = host::nodeOf(object_);
    if (!node) return MS::kFailure;
    for (unsigned index : host::outputIndices(node))
        objects.append(host::ObjectRef::ofNode(host::outputShape(node, index)));
    return MS::kSuccess;
}

MObject MFnGeometryFilter::inputShapeAtIndex(unsigned int index, MStatus* ReturnStatus) const {
    host::NodePtr node = host::nodeOf(object_);
    return shapeObject(node ? host::inputShape(node, index) : nullptr, ReturnStatus);
}

MObject MFnGeometryFilter::outputShapeAtIndex(unsigned int index, MStatus* ReturnStatus) const {
    host::NodePtr node = host::nodeOf(object_);
    return shapeObject(node ? host::outputShape(node, index) : nullptr, ReturnStatus);
}

MStatus MFnGeometryFilter::getPathAtIndex(unsigned int index, MDagPath& path) const {
    MStatus status;
    MObject shape = outputShapeAtIndex(index, &status);
    return status ? MDagPath::getAPathTo(shape, path) : status;
}

unsigned int MFnGeometryFilter::indexForOutputShape(const MObject& shape, MStatus* ReturnStatus) const {
    host::NodePtr node = host::nodeOf(object_);
    host::NodePtr mesh = host::meshShapeOf(shape);
    const auto index = node && mesh ? host::indexForShape(node, mesh) : std::nullopt;
    setStatus(ReturnStatus, index.has_value());
    return index.value_or(0);
}

unsigned int MFnGeometryFilter::numOutputConnections(MStatus* ReturnStatus) const {
    host::NodePtr node = host::nodeOf(object_);
    setStatus(ReturnStatus, node != nullptr);
    return node ? static_cast<unsigned>(host::outputIndices(node).size()) : 0;
}

float MFnGeometryFilter::envelope(MStatus* ReturnStatus) const {
    return host::envelopeOf(object_, ReturnStatus);
}
MStatus MFnGeometryFilter::setEnvelope(float envelope) {
    return host::setEnvelopeOf(object_, envelope);
}
