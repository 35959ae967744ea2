#pragma once
// Writer of delta files: one JSON object with a block per target index holding the channel name
// and, per target item, the delta of every stored component:
//
//   {
//   "2": {
//   \t"name": "smile",
//   \t"data": {
//   \t\t"0.5": {
//   \t\t\t"14": [0, 0.25, 0]
//   \t\t},
//   ...
//   \t}
//   }
//   }
//
// followed by one more newline. Lines are indented with tabs from a level counter; item keys are
// (item - 5000) / 1000 in single precision, coordinates doubles, both written as a default output
// stream writes them. Separators follow the caller's list positions, so a skipped item or index
// leaves the commas of its neighbours as they were. The text is streamed in large blocks, as it is
// produced, to a temporary file that replaces the target when the writer is closed.
#include "core/common/AtomicFile.h"

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace json {

class DeltaFileWriter {
public:
    DeltaFileWriter();
    DeltaFileWriter(const DeltaFileWriter&) = delete;
    DeltaFileWriter& operator=(const DeltaFileWriter&) = delete;
    ~DeltaFileWriter();

    // Starts the new file (the target is replaced only by close()) and writes the opening "{" line.
    bool open(const std::string& path);

    // The block opening of a target index: key line, "name" line (written unescaped) and "data" line.
    void beginTarget(int targetIndex, std::string_view channelName);
    // One item block: count components with their deltas, xyz holding three doubles per component.
    void writeItem(int item, const int* components, const double* xyz, std::size_t count, bool lastItem);
    // Closes "data" and the target block; a "," follows unless it is the last index of the list.
    void endTarget(bool lastIndex);
    // An index without items: the level drops by one and a lone "}" is written there, unbalancing
    // the braces. The level is unsigned and wraps below zero; a wrapped level writes no tabs.
    void skipTarget(bool lastIndex);

    // Writes the closing "}" line and the final newline and puts the file in place; false (the target
    // unchanged) when any write failed.
    bool close();

private:
    void line(std::uint32_t level, std::string_view text);
    void put(std::string_view text);
    void indent(std::uint32_t level);
    // Room for at least bytes more at pos (flushing what is gathered when needed).
    char* room(std::size_t bytes);
    void flush();

    common::AtomicFile file;
    bool opened = false;
    std::unique_ptr<char[]> block; // text gathered for the file
    char* pos = nullptr;
    std::uint32_t level = 0;
};

} // namespace json
