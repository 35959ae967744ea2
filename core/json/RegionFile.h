#pragma once
// Region map files. The layout is chosen by the file name (fileTypeIsJSON) and by whether one
// region or the whole map is written; numbers are written as an output stream writes them by
// default, and no layout ends with a newline.
//   text, whole map: the settings line, then per vertex "i w0 w1 w2 w3 w4 w5".
//   JSON, whole map: {, tab "settings": "<text>",  then per vertex a keyed row of six values, }.
//   text, one region: per vertex "i w".
//   JSON, one region: {, per vertex tab "i": w (a comma on every line but the last), }.
// Only the whole-map layouts are read back.
#include "core/regions/RegionMap.h"

#include <string>
#include <string_view>
#include <vector>

namespace json {

// Appends one keyed row: `indent` tabs, "key": [, the six values on lines of their own indented one
// tab deeper and separated by commas, then `indent` tabs, ], a comma unless it is the last row, and a
// newline.
void writeKeyArray6(std::string& out, int key, const core::RegionWeights& values, int indent, bool isLast);

// The whole map with its settings text, written verbatim (quotes are not escaped).
std::string formatRegionMap(const core::RegionMap& map, const std::string& settings, bool asJson);

// One region's weights, without settings.
std::string formatRegion(const std::vector<double>& weights, bool asJson);

// Reads the JSON layout: the quoted text after the "settings" key is the settings; inside every
// bracketed list the first six comma-separated numbers (blanks, tabs and line breaks dropped) are
// appended to regions 0..5. Row keys are ignored: rows count in file order.
void readArray6(std::string_view text, core::RegionMap& map, std::string& settings);

// Reads the text layout: the first line is the settings; on every further line the fields (split at
// blanks, tabs, form feeds and carriage returns) after the first are appended to regions 0..5, at
// most six of them. Lines without fields add nothing.
void readRegionText(std::string_view text, core::RegionMap& map, std::string& settings);

// Reads a whole-map file of either layout into an empty map; false when it cannot be read. A row
// with fewer than six numbers leaves the later regions short.
bool readRegionFile(const std::string& path, bool asJson, core::RegionMap& map, std::string& settings);

} // namespace json
