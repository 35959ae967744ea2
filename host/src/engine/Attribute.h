#pragma once
// Attribute descriptions: Maya's long and short names, value type, multi and compound structure.
// Node types own their attributes; dynamic attributes are owned by the node they were added to.
#include "engine/Value.h"

#include <memory>
#include <string>
#include <vector>

namespace host {

enum class AttrType { Bool, Int, Enum, Float, Double, String, Matrix, Data, Message, Compound, Generic };

struct AttrSpec {
    std::string longName;
    std::string shortName;
    AttrType type = AttrType::Double;
    DataKind dataKind = DataKind::DoubleArray; // for AttrType::Data
    // The type word Maya uses for this attribute: "double", "short", "long", "float", "bool",
    // "enum", "doubleLinear", "double3", "float3", "matrix", "string", "mesh", ...
    std::string typeName;
    bool multi = false;
    bool hidden = false;
    bool dynamic = false;
    bool madeUp = false;  // created while reading a file for data the type does not model
    bool keyable = false; // listed by listAttr -k
    Value defaultValue;
    std::vector<std::unique_ptr<AttrSpec>> children;
    AttrSpec* parent = nullptr;
    int index = 0; // position among the parent's children, or among the node's top-level attributes

    bool isCompound() const { return type == AttrType::Compound; }
    bool isNumeric() const {
        return type == AttrType::Bool || type == AttrType::Int || type == AttrType::Enum ||
               type == AttrType::Float || type == AttrType::Double;
    }
    // Number of multi attributes from the top-level attribute down to this one, inclusive.
    int multiDepth() const;
    // The chain from the top-level attribute down to this one.
    std::vector<const AttrSpec*> chain() const;
    const AttrSpec* childNamed(const std::string& name) const;
};

using AttrPtr = std::unique_ptr<AttrSpec>;

// Angles are stored in radians and read and written by commands and files in degrees, as Maya
// does with its default angular unit; other values pass unchanged.
double toUiUnits(const AttrSpec& attr, double stored);
double fromUiUnits(const AttrSpec& attr, double shown);

// Builders for attribute tables.
AttrPtr numericAttr(const std::string& longName, const std::string& shortName, AttrType type,
                    const std::string& typeName, Value defaultValue);
AttrPtr boolAttr(const std::string& longName, const std::string& shortName, bool defaultValue = false);
AttrPtr intAttr(const std::string& longName, const std::string& shortName, int defaultValue = 0,
                const std::string& typeName = "long");
AttrPtr enumAttr(const std::string& longName, const std::string& shortName, int defaultValue = 0);
AttrPtr floatAttr(const std::string& longName, const std::string& shortName, double defaultValue = 0.0);
AttrPtr doubleAttr(const std::string& longName, const std::string& shortName, double defaultValue = 0.0,
                   const std::string& typeName = "double");
AttrPtr stringAttr(const std::string& longName, const std::string& shortName);
AttrPtr matrixAttr(const std::string& longName, const std::string& shortName);
AttrPtr messageAttr(const std::string& longName, const std::string& shortName);
AttrPtr genericAttr(const std::string& longName, const std::string& shortName);
AttrPtr dataAttr(const std::string& longName, const std::string& shortName, DataKind kind,
                 const std::string& typeName);
AttrPtr compoundAttr(const std::string& longName, const std::string& shortName, std::vector<AttrPtr> children,
                     const std::string& typeName = "");
// A compound of three numeric children named <long>X/Y/Z and <short>x/y/z, such as translate.
AttrPtr triple(const std::string& longName, const std::string& shortName, AttrType childType,
               double defaultValue = 0.0, const std::string& childSuffixLong = "XYZ",
               const std::string& childSuffixShort = "xyz");
AttrPtr multi(AttrPtr attr);
AttrPtr keyable(AttrPtr attr);
AttrPtr hidden(AttrPtr attr);

// Parents children and numbers them; call once on a finished top-level attribute.
void linkAttr(AttrSpec& attr, AttrSpec* parent, int index);

} // namespace host
