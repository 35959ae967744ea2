#include "engine/Attribute.h"

#include <algorithm>

namespace host {

namespace {
constexpr double kDegreesPerRadian = 57.29577951308232;
}

double toUiUnits(const AttrSpec& attr, double stored) {
    return attr.typeName == "doubleAngle" ? stored * kDegreesPerRadian : stored;
}

double fromUiUnits(const AttrSpec& attr, double shown) {
    return attr.typeName == "doubleAngle" ? shown / kDegreesPerRadian : shown;
}

int AttrSpec::multiDepth() const {
    int depth = 0;
    for (const AttrSpec* a = this; a; a = a->parent) depth += a->multi ? 1 : 0;
    return depth;
}

std::vector<const AttrSpec*> AttrSpec::chain() const {
    std::vector<const AttrSpec*> result;
    for (const AttrSpec* a = this; a; a = a->parent) result.push_back(a);
    std::reverse(result.begin(), result.end());
    return result;
}

const AttrSpec* AttrSpec::childNamed(const std::string& name) const {
    for (const auto& c : children)
        if (c->longName == name || c->shortName == name) return c.get();
    return nullptr;
}

AttrPtr numericAttr(const std::string& longName, const std::string& shortName, AttrType type,
                    const std::string& typeName, Value defaultValue) {
    auto attr = std::make_unique<AttrSpec>();
    attr->longName = longName;
    attr->shortName = shortName;
    attr->type = type;
    attr->typeName = typeName;
    attr->defaultValue = std::move(defaultValue);
    return attr;
}

AttrPtr boolAttr(const std::string& longName, const std::string& shortName, bool defaultValue) {
    return numericAttr(longName, shortName, AttrType::Bool, "bool", defaultValue);
}
AttrPtr intAttr(const std::string& longName, const std::string& shortName, int defaultValue,
                const std::string& typeName) {
    return numericAttr(longName, shortName, AttrType::Int, typeName, defaultValue);
}
AttrPtr enumAttr(const std::string& longName, const std::string& shortName, int defaultValue) {
    return numericAttr(longName, shortName, AttrType::Enum, "enum", defaultValue);
}
AttrPtr floatAttr(const std::string& longName, const std::string& shortName, double defaultValue) {
    return numericAttr(longName, shortName, AttrType::Float, "float", defaultValue);
}
AttrPtr doubleAttr(const std::string& longName, const std::string& shortName, double defaultValue,
                   const std::string& typeName) {
    return numericAttr(longName, shortName, AttrType::Double, typeName, defaultValue);
}
AttrPtr stringAttr(const std::string& longName, const std::string& shortName) {
    return numericAttr(longName, shortName, AttrType::String, "string", std::string());
}
AttrPtr matrixAttr(const std::string& longName, const std::string& shortName) {
    return numericAttr(longName, shortName, AttrType::Matrix, "matrix", std::monostate{});
}
AttrPtr messageAttr(const std::string& longName, const std::string& shortName) {
    return numericAttr(longName, shortName, AttrType::Message, "message", std::monostate{});
}
AttrPtr genericAttr(const std::string& longName, const std::string& shortName) {
    return numericAttr(longName, shortName, AttrType::Generic, "", std::monostate{});
}
AttrPtr dataAttr(const std::string& longName, const std::string& shortName, DataKind kind,
                 const std::string& typeName) {
    auto attr = numericAttr(longName, shortName, AttrType::Data, typeName, std::monostate{});
    attr->dataKind = kind;
    return attr;
}

AttrPtr compoundAttr(const std::string& longName, const std::string& shortName, std::vector<AttrPtr> children,
                     const std::string& typeName) {
    auto attr = numericAttr(longName, shortName, AttrType::Compound, typeName, std::monostate{});
    attr->children = std::move(children);
    return attr;
}

AttrPtr triple(const std::string& longName, const std::string& shortName, AttrType childType,
               double defaultValue, const std::string& childSuffixLong, const std::string& childSuffixShort) {
    std::vector<AttrPtr> children;
    const bool isFloat = childType == AttrType::Float;
    for (int i = 0; i < 3; ++i) {
        std::string l = longName + childSuffixLong[static_cast<std::size_t>(i)];
        std::string s = shortName + childSuffixShort[static_cast<std::size_t>(i)];
        children.push_back(isFloat ? floatAttr(l, s, defaultValue) : doubleAttr(l, s, defaultValue));
    }
    return compoundAttr(longName, shortName, std::move(children), isFloat ? "float3" : "double3");
}

AttrPtr multi(AttrPtr attr) {
    attr->multi = true;
    return attr;
}

AttrPtr keyable(AttrPtr attr) {
    attr->keyable = true;
    return attr;
}

AttrPtr hidden(AttrPtr attr) {
    attr->hidden = true;
    return attr;
}

void linkAttr(AttrSpec& attr, AttrSpec* parent, int index) {
    attr.parent = parent;
    attr.index = index;
    for (std::size_t i = 0; i < attr.children.size(); ++i)
        linkAttr(*attr.children[i], &attr, static_cast<int>(i));
}

} // namespace host
