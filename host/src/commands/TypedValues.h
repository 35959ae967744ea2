#pragma once
// The payloads of `setAttr -type <type>` as scene files write them, read one element at a time:
//   componentList  count, then items such as vtx[3] e[2:9] f[*]; consecutive items of one type are
//                  stored as one component, keeping their order and repeats
//   pointArray     count, then x y z w per point
//   Int32Array, doubleArray, stringArray   count, then the values
//   string         one string
//   matrix         16 numbers, or "xform" with the 36 numbers and flag of a transformation
//   polyFaces      "f N e0 … eN-1" per face (signed edge references), each optionally followed by
//                  "mu", "mc", "fc" or "h" records, which are read and dropped
//   attributeAlias {"alias", "attribute", …}, kept as a string array of the pairs
//   mesh           nothing (an empty mesh)
//   double2/3/4, float2/3/4, long2/3, short2/3   the numbers, as a double array
// A count larger than the data that follows is an error, never a read past the end.
#include "commands/TokenCursor.h"
#include "engine/Value.h"

#include <string>

namespace host {

enum class PayloadKind { Unknown, Data, String, Matrix, Numbers, Alias, EmptyMesh };

struct PayloadType {
    PayloadKind kind = PayloadKind::Unknown;
    DataKind dataKind = DataKind::DoubleArray; // for Data
    int arity = 0;                             // for Numbers
};

PayloadType payloadType(const std::string& typeName);

// Reads one element's payload; on failure `error` says why (without the command name).
bool readPayload(const std::string& typeName, TokenCursor& in, Value& out, std::string& error);

// Keeps a payload of a type the host does not model, as read from a scene file: every remaining token
// as written, quoted tokens in quotes, so the value can be written back unchanged.
Value rawPayload(TokenCursor& in);

} // namespace host
