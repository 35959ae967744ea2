#pragma once
// Reader of delta files (the layout DeltaFileWriter writes): a small character scanner rather than
// a JSON parser. Only a few characters act, by brace depth:
//   "{" / "}"     depth up and down; an item is complete when "}" brings the depth back to 3;
//   "..." at 1    a target key (an integer; remapped when asked);
//   ":" at 2      the first one in a block reads the channel name from the rest of the line;
//   "..." at 3    an item key, its weight (a double);
//   "..." at 4    a component key (an integer), dropped when a vertex filter excludes it;
//   "[" anywhere  three numbers of a delta, unless its component was dropped.
// Everything else is ignored, so a damaged file is read as far as these rules pick anything up.
// Keys and numbers convert as the host string's conversions do (text without a number gives 0).
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace json {

struct DeltaScanOptions {
    // With remap, the k-th block that is accepted must carry sourceIndices[k] and is moved to
    // destinationIndices[k]; any other block is read but not imported.
    bool remap = false;
    std::vector<int> sourceIndices;
    std::vector<int> destinationIndices;
    // Components to keep; empty keeps all.
    std::vector<int> vertexFilter;
};

// Receives what the scanner picks up. Calls come per key and per item, never per character.
class DeltaScanHandler {
public:
    virtual ~DeltaScanHandler() = default;
    // A target key; the index is the remapped one when the block was accepted for remapping.
    virtual void targetKey(int targetIndex) = 0;
    virtual void channelName(const std::string& name) = 0;
    // An item key; afterItem is true once an item of the current "data" object has closed.
    virtual void itemKey(double weight, bool afterItem) = 0;
    // A complete item of an imported block: its item index (weight * 1000 + 5000 truncated toward
    // zero), the components and their deltas as xyz triples (the two may differ in length).
    virtual void item(int targetIndex, int itemIndex, const std::string& channelName,
                      const std::vector<int>& components, const std::vector<double>& xyz) = 0;
    // A complete item whose weight gives no valid item index (not finite, or outside 0 .. 2^31 - 1).
    virtual void invalidItem(int targetIndex, double weight) = 0;
    // A brace brought the depth back to 1.
    virtual void blockClosed() = 0;
};

// Scans the file; false when it cannot be opened or read.
bool scanDeltaFile(const std::string& path, const DeltaScanOptions& options, DeltaScanHandler& handler);
// Scans text in memory.
void scanDeltaText(std::string_view text, const DeltaScanOptions& options, DeltaScanHandler& handler);

// The item index of an item weight, truncated toward zero; false when there is none.
bool itemFromWeight(double weight, int& item);

} // namespace json
