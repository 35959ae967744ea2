// getAttr: a plug's value with Maya's result types, its size (-s) or its type (-type).
#include "commands/ArgReader.h"
#include "commands/CommandGroups.h"
#include "commands/MeshAttrs.h"
#include "commands/Names.h"
#include "commands/PlugRange.h"
#include "engine/ComponentText.h"
#include "engine/Evaluation.h"
#include "engine/Scene.h"
#include "engine/TransformMatrix.h"

namespace host {

namespace {

std::string typeOf(const Plug& plug) {
    const AttrSpec& attr = *plug.attr();
    if (plug.isArray() || (attr.isCompound() && attr.typeName.empty())) return "TdataCompound";
    if (!attr.typeName.empty()) return attr.typeName;
    if (attr.type == AttrType::Data) return dataKindName(attr.dataKind);
    const Value value = plug.value();
    if (std::holds_alternative<bool>(value)) return "bool";
    if (std::holds_alternative<int>(value)) return "long";
    if (std::holds_alternative<double>(value)) return "double";
    if (std::holds_alternative<std::string>(value)) return "string";
    if (auto data = std::get_if<DataPtr>(&value); data && *data) return dataKindName((*data)->kind);
    return "";
}

CommandResult dataResult(const DataObject& data) {
    switch (data.kind) {
    case DataKind::ComponentList: {
        std::vector<std::string> items;
        for (const auto& component : static_cast<const ComponentListData&>(data).components)
            for (std::string& item : componentItems(*component)) items.push_back(std::move(item));
        return items;
    }
    case DataKind::PointArray: {
        std::vector<double> flat;
        for (const Point4& p : static_cast<const PointArrayData&>(data).points)
            flat.insert(flat.end(), {p.x, p.y, p.z, p.w});
        return flat;
    }
    case DataKind::IntArray:
        return static_cast<const IntArrayData&>(data).values;
    case DataKind::DoubleArray:
        return static_cast<const DoubleArrayData&>(data).values;
    case DataKind::StringArray:
        return static_cast<const StringArrayData&>(data).values;
    case DataKind::Matrix: {
        const auto& m = static_cast<const MatrixData&>(data).m;
        return std::vector<double>(m.begin(), m.end());
    }
    case DataKind::PolyFaces: {
        std::vector<int> flat;
        for (const auto& face : static_cast<const PolyFacesData&>(data).faces)
            flat.insert(flat.end(), face.begin(), face.end());
        return flat;
    }
    default:
        return std::monostate{};
    }
}

// An unset data attribute reads as empty data of its kind.
CommandResult emptyResult(const AttrSpec& attr) {
    if (attr.type == AttrType::Matrix) return dataResult(MatrixData());
    switch (attr.dataKind) {
    case DataKind::ComponentList:
    case DataKind::StringArray:
        return std::vector<std::string>();
    case DataKind::IntArray:
    case DataKind::PolyFaces:
        return std::vector<int>();
    case DataKind::Matrix:
        return dataResult(MatrixData());
    default:
        return std::vector<double>();
    }
}

// A numeric plug's values in order (a leaf, a compound's leaves, an array's elements); false if
// something below is not numeric.
bool appendNumbers(const Plug& plug, std::vector<double>& out) {
    const MeshArray mesh = meshArrayOf(plug);
    if ((mesh == MeshArray::Points || mesh == MeshArray::Edges) && !plug.isArray()) {
        std::array<double, 3> element{};
        if (mesh == MeshArray::Points ? meshPoint(*plug.node(), plug.indexAt(0), element)
                                      : meshEdge(*plug.node(), plug.indexAt(0), element)) {
            if (plug.isCompound())
                out.insert(out.end(), element.begin(), element.end());
            else
                out.push_back(element[static_cast<std::size_t>(plug.attr()->index)]);
            return true;
        }
    }
    if (plug.isArray()) {
        if (mesh == MeshArray::Points || mesh == MeshArray::Edges) {
            for (uint32_t i = 0; i < meshArraySize(*plug.node(), mesh); ++i)
                if (!appendNumbers(plug.element(i), out)) return false;
            return true;
        }
        for (uint32_t index : plug.existingIndices())
            if (!appendNumbers(plug.element(index), out)) return false;
        return true;
    }
    if (plug.isCompound()) {
        for (std::size_t k = 0; k < plug.attr()->children.size(); ++k)
            if (!appendNumbers(plug.child(k), out)) return false;
        return true;
    }
    if (!plug.attr()->isNumeric()) return false;
    out.push_back(toUiUnits(*plug.attr(), valueAsDouble(evaluatedValue(plug))));
    return true;
}

bool valueOf(const Plug& plug, CommandResult& result, std::string& error) {
    const AttrSpec& attr = *plug.attr();
    if (attr.type == AttrType::Data && attr.dataKind == DataKind::Mesh) {
        error = "the mesh data of " + scene().plugName(plug) + " cannot be shown.";
        return false;
    }
    Matrix computed;
    if (computedMatrix(plug, computed)) { // a DAG node's matrix outputs, the array plug included
        result = dataResult(*matrixData(computed));
        return true;
    }
    if (plug.isArray() || plug.isCompound() || meshArrayOf(plug) == MeshArray::Points ||
        meshArrayOf(plug) == MeshArray::Edges) {
        std::vector<double> numbers;
        if (!appendNumbers(plug, numbers)) {
            error =
                "the value of " + scene().plugName(plug) + " cannot be shown as numbers; read its elements.";
            return false;
        }
        // A single coordinate (".vt[3].vx") is a number, not a list.
        if (!plug.isArray() && !plug.isCompound() && numbers.size() == 1)
            result = numbers.front();
        else
            result = std::move(numbers);
        return true;
    }
    const Value value = evaluatedValue(plug);
    if (attr.type == AttrType::Message) {
        error = scene().plugName(plug) + " is a message attribute and has no value.";
        return false;
    }
    if (auto data = std::get_if<DataPtr>(&value)) {
        result = *data ? dataResult(**data) : emptyResult(attr);
        return true;
    }
    switch (attr.type) {
    case AttrType::Bool:
        result = valueAsDouble(value) != 0.0;
        return true;
    case AttrType::Int:
    case AttrType::Enum:
        result = static_cast<int>(valueAsDouble(value));
        return true;
    case AttrType::Float:
    case AttrType::Double:
        result = toUiUnits(attr, valueAsDouble(value));
        return true;
    default:
        break;
    }
    if (auto text = std::get_if<std::string>(&value))
        result = *text;
    else if (auto b = std::get_if<bool>(&value))
        result = *b;
    else if (auto i = std::get_if<int>(&value))
        result = *i;
    else if (auto d = std::get_if<double>(&value))
        result = *d;
    else
        result = emptyResult(attr);
    return true;
}

// The logical indices a multi has (every index of a mesh's geometry arrays).
bool multiIndices(const Plug& plug, CommandResult& result, std::string& error) {
    if (!plug.isArray()) {
        error = "-multiIndices needs a multi attribute; " + scene().plugName(plug) + " is not one.";
        return false;
    }
    std::vector<int> indices;
    const MeshArray mesh = meshArrayOf(plug);
    if (mesh != MeshArray::None && meshArraySize(*plug.node(), mesh) > 0) {
        for (std::size_t i = 0; i < meshArraySize(*plug.node(), mesh); ++i)
            indices.push_back(static_cast<int>(i));
    } else {
        for (uint32_t index : plug.existingIndices()) indices.push_back(static_cast<int>(index));
    }
    result = std::move(indices);
    return true;
}

// The values of an index range such as "pShape.vt[0:5]", element after element.
bool rangeValues(const std::string& name, CommandResult& result, std::string& error) {
    constexpr uint64_t kMaxElements = 1u << 24;
    PlugRange range;
    if (!range.resolve(name, error)) return false;
    if (range.count() > kMaxElements) {
        error = "the range of " + name + " is too long to read.";
        return false;
    }
    std::vector<double> numbers;
    for (uint64_t i = 0; i < range.count(); ++i) {
        const Plug plug = range.at(i);
        const MeshArray mesh = meshArrayOf(plug);
        if (mesh != MeshArray::None && mesh != MeshArray::Faces &&
            plug.indexAt(0) >= meshArraySize(*plug.node(), mesh)) {
            error = name + " reaches past the end of the mesh.";
            return false;
        }
        if (!appendNumbers(plug, numbers)) {
            error = "the value of " + name + " cannot be shown as numbers; read its elements.";
            return false;
        }
    }
    result = std::move(numbers);
    return true;
}

bool getAttrCommand(Invocation& inv) {
    static const FlagTable flags = {{"typ", "type", ""},
                                    {"s", "size", ""},
                                    {"sl", "silent", ""},
                                    {"t", "time", "d"},
                                    {"mi", "multiIndices", ""}};
    ArgReader args("getAttr", inv.statement.args);
    if (!args.parse(flags)) return false;
    if (args.positional().size() != 1) return args.fail("give exactly one attribute.");
    std::string error;
    const std::string& name = args.positional()[0]->text;
    if (name.find(':') != std::string::npos && name.find('[') != std::string::npos)
        return rangeValues(name, inv.result, error) || args.fail(error);
    const Plug plug = lookupPlug(name, &error);
    if (plug.isNull()) {
        messageLog().error(error);
        return false;
    }
    if (args.has("type")) {
        inv.result = typeOf(plug);
        return true;
    }
    if (args.has("multiIndices")) return multiIndices(plug, inv.result, error) || args.fail(error);
    if (args.has("size")) {
        const MeshArray mesh = meshArrayOf(plug);
        const std::size_t size = !plug.isArray()           ? 1
                                 : mesh != MeshArray::None ? meshArraySize(*plug.node(), mesh)
                                                           : plug.numElements();
        inv.result = static_cast<int>(std::min<std::size_t>(size, 0x7FFFFFFF));
        return true;
    }
    return valueOf(plug, inv.result, error) || args.fail(error);
}

} // namespace

void registerGetAttrCommand(CommandTable& table) {
    table.add("getAttr", getAttrCommand);
}

} // namespace host
