#include <maya/MFnDependencyNode.h>
#include <maya/MPlugArray.h>
#include <maya/MStringArray.h>

#include "api/ObjectRef.h"
#include "api/StatusOut.h"
#include "engine/Scene.h"

using host::setStatus;

MFnDependencyNode::MFnDependencyNode(MObject& object, MStatus* ReturnStatus) {
    MStatus s = setObject(object);
    if (ReturnStatus) *ReturnStatus = s;
}

MFnDependencyNode::MFnDependencyNode(const MObject& object, MStatus* ReturnStatus) {
    MStatus s = setObject(object);
    if (ReturnStatus) *ReturnStatus = s;
}

bool MFnDependencyNode::accepts(const MObject& object) const {
    return host::nodeOf(object) != nullptr;
}

MObject MFnDependencyNode::create(const MString& type, MStatus* ReturnStatus) {
    return create(type, MString(), ReturnStatus);
}

MObject MFnDependencyNode::create(const MString& type, const MString& name, MStatus* ReturnStatus) {
    std::string error;
    host::NodePtr node = host::scene().createNode(type.str(), name.str(), nullptr, &error);
    setStatus(ReturnStatus, node != nullptr);
    if (!node) return MObject();
    object_ = host::ObjectRef::ofNode(node);
    return object_;
}

MString MFnDependencyNode::typeName(MStatus* ReturnStatus) const {
    host::NodePtr node = host::nodeOf(object_);
    setStatus(ReturnStatus, node != nullptr);
    return node ? MString(node->type().name) : MString();
}

MString MFnDependencyNode::name(MStatus* ReturnStatus) const {
    host::NodePtr node = host::nodeOf(object_);
    setStatus(ReturnStatus, node != nullptr);
    return node ? MString(node->name()) : MString();
}

MString MFnDependencyNode::absoluteName(MStatus* ReturnStatus) const {
    host::NodePtr node = host::nodeOf(object_);
    setStatus(ReturnStatus, node != nullptr);
    return node ? MString(":" + node->name()) : MString();
}

MString MFnDependencyNode::setName(const MString& newName, bool, MStatus* ReturnStatus) {
    host::NodePtr node = host::nodeOf(object_);
    std::string error;
    const bool ok = node && host::scene().renameNode(node, newName.str(), &error);
    setStatus(ReturnStatus, ok);
    return node ? MString(node->name()) : MString();
}

MString MFnDependencyNode::setName(const MString& newName, MStatus* ReturnStatus) {
    return setName(newName, false, ReturnStatus);
}

MStatus MFnDependencyNode::getConnections(MPlugArray& array) const {
    array.clear();
    host::NodePtr node = host::nodeOf(object_);
    if (!node) return MS::kFailure;
    // One plug per connected attribute of this node, in connection order.
    std::vector<host::Plug> seen;
    for (const host::Connection& c : host::scene().connectionsOf(*node)) {
        const host::Plug& own = c.source.node() == node ? c.source : c.destination;
        bool dup = false;
        for (const host::Plug& p : seen) dup = dup || p == own;
        if (dup) continue;
        seen.push_back(own);
        array.append(MPlug(std::make_shared<const host::Plug>(own)));
    }
    return MS::kSuccess;
}

unsigned int MFnDependencyNode::attributeCount(MStatus* ReturnStatus) const {
    host::NodePtr node = host::nodeOf(object_);
    setStatus(ReturnStatus, node != nullptr);
    return node ? static_cast<unsigned int>(node->attrCount()) : 0u;
}

MObject MFnDependencyNode::attribute(unsigned int index, MStatus* ReturnStatus) const {
    host::NodePtr node = host::nodeOf(object_);
    const host::AttrSpec* attr = node ? node->attrAt(index) : nullptr;
    setStatus(ReturnStatus, attr != nullptr);
    return host::ObjectRef::ofAttr(attr);
}

MObject MFnDependencyNode::attribute(const MString& attrName, MStatus* ReturnStatus) const {
    host::NodePtr node = host::nodeOf(object_);
    const host::AttrSpec* attr = node ? node->findAttr(attrName.str()) : nullptr;
    setStatus(ReturnStatus, attr != nullptr);
    return host::ObjectRef::ofAttr(attr);
}

bool MFnDependencyNode::hasAttribute(const MString& attrName, MStatus* ReturnStatus) const {
    host::NodePtr node = host::nodeOf(object_);
    setStatus(ReturnStatus, node != nullptr);
    return node && node->findAttr(attrName.str());
}

MPlug MFnDependencyNode::findPlug(const MObject& attr, bool, MStatus* ReturnStatus) const {
    host::NodePtr node = host::nodeOf(object_);
    MPlug plug = node ? MPlug(object_, attr) : MPlug();
    setStatus(ReturnStatus, !plug.isNull());
    return plug;
}

MPlug MFnDependencyNode::findPlug(const MString& attrName, bool, MStatus* ReturnStatus) const {
    host::NodePtr node = host::nodeOf(object_);
    if (!node) {
        setStatus(ReturnStatus, false);
        return MPlug();
    }
    // A plain attribute name, or an alias; as in Maya, no index paths here.
    const host::AttrSpec* attr = node->findAttr(attrName.str());
    if (attr) {
        MPlug plug(object_, host::ObjectRef::ofAttr(attr));
        setStatus(ReturnStatus, !plug.isNull());
        return plug;
    }
    for (const auto& alias : node->aliases())
        if (alias.first == attrName.str()) {
            host::Plug p = host::resolveAttrPath(node, alias.second, nullptr);
            setStatus(ReturnStatus, !p.isNull());
            return p.isNull() ? MPlug() : MPlug(std::make_shared<const host::Plug>(p));
        }
    setStatus(ReturnStatus, false);
    return MPlug();
}

MPlug MFnDependencyNode::findPlug(const MObject& attr, MStatus* ReturnStatus) const {
    return findPlug(attr, false, ReturnStatus);
}

MPlug MFnDependencyNode::findPlug(const MString& attrName, MStatus* ReturnStatus) const {
    return findPlug(attrName, false, ReturnStatus);
}

bool MFnDependencyNode::findAlias(const MString& alias, MObject& attrObj, MStatus* ReturnStatus) const {
    host::NodePtr node = host::nodeOf(object_);
    setStatus(ReturnStatus, node != nullptr);
    if (!node) return false;
    for (const auto& entry : node->aliases())
        if (entry.first == alias.str()) {
            host::Plug p = host::resolveAttrPath(node, entry.second, nullptr);
            if (p.isNull()) return false;
            attrObj = host::ObjectRef::ofAttr(p.attr());
            return true;
        }
    return false;
}

bool MFnDependencyNode::getAliasList(MStringArray& strArray, MStatus* ReturnStatus) {
    strArray.clear();
    host::NodePtr node = host::nodeOf(object_);
    setStatus(ReturnStatus, node != nullptr);
    if (!node) return false;
    for (const auto& entry : node->aliases()) {
        strArray.append(MString(entry.first));
        strArray.append(MString(entry.second));
    }
    return strArray.length() > 0;
}

MString MFnDependencyNode::plugsAlias(const MPlug& plug, MStatus* ReturnStatus) {
    host::NodePtr node = host::nodeOf(object_);
    const auto& p = plug.hostPlug();
    setStatus(ReturnStatus, node && p);
    if (!node || !p) return MString();
    const std::string path = p->attrPath(false);
    const std::string longPath = p->attrPath(true);
    for (const auto& entry : node->aliases())
        if (entry.second == path || entry.second == longPath) return MString(entry.first);
    return MString();
}

bool MFnDependencyNode::isLocked(MStatus* ReturnStatus) const {
    host::NodePtr node = host::nodeOf(object_);
    setStatus(ReturnStatus, node != nullptr);
    return node && node->lockedNode;
}

bool MFnDependencyNode::isFromReferencedFile(MStatus* ReturnStatus) const {
    setStatus(ReturnStatus, true);
    return false;
}
