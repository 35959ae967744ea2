#include <maya/MDagPath.h>
#include <maya/MMatrix.h>

#include "api/ObjectRef.h"
#include "api/StatusOut.h"
#include "api/Transforms.h"
#include "engine/ComponentText.h"
#include "engine/Scene.h"

using host::setStatus;

MStatus MDagPath::getAPathTo(const MObject& node, MDagPath& path) {
    if (!host::dagNodeOf(node)) return MS::kFailure;
    path = MDagPath(node);
    return MS::kSuccess;
}

bool MDagPath::hasFn(MFn::Type type, MStatus* ReturnStatus) const {
    host::NodePtr node = host::dagNodeOf(node_);
    setStatus(ReturnStatus, node != nullptr);
    if (!node) return false;
    if (node->type().hasFn(type)) return true;
    // A transform path answers for the shape below it, as in Maya.
    if (node->type().transform) {
        host::NodePtr shape = host::shapeOf(host::scene(), node);
        return shape != node && shape->type().hasFn(type);
    }
    return false;
}

MFn::Type MDagPath::apiType(MStatus* ReturnStatus) const {
    host::NodePtr node = host::dagNodeOf(node_);
    setStatus(ReturnStatus, node != nullptr);
    return node ? node->type().apiType : MFn::kInvalid;
}

bool MDagPath::isValid(MStatus* ReturnStatus) const {
    setStatus(ReturnStatus, true);
    return host::dagNodeOf(node_) != nullptr;
}

MObject MDagPath::node(MStatus* ReturnStatus) const {
    host::NodePtr node = host::dagNodeOf(node_);
    setStatus(ReturnStatus, node != nullptr);
    return node ? node_ : MObject();
}

MObject MDagPath::transform(MStatus* ReturnStatus) const {
    host::NodePtr node = host::dagNodeOf(node_);
    setStatus(ReturnStatus, node != nullptr);
    if (!node) return MObject();
    if (node->type().transform || !node->parent()) return node_;
    return host::ObjectRef::ofNode(host::scene().sharedNode(node->parent()));
}

unsigned int MDagPath::length(MStatus* ReturnStatus) const {
    host::NodePtr node = host::dagNodeOf(node_);
    setStatus(ReturnStatus, node != nullptr);
    unsigned int count = 0;
    for (const host::Node* n = node.get(); n; n = n->parent()) ++count;
    return count;
}

unsigned int MDagPath::childCount(MStatus* ReturnStatus) const {
    host::NodePtr node = host::dagNodeOf(node_);
    setStatus(ReturnStatus, node != nullptr);
    return node ? static_cast<unsigned int>(node->children().size()) : 0u;
}

MObject MDagPath::child(unsigned int i, MStatus* ReturnStatus) const {
    host::NodePtr node = host::dagNodeOf(node_);
    const bool ok = node && i < node->children().size();
    setStatus(ReturnStatus, ok);
    return ok ? host::ObjectRef::ofNode(host::scene().sharedNode(node->children()[i])) : MObject();
}

MStatus MDagPath::push(const MObject& child) {
    host::NodePtr node = host::dagNodeOf(node_);
    host::NodePtr c = host::dagNodeOf(child);
    if (!node || !c || c->parent() != node.get()) return MS::kInvalidParameter;
    node_ = child;
    return MS::kSuccess;
}

MStatus MDagPath::pop(unsigned int num) {
    host::NodePtr node = host::dagNodeOf(node_);
    if (!node) return MS::kFailure;
    host::Node* n = node.get();
    for (unsigned int i = 0; i < num; ++i) {
        if (!n->parent()) return MS::kInvalidParameter;
        n = n->parent();
    }
    node_ = host::ObjectRef::ofNode(host::scene().sharedNode(n));
    return MS::kSuccess;
}

MStatus MDagPath::extendToShape() {
    host::NodePtr node = host::dagNodeOf(node_);
    if (!node) return MS::kFailure;
    if (node->type().shape) return MS::kSuccess;
    unsigned int shapes = 0;
    numberOfShapesDirectlyBelow(shapes);
    if (shapes != 1) return MS::kFailure;
    host::NodePtr shape = host::shapeOf(host::scene(), node);
    if (shape == node) return MS::kFailure;
    node_ = host::ObjectRef::ofNode(shape);
    return MS::kSuccess;
}

MStatus MDagPath::extendToShapeDirectlyBelow(unsigned int num) {
    host::NodePtr node = host::dagNodeOf(node_);
    if (!node) return MS::kFailure;
    unsigned int k = 0;
    for (host::Node* child : node->children()) {
        if (!child->type().shape) continue;
        if (k++ == num) {
            node_ = host::ObjectRef::ofNode(host::scene().sharedNode(child));
            return MS::kSuccess;
        }
    }
    return MS::kInvalidParameter;
}

MStatus MDagPath::numberOfShapesDirectlyBelow(unsigned int& num) const {
    num = 0;
    host::NodePtr node = host::dagNodeOf(node_);
    if (!node) return MS::kFailure;
    // Intermediate objects do not count, as in Maya.
    for (host::Node* child : node->children()) {
        if (!child->type().shape) continue;
        host::Plug io = host::resolveAttrPath(host::scene().sharedNode(child), "intermediateObject", nullptr);
        if (io.isNull() || host::valueAsDouble(io.value()) == 0.0) ++num;
    }
    return MS::kSuccess;
}

MString MDagPath::fullPathName(MStatus* ReturnStatus) const {
    host::NodePtr node = host::dagNodeOf(node_);
    setStatus(ReturnStatus, node != nullptr);
    return node ? MString(host::scene().fullPath(*node)) : MString();
}

MString MDagPath::partialPathName(MStatus* ReturnStatus) const {
    host::NodePtr node = host::dagNodeOf(node_);
    setStatus(ReturnStatus, node != nullptr);
    return node ? MString(host::scene().partialPath(*node)) : MString();
}

MMatrix MDagPath::inclusiveMatrix(MStatus* ReturnStatus) const {
    host::NodePtr node = host::dagNodeOf(node_);
    setStatus(ReturnStatus, node != nullptr);
    return node ? host::worldMatrix(*node) : MMatrix();
}

MMatrix MDagPath::exclusiveMatrix(MStatus* ReturnStatus) const {
    host::NodePtr node = host::dagNodeOf(node_);
    setStatus(ReturnStatus, node != nullptr);
    return node && node->parent() ? host::worldMatrix(*node->parent()) : MMatrix();
}

MMatrix MDagPath::inclusiveMatrixInverse(MStatus* ReturnStatus) const {
    return inclusiveMatrix(ReturnStatus).inverse();
}

bool MDagPath::isInstanced(MStatus* ReturnStatus) const {
    setStatus(ReturnStatus, true);
    return false;
}

bool MDagPath::operator==(const MDagPath& other) const {
    return node_ == other.node_;
}
