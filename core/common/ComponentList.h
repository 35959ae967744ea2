#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace core {

// Vertex lists in the two text forms the host uses: selection strings ("mesh.vtx[3]",
// "mesh.vtx[3:7]") and the componentList value of a setAttr command.

// Upper bound on the length of a flattened list. It is far above any mesh's vertex count and only
// keeps a mistyped range such as vtx[0:2000000000] from asking for gigabytes.
constexpr std::size_t kMaxFlattenedIndices = 100000000;

// Appends the vertex indices of one selection string to `indices`. The text after the first "."
// (up to the next ".") loses a fixed four-character prefix, meant to be "vtx[", and its last
// character, meant to be "]"; the rest is "a" or "a:b". A range appends a, a+1, ..., b and nothing
// when a > b. Pieces are split the way the host splits strings: empty pieces are dropped.
// Returns false and appends nothing when the entry is malformed: no second piece, nothing between
// the brackets, a number that is not a plain non-negative decimal in int range, more than two
// numbers, or a range that would take the list past kMaxFlattenedIndices.
bool appendComponentIndices(std::string_view entry, std::vector<int>& indices);

// The indices of all entries in order, duplicates kept, unsorted. Malformed entries are skipped, so
// the result holds what the well-formed entries name.
std::vector<int> flattenComponentList(const std::vector<std::string>& entries);

// "setAttr <plugName> -type componentList <count> vtx[i] vtx[j] ... ;" with one single-vertex entry
// per index in the given order, each followed by a blank.
std::string componentListCommand(std::string_view plugName, const std::vector<int>& indices);

} // namespace core
