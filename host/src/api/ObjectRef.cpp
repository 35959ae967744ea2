#include "api/ObjectRef.h"

#include <maya/MObject.h>

namespace host {

MObject ObjectRef::ofNode(NodePtr node) {
    if (!node) return MObject();
    auto ref = std::make_shared<ObjectRef>();
    ref->node = std::move(node);
    return MObject(std::move(ref));
}

MObject ObjectRef::ofAttr(const AttrSpec* attr) {
    if (!attr) return MObject();
    auto ref = std::make_shared<ObjectRef>();
    ref->attr = attr;
    return MObject(std::move(ref));
}

MObject ObjectRef::ofData(std::shared_ptr<DataObject> data) {
    if (!data) return MObject();
    auto ref = std::make_shared<ObjectRef>();
    ref->data = std::move(data);
    return MObject(std::move(ref));
}

NodePtr nodeOf(const MObject& object) {
    const auto& ref = object.ref();
    return ref && ref->node && ref->node->alive() ? ref->node : nullptr;
}

NodePtr dagNodeOf(const MObject& object) {
    NodePtr node = nodeOf(object);
    return node && node->isDag() ? node : nullptr;
}

const AttrSpec* attrOf(const MObject& object) {
    const auto& ref = object.ref();
    return ref ? ref->attr : nullptr;
}

std::shared_ptr<DataObject> dataOf(const MObject& object) {
    const auto& ref = object.ref();
    return ref ? ref->data : nullptr;
}

MFn::Type apiTypeOfData(const DataObject& data) {
    switch (data.kind) {
    case DataKind::PointArray:
        return MFn::kPointArrayData;
    case DataKind::ComponentList:
        return MFn::kComponentListData;
    case DataKind::IntArray:
        return MFn::kIntArrayData;
    case DataKind::DoubleArray:
        return MFn::kDoubleArrayData;
    case DataKind::StringArray:
        return MFn::kStringArrayData;
    case DataKind::Matrix:
        return MFn::kMatrixData;
    case DataKind::Mesh:
        return MFn::kMeshData;
    case DataKind::PolyFaces:
        return MFn::kData;
    case DataKind::Component:
        switch (static_cast<const ComponentData&>(data).type) {
        case ComponentType::Vertex:
            return MFn::kMeshVertComponent;
        case ComponentType::Edge:
            return MFn::kMeshEdgeComponent;
        case ComponentType::Face:
            return MFn::kMeshPolygonComponent;
        case ComponentType::FaceVertex:
            return MFn::kMeshVtxFaceComponent;
        case ComponentType::Other:
            return MFn::kSingleIndexedComponent;
        }
    }
    return MFn::kData;
}

} // namespace host

MObject MObject::kNullObj;

bool MObject::isNull() const {
    if (!ref_) return true;
    if (ref_->node) return !ref_->node->alive();
    return !ref_->attr && !ref_->data;
}

MFn::Type MObject::apiType() const {
    if (isNull()) return MFn::kInvalid;
    if (ref_->node) return ref_->node->type().apiType;
    if (ref_->attr) {
        switch (ref_->attr->type) {
        case host::AttrType::Compound:
            return MFn::kCompoundAttribute;
        case host::AttrType::Matrix:
            return MFn::kMatrixAttribute;
        case host::AttrType::Message:
            return MFn::kMessageAttribute;
        case host::AttrType::Enum:
            return MFn::kEnumAttribute;
        case host::AttrType::Generic:
            return MFn::kGenericAttribute;
        case host::AttrType::String:
        case host::AttrType::Data:
            return MFn::kTypedAttribute;
        default:
            return MFn::kNumericAttribute;
        }
    }
    return host::apiTypeOfData(*ref_->data);
}

bool MObject::hasFn(MFn::Type fs) const {
    if (isNull()) return false;
    if (ref_->node) return ref_->node->type().hasFn(fs);
    const MFn::Type own = apiType();
    if (fs == own || fs == MFn::kBase) return true;
    if (ref_->attr) return fs == MFn::kAttribute;
    if (ref_->data->kind == host::DataKind::Component)
        return fs == MFn::kComponent || fs == MFn::kSingleIndexedComponent;
    return fs == MFn::kData;
}

const char* MObject::apiTypeStr() const {
    if (isNull()) return "kInvalid";
    if (ref_->node) return ref_->node->type().name.c_str();
    return ref_->attr ? "kAttribute" : "kData";
}

bool MObject::operator==(const MObject& other) const {
    if (isNull() || other.isNull()) return isNull() == other.isNull();
    if (ref_ == other.ref_) return true;
    if (ref_->node || other.ref_->node) return ref_->node == other.ref_->node;
    if (ref_->attr || other.ref_->attr) return ref_->attr == other.ref_->attr;
    return ref_->data == other.ref_->data;
}
