#include <maya/MDGModifier.h>
#include <maya/MDagModifier.h>
#include <maya/MGlobal.h>

#include "api/ObjectRef.h"
#include "engine/Scene.h"

namespace {

MStatus plugWrite(const MPlug& plug, std::function<MStatus(MPlug&)> write) {
    MPlug copy = plug;
    return write(copy);
}

} // namespace

MObject MDGModifier::createNode(const MString& type, MStatus* ReturnStatus) {
    std::string error;
    host::NodePtr node = host::scene().createNode(type.str(), "", nullptr, &error);
    if (ReturnStatus) *ReturnStatus = node ? MS::kSuccess : MS::kInvalidParameter;
    if (!node) return MObject();
    MObject object = host::ObjectRef::ofNode(node);
    pending_.push_back(
        {[] { return MStatus(MS::kSuccess); }, [object]() mutable { return MGlobal::deleteNode(object); }});
    return object;
}

MStatus MDGModifier::deleteNode(const MObject& node, bool) {
    if (!host::nodeOf(node)) return MS::kInvalidParameter;
    MObject object = node;
    pending_.push_back({[object]() mutable { return MGlobal::deleteNode(object); }, nullptr});
    return MS::kSuccess;
}

MStatus MDGModifier::renameNode(const MObject& node, const MString& newName) {
    host::NodePtr n = host::nodeOf(node);
    if (!n) return MS::kInvalidParameter;
    std::string oldName = n->name();
    pending_.push_back(
        {[n, newName] {
             std::string error;
             return MStatus(host::scene().renameNode(n, newName.str(), &error) ? MS::kSuccess : MS::kFailure);
         },
         [n, oldName] {
             std::string error;
             return MStatus(host::scene().renameNode(n, oldName, &error) ? MS::kSuccess : MS::kFailure);
         }});
    return MS::kSuccess;
}

MStatus MDGModifier::connect(const MPlug& source, const MPlug& dest) {
    if (!source.hostPlug() || !dest.hostPlug()) return MS::kInvalidParameter;
    host::Plug s = *source.hostPlug(), d = *dest.hostPlug();
    pending_.push_back(
        {[s, d] {
             std::string error;
             return MStatus(host::scene().connect(s, d, false, &error) ? MS::kSuccess : MS::kFailure);
         },
         [s, d] {
             std::string error;
             return MStatus(host::scene().disconnect(s, d, &error) ? MS::kSuccess : MS::kFailure);
         }});
    return MS::kSuccess;
}

MStatus MDGModifier::disconnect(const MPlug& source, const MPlug& dest) {
    if (!source.hostPlug() || !dest.hostPlug()) return MS::kInvalidParameter;
    host::Plug s = *source.hostPlug(), d = *dest.hostPlug();
    pending_.push_back(
        {[s, d] {
             std::string error;
             return MStatus(host::scene().disconnect(s, d, &error) ? MS::kSuccess : MS::kFailure);
         },
         [s, d] {
             std::string error;
             return MStatus(host::scene().connect(s, d, false, &error) ? MS::kSuccess : MS::kFailure);
         }});
    return MS::kSuccess;
}

MStatus MDGModifier::newPlugValueDouble(const MPlug& plug, double plugValue) {
    double old = plug.asDouble();
    pending_.push_back(
        {[plug, plugValue] { return plugWrite(plug, [&](MPlug& p) { return p.setDouble(plugValue); }); },
         [plug, old] { return plugWrite(plug, [&](MPlug& p) { return p.setDouble(old); }); }});
    return MS::kSuccess;
}
MStatus MDGModifier::newPlugValueFloat(const MPlug& plug, float plugValue) {
    return newPlugValueDouble(plug, plugValue);
}
MStatus MDGModifier::newPlugValueInt(const MPlug& plug, int plugValue) {
    return newPlugValueDouble(plug, plugValue);
}
MStatus MDGModifier::newPlugValueBool(const MPlug& plug, bool plugValue) {
    return newPlugValueDouble(plug, plugValue ? 1.0 : 0.0);
}
MStatus MDGModifier::newPlugValue(const MPlug& plug, const MObject& plugValue) {
    MObject old = plug.asMObject();
    pending_.push_back(
        {[plug, plugValue] { return plugWrite(plug, [&](MPlug& p) { return p.setValue(plugValue); }); },
         [plug, old] { return plugWrite(plug, [&](MPlug& p) { return p.setValue(old); }); }});
    return MS::kSuccess;
}

MStatus MDGModifier::commandToExecute(const MString& command) {
    pending_.push_back({[command] { return MGlobal::executeCommand(command); }, nullptr});
    return MS::kSuccess;
}

MStatus MDGModifier::doIt() {
    MStatus result;
    for (Step& step : pending_) {
        MStatus s = step.apply ? step.apply() : MStatus(MS::kSuccess);
        if (!s) result = s;
        done_.push_back(std::move(step));
    }
    pending_.clear();
    return result;
}

MStatus MDGModifier::undoIt() {
    MStatus result;
    for (auto it = done_.rbegin(); it != done_.rend(); ++it) {
        MStatus s = it->revert ? it->revert() : MStatus(MS::kSuccess);
        if (!s) result = s;
        pending_.insert(pending_.begin(), std::move(*it));
    }
    done_.clear();
    return result;
}

MObject MDagModifier::createNode(const MString& type, const MObject& parent, MStatus* ReturnStatus) {
    host::NodePtr parentNode = host::nodeOf(parent);
    std::string error;
    host::NodePtr node = host::scene().createNode(type.str(), "", parentNode.get(), &error);
    if (ReturnStatus) *ReturnStatus = node ? MS::kSuccess : MS::kInvalidParameter;
    if (!node) return MObject();
    MObject object = host::ObjectRef::ofNode(node);
    pending_.push_back(
        {[] { return MStatus(MS::kSuccess); }, [object]() mutable { return MGlobal::deleteNode(object); }});
    return object;
}

MStatus MDagModifier::reparentNode(const MObject& node, const MObject& newParent) {
    host::NodePtr child = host::nodeOf(node);
    host::NodePtr parent = host::nodeOf(newParent);
    if (!child || !child->isDag() || (!newParent.isNull() && !parent)) return MS::kInvalidParameter;
    host::Node* oldParent = child->parent();
    host::NodePtr keepOld = oldParent ? host::scene().sharedNode(oldParent) : nullptr;
    pending_.push_back(
        {[child, parent] {
             std::string error;
             return MStatus(host::scene().reparent(child, parent.get(), &error) ? MS::kSuccess
                                                                                : MS::kFailure);
         },
         [child, keepOld] {
             std::string error;
             return MStatus(host::scene().reparent(child, keepOld.get(), &error) ? MS::kSuccess
                                                                                 : MS::kFailure);
         }});
    return MS::kSuccess;
}
