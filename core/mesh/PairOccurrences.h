#pragma once

#include "core/mesh/CompressedRows.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace core {

// For a list of unordered vertex pairs, the position of each pair's first occurrence in the list: `first[i]`
// is i for a pair not seen before. `visit(emit)` must call emit(a, b) for every pair in list order, the
// same pairs both times it is called, with 0 <= a, b < numVertices.
//
// The pairs are grouped by their lower vertex with a counting sort, and each group (as long as the lower
// vertex's valence) is sorted by the upper vertex. Memory is touched in vertex order rather than at random
// as with a hash table, which keeps a million-vertex mesh numbered in modelling order cache-friendly, and
// the temporary memory is one entry per pair and per vertex.
template <class Visit>
void firstPairOccurrences(int numVertices, std::size_t numPairs, Visit&& visit, std::vector<int>& first) {
    std::vector<int> start(static_cast<std::size_t>(numVertices) + 1, 0);
    visit([&](int a, int b) { ++start[static_cast<std::size_t>(std::min(a, b)) + 1]; });
    countsToCursors(start);
    // Each entry holds the upper vertex above the pair's position, so sorting a group orders it by upper
    // vertex and, among equal pairs, by position.
    std::vector<std::uint64_t> groups(numPairs);
    std::uint32_t position = 0;
    visit([&](int a, int b) {
        const int lower = std::min(a, b), upper = std::max(a, b);
        groups[static_cast<std::size_t>(start[static_cast<std::size_t>(lower) + 1]++)] =
            (std::uint64_t(std::uint32_t(upper)) << 32) | position++;
    });
    first.resize(numPairs);
    for (std::size_t v = 0; v + 1 < start.size(); ++v) {
        std::uint64_t* begin = groups.data() + start[v];
        std::uint64_t* end = groups.data() + start[v + 1];
        if (end - begin > 1) std::sort(begin, end);
        for (std::uint64_t* entry = begin; entry != end;) {
            const std::uint64_t upper = *entry >> 32;
            const int earliest = static_cast<int>(std::uint32_t(*entry));
            for (; entry != end && (*entry >> 32) == upper; ++entry) first[std::uint32_t(*entry)] = earliest;
        }
    }
}

} // namespace core
