#pragma once
// One attribute value as a setAttr statement of a scene file writes it: the word after -type (if any)
// and the values, in the form the setAttr command reads back to the same value.
//   numbers      yes/no for booleans, integers for int and enum, shortest exact text otherwise
//   string       -type "string" "text"
//   data         -type "pointArray" N x y z w …, "componentList" N "vtx[0:3]" …, "Int32Array",
//                "doubleArray" and "stringArray" with their counts, "matrix" with 16 numbers,
//                "polyFaces" with one "f N e…" line per face
//   generic      as the file gave it: untyped numbers, "double3"-like tuples without a count, and
//                types the host does not model with their tokens unchanged
#include "engine/Attribute.h"

#include <string>

namespace host {

class ValueList;

// Whether a value is written at all (messages, meshes and unset values are not).
bool writableValue(const AttrSpec& attr, const Value& value);
// The -type word for the value, empty for plain values.
std::string typeWordOf(const AttrSpec& attr, const Value& value);
// Appends the values (without the -type word), each started through `list`.
void appendValueText(const AttrSpec& attr, const Value& value, const std::string& typeWord, ValueList& list);
// One number of a numeric attribute, formatted for the attribute's type.
void appendNumber(const AttrSpec& attr, const Value& value, std::string& out);

} // namespace host
