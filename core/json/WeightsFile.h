#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace json {

// A weight map file holds index/weight pairs in one of two layouts, chosen by the file name:
//   JSON:  "{", then one line per pair: tab, "index": weight, a comma on every line but the last; "}".
//   plain: one line per pair: index, one blank, weight.
// Indices are written as plain decimals and weights as an output stream prints a double by default
// (six significant digits, %g style). Both layouts end with a single newline.

// True when the last four characters of the name are exactly "json" (case-sensitive, no dot needed).
bool fileTypeIsJSON(const std::string& fileName);

// The whole text of a weights file for the pairs, without the final newline. Meant for equally long,
// non-empty arrays; pairs beyond the shorter array are ignored, and no pairs give "{\n}" or "".
std::string formatWeights(const std::vector<int>& indices, const std::vector<double>& weights, bool asJson);

// Replaces the file at path with formatWeights(...) and a newline; false when it cannot be written.
bool writeWeightsFile(const std::string& path, const std::vector<int>& indices,
                      const std::vector<double>& weights, bool asJson);

// Tolerant readers of the two layouts. They append what they find to the arrays, which may end up
// with different lengths on malformed input, and return false (arrays untouched) only when the file
// cannot be read at all, a directory included.
bool readFile(const std::string& path, std::vector<int>& indices, std::vector<double>& weights);
bool readFileSimple(const std::string& path, std::vector<int>& indices, std::vector<double>& weights);

// The same readers on text in memory (a whole file).
void readWeightsText(std::string_view text, std::vector<int>& indices, std::vector<double>& weights);
void readWeightsTextSimple(std::string_view text, std::vector<int>& indices, std::vector<double>& weights);

} // namespace json
