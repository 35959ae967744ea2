#include "engine/Data.h"
#include "engine/Value.h"

namespace host {

const char* dataKindName(DataKind kind) {
    switch (kind) {
    case DataKind::PointArray:
        return "pointArray";
    case DataKind::ComponentList:
        return "componentList";
    case DataKind::IntArray:
        return "Int32Array";
    case DataKind::DoubleArray:
        return "doubleArray";
    case DataKind::StringArray:
        return "stringArray";
    case DataKind::Matrix:
        return "matrix";
    case DataKind::Mesh:
        return "mesh";
    case DataKind::Component:
        return "component";
    case DataKind::PolyFaces:
        return "polyFaces";
    }
    return "data";
}

bool valueIsNumeric(const Value& value) {
    return std::holds_alternative<bool>(value) || std::holds_alternative<int>(value) ||
           std::holds_alternative<double>(value);
}

double valueAsDouble(const Value& value) {
    if (auto b = std::get_if<bool>(&value)) return *b ? 1.0 : 0.0;
    if (auto i = std::get_if<int>(&value)) return *i;
    if (auto d = std::get_if<double>(&value)) return *d;
    return 0.0;
}

} // namespace host
