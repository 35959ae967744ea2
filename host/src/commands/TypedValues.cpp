#include "commands/TypedValues.h"

#include "commands/TextValues.h"
#include "engine/ComponentText.h"

#include <maya/MEulerRotation.h>
#include <maya/MMatrix.h>
#include <maya/MQuaternion.h>

#include <cmath>

namespace host {

namespace {

// The most elements one componentList may name, so that vtx[0:2000000000] is refused, not allocated.
constexpr long long kMaxListedElements = 1LL << 26;

std::string notEnough(const std::string& typeName, std::size_t expected, std::size_t found) {
    return "not enough data provided for the -type " + typeName + " (expected " + std::to_string(expected) +
           ", found " + std::to_string(found) + ").";
}

std::string notA(const char* what, const Token& token, const std::string& typeName) {
    return "'" + token.text + "' is not " + what + " in the -type " + typeName + " data.";
}

// A count followed by `perItem` tokens per item; checks that they are all there.
bool readCount(const std::string& typeName, TokenCursor& in, std::size_t perItem, std::size_t& count,
               std::string& error) {
    if (in.atEnd()) {
        error = notEnough(typeName, 1, 0);
        return false;
    }
    const Token& token = in.next();
    int value = 0;
    if (!integerFromText(token.text, value) || value < 0) {
        error = "the -type " + typeName + " data must start with a count, not '" + token.text + "'.";
        return false;
    }
    count = static_cast<std::size_t>(value);
    if (count * perItem > in.remaining()) {
        error = notEnough(typeName, count * perItem, in.remaining());
        return false;
    }
    return true;
}

bool readNumber(const std::string& typeName, TokenCursor& in, double& out, std::string& error) {
    const Token& token = in.next();
    if (numberFromText(token.text, out)) return true;
    error = notA("a number", token, typeName);
    return false;
}

bool readInt(const std::string& typeName, TokenCursor& in, int& out, std::string& error) {
    const Token& token = in.next();
    if (integerFromText(token.text, out)) return true;
    error = notA("an integer", token, typeName);
    return false;
}

bool readComponentList(const std::string& typeName, TokenCursor& in, Value& out, std::string& error) {
    std::size_t count = 0;
    if (!readCount(typeName, in, 1, count, error)) return false;
    auto list = std::make_shared<ComponentListData>();
    ComponentData* current = nullptr;
    long long total = 0;
    ComponentType type;
    std::string itemType;
    int first = 0, last = 0;
    bool all = false;
    for (std::size_t i = 0; i < count; ++i) {
        const Token& token = in.next();
        if (!parseComponentItem(token.text, type, itemType, first, last, all)) {
            error = "'" + token.text + "' is not a component in the -type " + typeName + " data.";
            return false;
        }
        total += all ? 0 : static_cast<long long>(last) - first + 1;
        if (total > kMaxListedElements) {
            error = "the -type " + typeName + " data names more than " + std::to_string(kMaxListedElements) +
                    " elements.";
            return false;
        }
        if (!current || current->complete || all || current->typeName != itemType) {
            auto component = std::make_shared<ComponentData>();
            component->typeName = itemType;
            component->type = type;
            component->complete = all;
            if (!all) component->elements.reserve(count - i);
            current = component.get();
            list->components.push_back(std::move(component));
        }
        if (!all)
            for (long long e = first; e <= last; ++e) current->elements.push_back(static_cast<int>(e));
    }
    out = DataPtr(std::move(list));
    return true;
}

bool readPointArray(const std::string& typeName, TokenCursor& in, Value& out, std::string& error) {
    std::size_t count = 0;
    if (!readCount(typeName, in, 4, count, error)) return false;
    auto data = std::make_shared<PointArrayData>();
    data->points.resize(count);
    for (Point4& p : data->points)
        for (double* c : {&p.x, &p.y, &p.z, &p.w})
            if (!readNumber(typeName, in, *c, error)) return false;
    out = DataPtr(std::move(data));
    return true;
}

bool readIntArray(const std::string& typeName, TokenCursor& in, Value& out, std::string& error) {
    std::size_t count = 0;
    if (!readCount(typeName, in, 1, count, error)) return false;
    auto data = std::make_shared<IntArrayData>();
    data->values.resize(count);
    for (int& v : data->values)
        if (!readInt(typeName, in, v, error)) return false;
    out = DataPtr(std::move(data));
    return true;
}

bool readDoubles(const std::string& typeName, TokenCursor& in, std::size_t count, Value& out,
                 std::string& error) {
    auto data = std::make_shared<DoubleArrayData>();
    data->values.resize(count);
    for (double& v : data->values)
        if (!readNumber(typeName, in, v, error)) return false;
    out = DataPtr(std::move(data));
    return true;
}

bool readStringArray(const std::string& typeName, TokenCursor& in, Value& out, std::string& error) {
    std::size_t count = 0;
    if (!readCount(typeName, in, 1, count, error)) return false;
    auto data = std::make_shared<StringArrayData>();
    data->values.reserve(count);
    for (std::size_t i = 0; i < count; ++i) data->values.push_back(in.next().text);
    out = DataPtr(std::move(data));
    return true;
}

MMatrix translation(double x, double y, double z) {
    MMatrix m;
    m.matrix[3][0] = x;
    m.matrix[3][1] = y;
    m.matrix[3][2] = z;
    return m;
}

MMatrix scaling(double x, double y, double z) {
    MMatrix m;
    m.matrix[0][0] = x;
    m.matrix[1][1] = y;
    m.matrix[2][2] = z;
    return m;
}

// "xform" followed by scale, rotate (radians), rotate order, translate, shear, scale pivot and its
// translation, rotate pivot and its translation, the rotate axis and joint orient quaternions
// (x y z w), the parent scale and whether it is compensated; composed in Maya's order
// SP^-1 S SH SP ST RP^-1 RA R JO RP RT IS T.
bool readXform(const std::string& typeName, TokenCursor& in, MatrixData& out, std::string& error) {
    constexpr std::size_t kNumbers = 36;
    if (in.remaining() < kNumbers + 1) {
        error = notEnough(typeName, kNumbers + 1, in.remaining());
        return false;
    }
    double v[kNumbers];
    for (double& x : v)
        if (!readNumber(typeName, in, x, error)) return false;
    bool compensate = false;
    const Token& flag = in.next();
    if (!boolFromText(flag.text, compensate)) {
        error = notA("yes or no", flag, typeName);
        return false;
    }
    const int order = v[6] >= 0 && v[6] <= 5 ? static_cast<int>(v[6]) : 0;
    MMatrix shear;
    shear.matrix[1][0] = v[10];
    shear.matrix[2][0] = v[11];
    shear.matrix[2][1] = v[12];
    MMatrix inverseScale;
    for (int i = 0; i < 3; ++i)
        inverseScale.matrix[i][i] = compensate && v[33 + i] != 0.0 ? 1.0 / v[33 + i] : 1.0;
    const MMatrix m =
        translation(-v[13], -v[14], -v[15]) * scaling(v[0], v[1], v[2]) * shear *
        translation(v[13], v[14], v[15]) * translation(v[16], v[17], v[18]) *
        translation(-v[19], -v[20], -v[21]) * MQuaternion(v[25], v[26], v[27], v[28]).asMatrix() *
        MEulerRotation(v[3], v[4], v[5], static_cast<MEulerRotation::RotationOrder>(order)).asMatrix() *
        MQuaternion(v[29], v[30], v[31], v[32]).asMatrix() * translation(v[19], v[20], v[21]) *
        translation(v[22], v[23], v[24]) * inverseScale * translation(v[7], v[8], v[9]);
    for (int r = 0; r < 4; ++r)
        for (int c = 0; c < 4; ++c) out.m[static_cast<std::size_t>(r * 4 + c)] = m.matrix[r][c];
    return true;
}

bool readMatrix(const std::string& typeName, TokenCursor& in, Value& out, std::string& error) {
    auto data = std::make_shared<MatrixData>();
    if (!in.atEnd() && in.peek().text == "xform") {
        in.next();
        if (!readXform(typeName, in, *data, error)) return false;
    } else {
        if (in.remaining() < 16) {
            error = notEnough(typeName, 16, in.remaining());
            return false;
        }
        for (double& x : data->m)
            if (!readNumber(typeName, in, x, error)) return false;
    }
    out = DataPtr(std::move(data));
    return true;
}

bool readIntList(const std::string& typeName, TokenCursor& in, std::vector<int>* out, std::string& error) {
    std::size_t count = 0;
    if (!readCount(typeName, in, 1, count, error)) return false;
    if (out) out->resize(count);
    for (std::size_t i = 0; i < count; ++i) {
        int v = 0;
        if (!readInt(typeName, in, v, error)) return false;
        if (out) (*out)[i] = v;
    }
    return true;
}

// One face: "f N e…", then the records that belong to it up to the next "f".
bool readPolyFace(const std::string& typeName, TokenCursor& in, Value& out, std::string& error) {
    if (in.atEnd() || in.peek().text != "f") {
        error = in.atEnd()
                    ? notEnough(typeName, 1, 0)
                    : "expected 'f' in the -type " + typeName + " data, found '" + in.peek().text + "'.";
        return false;
    }
    in.next();
    auto data = std::make_shared<PolyFacesData>();
    data->faces.emplace_back();
    if (!readIntList(typeName, in, &data->faces.back(), error)) return false;
    if (data->faces.back().empty()) {
        error = "a face in the -type " + typeName + " data has no edges.";
        return false;
    }
    while (!in.atEnd() && in.peek().text != "f") {
        const std::string record = in.next().text;
        if (record == "mu" || record == "mc") {
            int set = 0;
            if (in.atEnd()) {
                error = notEnough(typeName, 1, 0);
                return false;
            }
            if (!readInt(typeName, in, set, error)) return false;
        } else if (record != "h" && record != "fc") {
            error = "unknown record '" + record + "' in the -type " + typeName + " data.";
            return false;
        }
        if (!readIntList(typeName, in, nullptr, error)) return false;
    }
    out = DataPtr(std::move(data));
    return true;
}

bool readAliases(const std::string& typeName, TokenCursor& in, Value& out, std::string& error) {
    const std::string malformed =
        "the -type " + typeName + " data must be a list {\"alias\",\"attribute\",...}.";
    if (in.atEnd() || in.peek().quoted || in.next().text != "{") {
        error = malformed;
        return false;
    }
    auto data = std::make_shared<StringArrayData>();
    bool closed = in.atEnd() ? false : (!in.peek().quoted && in.peek().text == "}");
    if (closed) in.next();
    while (!closed) {
        if (in.atEnd() || !in.peek().quoted) {
            error = malformed;
            return false;
        }
        data->values.push_back(in.next().text);
        const Token* separator = in.atEnd() ? nullptr : &in.next();
        if (!separator || separator->quoted || (separator->text != "," && separator->text != "}")) {
            error = malformed;
            return false;
        }
        closed = separator->text == "}";
    }
    if (data->values.size() % 2 != 0) {
        error = "the -type " + typeName + " data must hold alias and attribute pairs.";
        return false;
    }
    out = DataPtr(std::move(data));
    return true;
}

} // namespace

PayloadType payloadType(const std::string& t) {
    if (t == "componentList") return {PayloadKind::Data, DataKind::ComponentList, 0};
    if (t == "pointArray") return {PayloadKind::Data, DataKind::PointArray, 0};
    if (t == "Int32Array") return {PayloadKind::Data, DataKind::IntArray, 0};
    if (t == "doubleArray") return {PayloadKind::Data, DataKind::DoubleArray, 0};
    if (t == "stringArray") return {PayloadKind::Data, DataKind::StringArray, 0};
    if (t == "polyFaces") return {PayloadKind::Data, DataKind::PolyFaces, 0};
    if (t == "string") return {PayloadKind::String, DataKind::DoubleArray, 0};
    if (t == "matrix") return {PayloadKind::Matrix, DataKind::Matrix, 0};
    if (t == "attributeAlias") return {PayloadKind::Alias, DataKind::StringArray, 0};
    if (t == "mesh") return {PayloadKind::EmptyMesh, DataKind::Mesh, 0};
    for (const char* base : {"double", "float", "long", "short"}) {
        const std::string b = base;
        if (t.size() == b.size() + 1 && t.compare(0, b.size(), b) == 0 && t.back() >= '2' &&
            t.back() <= (b == "double" || b == "float" ? '4' : '3'))
            return {PayloadKind::Numbers, DataKind::DoubleArray, t.back() - '0'};
    }
    return {};
}

bool readPayload(const std::string& typeName, TokenCursor& in, Value& out, std::string& error) {
    const PayloadType type = payloadType(typeName);
    switch (type.kind) {
    case PayloadKind::Data:
        switch (type.dataKind) {
        case DataKind::ComponentList:
            return readComponentList(typeName, in, out, error);
        case DataKind::PointArray:
            return readPointArray(typeName, in, out, error);
        case DataKind::IntArray:
            return readIntArray(typeName, in, out, error);
        case DataKind::StringArray:
            return readStringArray(typeName, in, out, error);
        case DataKind::PolyFaces:
            return readPolyFace(typeName, in, out, error);
        default: {
            std::size_t count = 0;
            return readCount(typeName, in, 1, count, error) && readDoubles(typeName, in, count, out, error);
        }
        }
    case PayloadKind::String:
        if (in.atEnd()) {
            error = notEnough(typeName, 1, 0);
            return false;
        }
        out = in.next().text;
        return true;
    case PayloadKind::Matrix:
        return readMatrix(typeName, in, out, error);
    case PayloadKind::Numbers:
        if (in.remaining() < static_cast<std::size_t>(type.arity)) {
            error = notEnough(typeName, static_cast<std::size_t>(type.arity), in.remaining());
            return false;
        }
        return readDoubles(typeName, in, static_cast<std::size_t>(type.arity), out, error);
    case PayloadKind::Alias:
        return readAliases(typeName, in, out, error);
    case PayloadKind::EmptyMesh:
        out = std::monostate{};
        return true;
    case PayloadKind::Unknown:
        break;
    }
    error = "unknown data type '" + typeName + "'.";
    return false;
}

Value rawPayload(TokenCursor& in) {
    auto data = std::make_shared<StringArrayData>();
    data->values.reserve(in.remaining());
    while (!in.atEnd()) {
        const Token& token = in.next();
        if (!token.quoted) {
            data->values.push_back(token.text);
            continue;
        }
        std::string quoted = "\"";
        for (char c : token.text) {
            switch (c) {
            case '\n':
                quoted += "\\n";
                break;
            case '\t':
                quoted += "\\t";
                break;
            case '\r':
                quoted += "\\r";
                break;
            case '"':
            case '\\':
                quoted += '\\';
                [[fallthrough]];
            default:
                quoted += c;
            }
        }
        data->values.push_back(quoted + '"');
    }
    return DataPtr(std::move(data));
}

} // namespace host
