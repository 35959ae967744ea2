#include "files/ValueText.h"

#include "commands/TypedValues.h"
#include "engine/ComponentText.h"
#include "files/MaText.h"

#include <charconv>

namespace host {

namespace {

// The text of a generic value of a type the host does not model: its tokens, as read.
bool isRawType(const std::string& typeName) {
    return !typeName.empty() && payloadType(typeName).kind == PayloadKind::Unknown;
}

void appendCount(std::size_t count, ValueList& list) {
    appendInt(list.next(), static_cast<long long>(count));
}

void appendDoubles(const std::vector<double>& values, ValueList& list) {
    for (double v : values) appendDouble(list.next(), v);
}

void appendData(const DataObject& data, const std::string& typeWord, ValueList& list) {
    switch (data.kind) {
    case DataKind::PointArray: {
        const auto& points = static_cast<const PointArrayData&>(data).points;
        appendCount(points.size(), list);
        for (const Point4& p : points)
            for (double c : {p.x, p.y, p.z, p.w}) appendDouble(list.next(), c);
        return;
    }
    case DataKind::ComponentList: {
        std::vector<std::string> items;
        for (const auto& component : static_cast<const ComponentListData&>(data).components)
            for (std::string& item : componentItems(*component)) items.push_back(std::move(item));
        appendCount(items.size(), list);
        for (const std::string& item : items) appendQuoted(list.next(), item);
        return;
    }
    case DataKind::IntArray: {
        const auto& values = static_cast<const IntArrayData&>(data).values;
        appendCount(values.size(), list);
        for (int v : values) appendInt(list.next(), v);
        return;
    }
    case DataKind::DoubleArray: {
        const auto& values = static_cast<const DoubleArrayData&>(data).values;
        if (typeWord == "doubleArray") appendCount(values.size(), list);
        appendDoubles(values, list);
        return;
    }
    case DataKind::StringArray: {
        const auto& values = static_cast<const StringArrayData&>(data).values;
        if (isRawType(typeWord)) {
            for (const std::string& token : values) list.next() += token;
            return;
        }
        appendCount(values.size(), list);
        for (const std::string& v : values) appendQuoted(list.next(), v);
        return;
    }
    case DataKind::Matrix:
        for (double v : static_cast<const MatrixData&>(data).m) appendDouble(list.next(), v);
        return;
    case DataKind::PolyFaces:
        for (const auto& face : static_cast<const PolyFacesData&>(data).faces) {
            list.newLine() += 'f';
            appendCount(face.size(), list);
            for (int edge : face) appendInt(list.next(), edge);
        }
        return;
    case DataKind::Mesh:
    case DataKind::Component:
        return;
    }
}

// A value stored in other units than files show it in (angles: radians stored, degrees shown): the
// shortest text that reads back to a value which writes as the same text, so that a scene saved,
// read and saved again gives the same file although not every stored value can be shown exactly.
void appendConverted(const AttrSpec& attr, double stored, std::string& out) {
    std::string text;
    appendDouble(text, toUiUnits(attr, stored));
    for (int i = 0; i < 4; ++i) {
        double shown = 0.0;
        std::from_chars(text.data(), text.data() + text.size(), shown);
        std::string again;
        appendDouble(again, toUiUnits(attr, fromUiUnits(attr, shown)));
        if (again == text) break;
        text = std::move(again);
    }
    out += text;
}

} // namespace

bool writableValue(const AttrSpec& attr, const Value& value) {
    if (attr.type == AttrType::Message || attr.type == AttrType::Compound) return false;
    if (std::holds_alternative<std::monostate>(value)) return false;
    if (auto data = std::get_if<DataPtr>(&value))
        return *data && (*data)->kind != DataKind::Mesh && (*data)->kind != DataKind::Component;
    return true;
}

std::string typeWordOf(const AttrSpec& attr, const Value& value) {
    const bool generic = attr.type == AttrType::Generic;
    if (std::holds_alternative<std::string>(value))
        return attr.type == AttrType::String || attr.typeName == "string" ? "string" : "";
    const auto* data = std::get_if<DataPtr>(&value);
    if (!data || !*data) return "";
    switch ((*data)->kind) {
    case DataKind::PointArray:
    case DataKind::ComponentList:
    case DataKind::IntArray:
    case DataKind::Matrix:
    case DataKind::PolyFaces:
        return dataKindName((*data)->kind);
    case DataKind::StringArray:
        return generic && isRawType(attr.typeName) ? attr.typeName : "stringArray";
    case DataKind::DoubleArray:
        // Generic values keep the form they were given in: untyped, a tuple type, or doubleArray.
        if (!generic) return "doubleArray";
        return attr.typeName == "doubleArray" || payloadType(attr.typeName).kind == PayloadKind::Numbers
                   ? attr.typeName
                   : "";
    case DataKind::Mesh:
    case DataKind::Component:
        break;
    }
    return "";
}

void appendNumber(const AttrSpec& attr, const Value& value, std::string& out) {
    const double number = valueAsDouble(value);
    switch (attr.type) {
    case AttrType::Bool:
        out += number != 0.0 ? "yes" : "no";
        return;
    case AttrType::Int:
    case AttrType::Enum:
        appendInt(out, static_cast<long long>(number));
        return;
    case AttrType::Float:
        appendFloat(out, static_cast<float>(number));
        return;
    case AttrType::Double:
        if (toUiUnits(attr, 1.0) != 1.0) {
            appendConverted(attr, number, out);
            return;
        }
        break;
    default:
        break;
    }
    if (std::holds_alternative<bool>(value))
        out += number != 0.0 ? "yes" : "no";
    else if (std::holds_alternative<int>(value))
        appendInt(out, static_cast<long long>(number));
    else
        appendDouble(out, number);
}

void appendValueText(const AttrSpec& attr, const Value& value, const std::string& typeWord, ValueList& list) {
    if (auto text = std::get_if<std::string>(&value)) {
        appendQuoted(list.next(), *text);
        return;
    }
    if (auto data = std::get_if<DataPtr>(&value)) {
        if (*data) appendData(**data, typeWord, list);
        return;
    }
    appendNumber(attr, value, list.next());
}

} // namespace host
