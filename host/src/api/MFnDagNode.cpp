#include <maya/MFnDagNode.h>
#include <maya/MFnTransform.h>
#include <maya/MMatrix.h>

#include "api/ObjectRef.h"
#include "api/StatusOut.h"
#include "api/Transforms.h"
#include "engine/Scene.h"

using host::setStatus;

MFnDagNode::MFnDagNode(MObject& object, MStatus* ret) {
    host::initFunctionSet(*this, object, ret);
}
MFnDagNode::MFnDagNode(const MObject& object, MStatus* ret) {
    host::initFunctionSet(*this, object, ret);
}
MFnDagNode::MFnDagNode(const MDagPath& object, MStatus* ret) {
    host::initFunctionSet(*this, object.node(), ret);
}

bool MFnDagNode::accepts(const MObject& object) const {
    return host::dagNodeOf(object) != nullptr;
}

MObject MFnDagNode::create(const MString& type, MObject parent, MStatus* ReturnStatus) {
    return create(type, MString(), parent, ReturnStatus);
}

MObject MFnDagNode::create(const MString& type, const MString& name, MObject parent, MStatus* ReturnStatus) {
    host::Scene& scene = host::scene();
    host::NodePtr parentNode = host::dagNodeOf(parent);
    if (!parent.isNull() && !parentNode) {
        setStatus(ReturnStatus, false);
        return MObject();
    }
    const host::NodeType* nodeType = host::NodeTypeRegistry::instance().find(type.str());
    std::string error;
    // A shape created without a parent gets a transform of its own, as in Maya.
    if (nodeType && nodeType->shape && !parentNode) {
        parentNode = scene.createNode("transform", "", nullptr, &error);
        if (!parentNode) {
            setStatus(ReturnStatus, false);
            return MObject();
        }
    }
    host::NodePtr node = scene.createNode(type.str(), name.str(), parentNode.get(), &error);
    setStatus(ReturnStatus, node != nullptr);
    if (!node) return MObject();
    object_ = host::ObjectRef::ofNode(node);
    return nodeType && nodeType->shape && parent.isNull() ? host::ObjectRef::ofNode(parentNode) : object_;
}

unsigned int MFnDagNode::parentCount(MStatus* ReturnStatus) const {
    host::NodePtr node = host::dagNodeOf(object_);
    setStatus(ReturnStatus, node != nullptr);
    return node && node->parent() ? 1u : 0u;
}

MObject MFnDagNode::parent(unsigned int i, MStatus* ReturnStatus) const {
    host::NodePtr node = host::dagNodeOf(object_);
    const bool ok = node && i == 0 && node->parent();
    setStatus(ReturnStatus, ok);
    return ok ? host::ObjectRef::ofNode(host::scene().sharedNode(node->parent())) : MObject();
}

MStatus MFnDagNode::addChild(MObject& child, unsigned int, bool) {
    host::NodePtr node = host::dagNodeOf(object_);
    host::NodePtr c = host::dagNodeOf(child);
    if (!node || !c) return MS::kInvalidParameter;
    std::string error;
    return host::scene().reparent(c, node.get(), &error) ? MS::kSuccess : MS::kFailure;
}

MStatus MFnDagNode::removeChild(MObject& child) {
    host::NodePtr node = host::dagNodeOf(object_);
    host::NodePtr c = host::dagNodeOf(child);
    if (!node || !c || c->parent() != node.get()) return MS::kInvalidParameter;
    std::string error;
    return host::scene().reparent(c, nullptr, &error) ? MS::kSuccess : MS::kFailure;
}

unsigned int MFnDagNode::childCount(MStatus* ReturnStatus) const {
    host::NodePtr node = host::dagNodeOf(object_);
    setStatus(ReturnStatus, node != nullptr);
    return node ? static_cast<unsigned int>(node->children().size()) : 0u;
}

MObject MFnDagNode::child(unsigned int i, MStatus* ReturnStatus) const {
    host::NodePtr node = host::dagNodeOf(object_);
    const bool ok = node && i < node->children().size();
    setStatus(ReturnStatus, ok);
    return ok ? host::ObjectRef::ofNode(host::scene().sharedNode(node->children()[i])) : MObject();
}

bool MFnDagNode::hasChild(MObject& child, MStatus* ReturnStatus) const {
    host::NodePtr node = host::dagNodeOf(object_);
    host::NodePtr c = host::dagNodeOf(child);
    setStatus(ReturnStatus, node != nullptr);
    return node && c && c->parent() == node.get();
}

bool MFnDagNode::isIntermediateObject(MStatus* ReturnStatus) const {
    host::NodePtr node = host::dagNodeOf(object_);
    setStatus(ReturnStatus, node != nullptr);
    if (!node) return false;
    host::Plug io = host::resolveAttrPath(node, "intermediateObject", nullptr);
    return !io.isNull() && host::valueAsDouble(io.value()) != 0.0;
}

MStatus MFnDagNode::setIntermediateObject(bool isIntermediate) {
    host::NodePtr node = host::dagNodeOf(object_);
    if (!node) return MS::kFailure;
    host::Plug io = host::resolveAttrPath(node, "intermediateObject", nullptr);
    return !io.isNull() && io.setValue(isIntermediate) ? MS::kSuccess : MS::kFailure;
}

MString MFnDagNode::fullPathName(MStatus* ReturnStatus) const {
    host::NodePtr node = host::dagNodeOf(object_);
    setStatus(ReturnStatus, node != nullptr);
    return node ? MString(host::scene().fullPath(*node)) : MString();
}

MString MFnDagNode::partialPathName(MStatus* ReturnStatus) const {
    host::NodePtr node = host::dagNodeOf(object_);
    setStatus(ReturnStatus, node != nullptr);
    return node ? MString(host::scene().partialPath(*node)) : MString();
}

MStatus MFnDagNode::getPath(MDagPath& path) const {
    host::NodePtr node = host::dagNodeOf(object_);
    if (!node) return MS::kFailure;
    path = MDagPath(object_);
    return MS::kSuccess;
}

MDagPath MFnDagNode::dagPath(MStatus* ReturnStatus) const {
    MDagPath path;
    MStatus s = getPath(path);
    if (ReturnStatus) *ReturnStatus = s;
    return path;
}

MMatrix MFnDagNode::transformationMatrix(MStatus* ReturnStatus) const {
    host::NodePtr node = host::dagNodeOf(object_);
    setStatus(ReturnStatus, node != nullptr);
    return node ? host::localMatrix(*node) : MMatrix();
}

MFnTransform::MFnTransform(MObject& object, MStatus* ReturnStatus) {
    host::initFunctionSet(*this, object, ReturnStatus);
}
MFnTransform::MFnTransform(const MObject& object, MStatus* ReturnStatus) {
    host::initFunctionSet(*this, object, ReturnStatus);
}
MFnTransform::MFnTransform(const MDagPath& object, MStatus* ReturnStatus) {
    host::initFunctionSet(*this, object.node(), ReturnStatus);
}

bool MFnTransform::accepts(const MObject& object) const {
    host::NodePtr node = host::nodeOf(object);
    return node && node->type().transform;
}
