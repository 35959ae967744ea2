// Component function sets and component list data.
#include <maya/MFnComponent.h>
#include <maya/MFnComponentListData.h>
#include <maya/MFnSingleIndexedComponent.h>
#include <maya/MIntArray.h>

#include "api/ObjectRef.h"
#include "api/StatusOut.h"

using host::setStatus;

namespace {

bool componentTypeFor(MFn::Type type, host::ComponentType& out) {
    switch (type) {
    case MFn::kMeshVertComponent:
        out = host::ComponentType::Vertex;
        return true;
    case MFn::kMeshEdgeComponent:
        out = host::ComponentType::Edge;
        return true;
    case MFn::kMeshPolygonComponent:
        out = host::ComponentType::Face;
        return true;
    case MFn::kMeshVtxFaceComponent:
        out = host::ComponentType::FaceVertex;
        return true;
    default:
        return false;
    }
}

} // namespace

MFnComponent::MFnComponent(MObject& object, MStatus* ReturnStatus) {
    host::initFunctionSet(*this, object, ReturnStatus);
}
MFnComponent::MFnComponent(const MObject& object, MStatus* ReturnStatus) {
    host::initFunctionSet(*this, object, ReturnStatus);
}

bool MFnComponent::accepts(const MObject& object) const {
    return host::dataOf<host::ComponentData>(object) != nullptr;
}

int MFnComponent::elementCount(MStatus* ReturnStatus) const {
    auto c = host::dataOf<host::ComponentData>(object_);
    setStatus(ReturnStatus, c);
    return c ? static_cast<int>(c->elements.size()) : 0;
}

MFn::Type MFnComponent::componentType(MStatus* ReturnStatus) const {
    auto c = host::dataOf<host::ComponentData>(object_);
    setStatus(ReturnStatus, c);
    return c ? host::apiTypeOfData(*c) : MFn::kInvalid;
}

bool MFnComponent::isEmpty(MStatus* ReturnStatus) const {
    auto c = host::dataOf<host::ComponentData>(object_);
    setStatus(ReturnStatus, c);
    return !c || (c->elements.empty() && !c->complete);
}

bool MFnComponent::isComplete(MStatus* ReturnStatus) const {
    auto c = host::dataOf<host::ComponentData>(object_);
    setStatus(ReturnStatus, c);
    return c && c->complete;
}

MStatus MFnComponent::setComplete(bool completeFlag) {
    auto c = host::dataOf<host::ComponentData>(object_);
    if (!c) return MS::kFailure;
    c->complete = completeFlag;
    return MS::kSuccess;
}

MFnSingleIndexedComponent::MFnSingleIndexedComponent(MObject& object, MStatus* ReturnStatus) {
    host::initFunctionSet(*this, object, ReturnStatus);
}
MFnSingleIndexedComponent::MFnSingleIndexedComponent(const MObject& object, MStatus* ReturnStatus) {
    host::initFunctionSet(*this, object, ReturnStatus);
}

MObject MFnSingleIndexedComponent::create(MFn::Type compType, MStatus* ReturnStatus) {
    host::ComponentType type;
    if (!componentTypeFor(compType, type)) {
        setStatus(ReturnStatus, false);
        return MObject();
    }
    auto component = std::make_shared<host::ComponentData>();
    component->type = type;
    object_ = host::ObjectRef::ofData(component);
    setStatus(ReturnStatus, true);
    return object_;
}

MStatus MFnSingleIndexedComponent::addElement(int element) {
    auto c = host::dataOf<host::ComponentData>(object_);
    if (!c || element < 0) return MS::kFailure;
    c->elements.push_back(element);
    return MS::kSuccess;
}

MStatus MFnSingleIndexedComponent::addElements(MIntArray& elements) {
    auto c = host::dataOf<host::ComponentData>(object_);
    if (!c) return MS::kFailure;
    const auto& v = elements.vec();
    c->elements.reserve(c->elements.size() + v.size());
    for (int e : v)
        if (e >= 0) c->elements.push_back(e);
    return MS::kSuccess;
}

int MFnSingleIndexedComponent::element(int index, MStatus* ReturnStatus) const {
    auto c = host::dataOf<host::ComponentData>(object_);
    const bool ok = c && index >= 0 && static_cast<std::size_t>(index) < c->elements.size();
    setStatus(ReturnStatus, ok);
    return ok ? c->elements[static_cast<std::size_t>(index)] : -1;
}

MStatus MFnSingleIndexedComponent::getElements(MIntArray& elements) const {
    auto c = host::dataOf<host::ComponentData>(object_);
    if (!c) return MS::kFailure;
    elements.vec() = c->elements;
    return MS::kSuccess;
}

MStatus MFnSingleIndexedComponent::setCompleteData(int numElements) {
    auto c = host::dataOf<host::ComponentData>(object_);
    if (!c || numElements < 0) return MS::kFailure;
    c->complete = true;
    c->elements.resize(static_cast<std::size_t>(numElements));
    for (int i = 0; i < numElements; ++i) c->elements[static_cast<std::size_t>(i)] = i;
    return MS::kSuccess;
}

MStatus MFnSingleIndexedComponent::getCompleteData(int& numElements) const {
    auto c = host::dataOf<host::ComponentData>(object_);
    if (!c || !c->complete) return MS::kFailure;
    numElements = static_cast<int>(c->elements.size());
    return MS::kSuccess;
}

MFnComponentListData::MFnComponentListData(MObject& object, MStatus* ReturnStatus) {
    host::initFunctionSet(*this, object, ReturnStatus);
}
MFnComponentListData::MFnComponentListData(const MObject& object, MStatus* ReturnStatus) {
    host::initFunctionSet(*this, object, ReturnStatus);
}

bool MFnComponentListData::accepts(const MObject& object) const {
    return host::dataOf<host::ComponentListData>(object) != nullptr;
}

unsigned int MFnComponentListData::length(MStatus* ReturnStatus) const {
    auto d = host::dataOf<host::ComponentListData>(object_);
    setStatus(ReturnStatus, d);
    return d ? static_cast<unsigned int>(d->components.size()) : 0u;
}

MObject MFnComponentListData::operator[](unsigned int index) const {
    auto d = host::dataOf<host::ComponentListData>(object_);
    if (!d || index >= d->components.size()) return MObject();
    return host::ObjectRef::ofData(d->components[index]->clone());
}

MStatus MFnComponentListData::add(MObject& component) {
    auto d = host::dataOf<host::ComponentListData>(object_);
    auto c = host::dataOf<host::ComponentData>(component);
    if (!d || !c) return MS::kInvalidParameter;
    d->components.push_back(std::make_shared<const host::ComponentData>(*c));
    return MS::kSuccess;
}

MStatus MFnComponentListData::clear() {
    auto d = host::dataOf<host::ComponentListData>(object_);
    if (!d) return MS::kFailure;
    d->components.clear();
    return MS::kSuccess;
}

bool MFnComponentListData::has(const MObject& component) const {
    auto d = host::dataOf<host::ComponentListData>(object_);
    auto c = host::dataOf<host::ComponentData>(component);
    if (!d || !c) return false;
    for (const auto& existing : d->components)
        if (existing->type == c->type && existing->elements == c->elements) return true;
    return false;
}

MObject MFnComponentListData::create(MStatus* ReturnStatus) {
    object_ = host::ObjectRef::ofData(std::make_shared<host::ComponentListData>());
    setStatus(ReturnStatus, true);
    return object_;
}
