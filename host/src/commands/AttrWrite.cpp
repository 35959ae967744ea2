#include "commands/AttrWrite.h"

#include "commands/ConnectedPlugs.h"
#include "commands/MeshAttrs.h"
#include "commands/TextValues.h"
#include "commands/TypedValues.h"
#include "engine/Scene.h"

#include <algorithm>
#include <cfloat>
#include <climits>
#include <cmath>

namespace host {

namespace {

std::string countText(uint64_t expected, std::size_t found) {
    return "(expected " + std::to_string(expected) + ", found " + std::to_string(found) + ").";
}

bool tooMuch(const PlugRange& range, uint64_t expected, std::size_t found, std::string& error) {
    error =
        "too much data provided for " + scene().plugName(range.first()) + " " + countText(expected, found);
    return false;
}

bool notEnough(const PlugRange& range, uint64_t expected, std::size_t found, std::string& error) {
    error =
        "not enough data provided for " + scene().plugName(range.first()) + " " + countText(expected, found);
    return false;
}

bool checkConnections(const PlugRange& range, std::string& error) {
    const ConnectedPlugs connected(*range.first().node());
    for (uint64_t i = 0; !connected.empty() && i < range.count(); ++i) {
        const Plug plug = range.at(i);
        if (connected.blocks(plug)) {
            error = "The attribute '" + scene().plugName(plug) +
                    "' is locked or connected and cannot be modified.";
            return false;
        }
    }
    return true;
}

bool readValue(const Token& token, double& out, std::string& error) {
    bool flag = false;
    if (numberFromText(token.text, out)) return true;
    if (boolFromText(token.text, flag)) {
        out = flag ? 1.0 : 0.0;
        return true;
    }
    error = "'" + token.text + "' is not a number.";
    return false;
}

// The geometry part of a numeric write to a mesh's .vt or .ed: which element comes first and which fields are
// given.
bool writeMeshNumbers(const PlugRange& range, int stride, const std::vector<double>& values,
                      std::string& error) {
    const Plug& first = range.first();
    const MeshArray array = meshArrayOf(first);
    if (array != MeshArray::Points && array != MeshArray::Edges) return true;
    const uint32_t index = range.ranged() ? range.firstIndex() : first.indexAt(0);
    const int firstField = first.isCompound() ? 0 : first.attr()->index;
    Node& node = *first.node();
    const std::size_t count = static_cast<std::size_t>(range.count());
    return array == MeshArray::Points ? writeMeshPoints(node, index, count, firstField, stride, values, error)
                                      : writeMeshEdges(node, index, count, firstField, stride, values, error);
}

// An attribute made up for a file's data remembers the type of the value last written to it, so
// that it can be written back the same way.
void rememberType(const Plug& plug, const std::string& typeName) {
    if (plug.attr()->madeUp && plug.attr()->type == AttrType::Generic)
        const_cast<AttrSpec*>(plug.attr())->typeName = typeName;
}

bool payloadFits(const AttrSpec& attr, const PayloadType& payload) {
    switch (payload.kind) {
    case PayloadKind::Data:
        return attr.type == AttrType::Data && attr.dataKind == payload.dataKind;
    case PayloadKind::String:
        return attr.type == AttrType::String;
    case PayloadKind::Matrix:
        return attr.type == AttrType::Matrix ||
               (attr.type == AttrType::Data && attr.dataKind == DataKind::Matrix);
    case PayloadKind::EmptyMesh:
        return attr.type == AttrType::Data && attr.dataKind == DataKind::Mesh;
    default:
        return false;
    }
}

// The numeric value a leaf of this type stores.
Value numericValue(const AttrSpec& attr, double value) {
    switch (attr.type) {
    case AttrType::Bool:
        return value != 0.0;
    case AttrType::Int:
    case AttrType::Enum:
        return static_cast<int>(std::clamp(std::round(value), double(INT_MIN), double(INT_MAX)));
    case AttrType::Float:
        return static_cast<double>(static_cast<float>(std::clamp(value, -double(FLT_MAX), double(FLT_MAX))));
    default:
        return fromUiUnits(attr, value);
    }
}

} // namespace

bool writeNumbers(const PlugRange& range, int stride, TokenCursor& in, std::string& error) {
    const uint64_t needed = range.count() * static_cast<uint64_t>(stride);
    if (in.remaining() < needed) return notEnough(range, needed, in.remaining(), error);
    if (in.remaining() > needed) return tooMuch(range, needed, in.remaining(), error);
    std::vector<double> values(static_cast<std::size_t>(needed));
    for (double& v : values)
        if (!readValue(in.next(), v, error)) return false;
    if (!checkConnections(range, error) || !writeMeshNumbers(range, stride, values, error)) return false;
    const AttrSpec* attr = range.first().attr();
    for (uint64_t i = 0; i < range.count(); ++i) {
        const Plug plug = range.at(i);
        const double* v = values.data() + i * static_cast<uint64_t>(stride);
        if (!plug.isCompound()) {
            plug.setValue(numericValue(*attr, *v));
            continue;
        }
        std::vector<Slot>& children = plug.slotForWrite()->childSlots(attr->children.size());
        for (int k = 0; k < stride; ++k)
            children[static_cast<std::size_t>(k)].value =
                numericValue(*attr->children[static_cast<std::size_t>(k)], v[k]);
    }
    range.first().node()->touch();
    return true;
}

bool writeSparseRows(const PlugRange& range, TokenCursor& in, std::string& error) {
    std::vector<std::vector<std::pair<uint32_t, double>>> rows;
    rows.reserve(static_cast<std::size_t>(std::min<uint64_t>(range.count(), in.remaining())));
    for (uint64_t i = 0; i < range.count(); ++i) {
        int count = 0;
        if (in.atEnd()) return notEnough(range, range.count() - i, 0, error);
        if (!integerFromText(in.next().text, count) || count < 0) {
            error = "each row of " + scene().plugName(range.first()) + " must start with a count of values.";
            return false;
        }
        if (in.remaining() < 2 * static_cast<std::size_t>(count))
            return notEnough(range, 2 * static_cast<uint64_t>(count), in.remaining(), error);
        auto& row = rows.emplace_back();
        row.reserve(static_cast<std::size_t>(count));
        for (int k = 0; k < count; ++k) {
            int index = 0;
            double value = 0.0;
            if (!integerFromText(in.next().text, index) || index < 0) {
                error = "an element index of " + scene().plugName(range.first()) + " is not a valid index.";
                return false;
            }
            if (!readValue(in.next(), value, error)) return false;
            row.emplace_back(static_cast<uint32_t>(index), value);
        }
    }
    if (!in.atEnd()) return tooMuch(range, 0, in.remaining(), error);
    if (!checkConnections(range, error)) return false;
    const AttrSpec* attr = range.first().attr();
    for (std::size_t i = 0; i < rows.size(); ++i) {
        const Plug array = range.at(i);
        array.slotForWrite();
        array.clearElements();
        for (const auto& [index, value] : rows[i]) array.element(index).setValue(numericValue(*attr, value));
    }
    return true;
}

bool writePayloads(const PlugRange& range, const std::string& typeName, TokenCursor& in, std::string& error) {
    const PayloadType payload = payloadType(typeName);
    const AttrSpec* attr = range.first().attr();
    const bool generic = attr->type == AttrType::Generic;
    if (!generic && !payloadFits(*attr, payload)) {
        error = payload.kind == PayloadKind::Unknown ? "unknown data type '" + typeName + "'."
                                                     : "the attribute " + scene().plugName(range.first()) +
                                                           " does not take -type " + typeName + " data.";
        return false;
    }
    if (range.first().isArray()) {
        error = scene().plugName(range.first()) + " is an array: give an element index or a range.";
        return false;
    }
    std::vector<Value> values;
    values.reserve(static_cast<std::size_t>(std::min<uint64_t>(range.count(), in.remaining() + 1)));
    for (uint64_t i = 0; i < range.count(); ++i) {
        if (in.atEnd()) return notEnough(range, range.count(), static_cast<std::size_t>(i), error);
        // A type the host does not model is kept as written, on generic attributes only.
        if (payload.kind == PayloadKind::Unknown) {
            if (range.ranged()) {
                error = "data of the unknown type '" + typeName + "' cannot be split over a range.";
                return false;
            }
            values.push_back(rawPayload(in));
        } else if (!readPayload(typeName, in, values.emplace_back(), error)) {
            return false;
        }
    }
    if (!in.atEnd())
        return tooMuch(range, range.count(), static_cast<std::size_t>(range.count()) + in.remaining(), error);
    if (!checkConnections(range, error)) return false;
    if (meshArrayOf(range.first()) == MeshArray::Faces) {
        std::vector<const std::vector<int>*> faces;
        for (const Value& v : values)
            faces.push_back(&dataAs<PolyFacesData>(std::get<DataPtr>(v))->faces.front());
        const uint32_t index = range.ranged() ? range.firstIndex() : range.first().indexAt(0);
        if (!writeMeshFaces(*range.first().node(), index, faces, error)) return false;
    }
    if (payload.kind == PayloadKind::EmptyMesh) return true;
    for (std::size_t i = 0; i < values.size(); ++i) range.at(i).setValue(std::move(values[i]));
    if (generic) rememberType(range.first(), typeName);
    return true;
}

bool writeGenericValues(const PlugRange& range, TokenCursor& in, std::string& error) {
    const uint64_t count = range.count();
    if (in.remaining() < count) return notEnough(range, count, in.remaining(), error);
    if (in.remaining() % count != 0) {
        error = "the values for " + scene().plugName(range.first()) + " do not divide evenly over its range.";
        return false;
    }
    const std::size_t perPlug = in.remaining() / static_cast<std::size_t>(count);
    std::vector<Value> values;
    values.reserve(static_cast<std::size_t>(count));
    for (uint64_t i = 0; i < count; ++i) {
        if (perPlug == 1) {
            const Token& token = in.next();
            double number = 0.0;
            bool flag = false;
            if (numberFromText(token.text, number))
                values.emplace_back(number);
            else if (!token.quoted && boolFromText(token.text, flag))
                values.emplace_back(flag);
            else
                values.emplace_back(token.text);
            continue;
        }
        auto data = std::make_shared<DoubleArrayData>();
        data->values.resize(perPlug);
        for (double& v : data->values)
            if (!readValue(in.next(), v, error)) return false;
        values.emplace_back(DataPtr(std::move(data)));
    }
    if (!checkConnections(range, error)) return false;
    for (std::size_t i = 0; i < values.size(); ++i) range.at(i).setValue(std::move(values[i]));
    rememberType(range.first(), "");
    return true;
}

} // namespace host
