#pragma once
// Typed data values held by attributes: point arrays, component lists, int/double/string arrays,
// matrices and mesh geometry. A data object is never changed after it is stored in a plug; writers
// build a new one, so readers may keep a shared pointer without copying.
#include <array>
#include <memory>
#include <string>
#include <vector>

namespace host {

enum class DataKind {
    PointArray,
    ComponentList,
    IntArray,
    DoubleArray,
    StringArray,
    Matrix,
    Mesh,
    Component,
    PolyFaces,
};

struct DataObject {
    explicit DataObject(DataKind k) : kind(k) {}
    virtual ~DataObject() = default;
    virtual std::shared_ptr<DataObject> clone() const = 0;
    DataKind kind; // fixed by the concrete type; assignment copies between objects of one type
};

using DataPtr = std::shared_ptr<const DataObject>;

template <DataKind K> struct DataOf : DataObject {
    static constexpr DataKind staticKind = K;
    DataOf() : DataObject(K) {}
};

struct Point4 {
    double x = 0, y = 0, z = 0, w = 1;
};

struct PointArrayData : DataOf<DataKind::PointArray> {
    std::vector<Point4> points;
    std::shared_ptr<DataObject> clone() const override { return std::make_shared<PointArrayData>(*this); }
};

struct IntArrayData : DataOf<DataKind::IntArray> {
    std::vector<int> values;
    std::shared_ptr<DataObject> clone() const override { return std::make_shared<IntArrayData>(*this); }
};

struct DoubleArrayData : DataOf<DataKind::DoubleArray> {
    std::vector<double> values;
    std::shared_ptr<DataObject> clone() const override { return std::make_shared<DoubleArrayData>(*this); }
};

struct StringArrayData : DataOf<DataKind::StringArray> {
    std::vector<std::string> values;
    std::shared_ptr<DataObject> clone() const override { return std::make_shared<StringArrayData>(*this); }
};

struct MatrixData : DataOf<DataKind::Matrix> {
    std::array<double, 16> m{1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1};
    std::shared_ptr<DataObject> clone() const override { return std::make_shared<MatrixData>(*this); }
};

// Which elements of a mesh a component names.
enum class ComponentType { Vertex, Edge, Face, FaceVertex, Other };

// A single-indexed component: an ordered list of element indices of one type. `complete` marks
// "all elements" ([*]) whose count is only known from the mesh.
struct ComponentData : DataOf<DataKind::Component> {
    ComponentType type = ComponentType::Vertex;
    std::vector<int> elements;
    bool complete = false;
    std::string typeName; // the text before '[' as written ("vtx", "e", "f", ...)
    std::shared_ptr<DataObject> clone() const override { return std::make_shared<ComponentData>(*this); }
};

struct ComponentListData : DataOf<DataKind::ComponentList> {
    std::vector<std::shared_ptr<const ComponentData>> components;
    std::shared_ptr<DataObject> clone() const override { return std::make_shared<ComponentListData>(*this); }
};

// Maya's ".fc" payload: per face, the signed edge references (-i-1 for edge i reversed).
struct PolyFacesData : DataOf<DataKind::PolyFaces> {
    std::vector<std::vector<int>> faces;
    std::shared_ptr<DataObject> clone() const override { return std::make_shared<PolyFacesData>(*this); }
};

template <class T> const T* dataAs(const DataPtr& data) {
    return data && data->kind == T::staticKind ? static_cast<const T*>(data.get()) : nullptr;
}

const char* dataKindName(DataKind kind);

} // namespace host
