#pragma once
// Writing parsed values into plugs for setAttr: numbers into numeric leaves and compounds, payload
// values into data, string and matrix attributes, and sparse rows into numeric arrays. Each writer
// checks everything (amount of data, types, connections, mesh geometry) before changing anything.
#include "commands/PlugRange.h"
#include "commands/TokenCursor.h"

#include <string>

namespace host {

// `stride` numbers per plug of the range; on a numeric leaf or a compound of numeric leaves.
bool writeNumbers(const PlugRange& range, int stride, TokenCursor& in, std::string& error);
// Per array plug of the range, a count and then that many (index, value) pairs, replacing its elements:
// the way scene files write sparse weights (".wl[0:7].w").
bool writeSparseRows(const PlugRange& range, TokenCursor& in, std::string& error);
// One payload of `-type typeName` per plug of the range.
bool writePayloads(const PlugRange& range, const std::string& typeName, TokenCursor& in, std::string& error);
// Generic attributes without a type: the values split evenly over the range; one value is kept as a
// number, a boolean or a string, several as a double array.
bool writeGenericValues(const PlugRange& range, TokenCursor& in, std::string& error);

} // namespace host
