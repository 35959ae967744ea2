#pragma once
// What an MObject refers to: a node, an attribute of a node type, or a data object (point array,
// component list, component, mesh, ...). Data objects are mutable while function sets build them;
// plugs store a copy.
#include "engine/Node.h"

#include <maya/MObject.h>

#include <memory>

namespace host {

struct ObjectRef {
    NodePtr node;
    const AttrSpec* attr = nullptr;
    std::shared_ptr<DataObject> data;

    static MObject ofNode(NodePtr node);
    static MObject ofAttr(const AttrSpec* attr);
    static MObject ofData(std::shared_ptr<DataObject> data);
};

// The node behind an MObject, or null (also for deleted nodes).
NodePtr nodeOf(const MObject& object);
// The DAG node behind an MObject, or null.
NodePtr dagNodeOf(const MObject& object);
const AttrSpec* attrOf(const MObject& object);
std::shared_ptr<DataObject> dataOf(const MObject& object);
template <class T> T* dataOf(const MObject& object) {
    const auto& ref = object.ref();
    DataObject* d = ref ? ref->data.get() : nullptr;
    return d && d->kind == T::staticKind ? static_cast<T*>(d) : nullptr;
}

// The function-set type a node type or data kind reports.
MFn::Type apiTypeOfData(const DataObject& data);

} // namespace host
