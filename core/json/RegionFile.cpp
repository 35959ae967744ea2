#include "core/json/RegionFile.h"

#include "core/common/StreamNumbers.h"
#include "core/common/TextNumbers.h"
#include "core/json/TextFile.h"

namespace json {

namespace {

void appendIndex(std::string& out, int index) {
    char text[common::kStreamIntChars];
    out.append(text, common::writeStreamInt(text, index));
}

void appendNumber(std::string& out, double value) {
    char text[common::kStreamDoubleChars];
    out.append(text, common::writeStreamDouble(text, value));
}

bool isFieldSpace(char c) {
    return c == ' ' || c == '\t' || c == '\f' || c == '\r';
}

bool isNumberSpace(char c) {
    return c == ' ' || c == '\t' || c == '\r' || c == '\n';
}

// Appends the value to the region of the column, if the row still has one.
void appendField(core::RegionMap& map, int column, std::string_view field) {
    if (column < core::kRegionCount) map.regions[column].push_back(common::textToDouble(field));
}

} // namespace

void writeKeyArray6(std::string& out, int key, const core::RegionWeights& values, int indent, bool isLast) {
    out.append(static_cast<std::size_t>(indent), '\t');
    out += '"';
    appendIndex(out, key);
    out += "\": [\n";
    for (int k = 0; k < core::kRegionCount; ++k) {
        out.append(static_cast<std::size_t>(indent) + 1, '\t');
        appendNumber(out, values[k]);
        out += k + 1 < core::kRegionCount ? ",\n" : "\n";
    }
    out.append(static_cast<std::size_t>(indent), '\t');
    out += isLast ? "]\n" : "],\n";
}

std::string formatRegionMap(const core::RegionMap& map, const std::string& settings, bool asJson) {
    const std::size_t count = map.vertexCount();
    std::string out;
    out.reserve(settings.size() + count * (asJson ? 96 : 64) + 32);
    if (asJson) {
        out += "{\n\t\"settings\": \"";
        out += settings;
        out += "\",\n";
        for (std::size_t v = 0; v < count; ++v)
            writeKeyArray6(out, static_cast<int>(v), map.at(v), 1, v + 1 == count);
        out += '}';
        return out;
    }
    out += settings;
    for (std::size_t v = 0; v < count; ++v) {
        out += '\n';
        appendIndex(out, static_cast<int>(v));
        for (int k = 0; k < core::kRegionCount; ++k) {
            out += ' ';
            appendNumber(out, map.regions[k][v]);
        }
    }
    return out;
}

std::string formatRegion(const std::vector<double>& weights, bool asJson) {
    const std::size_t count = weights.size();
    std::string out;
    out.reserve(count * 24 + 4);
    if (asJson) out += "{\n";
    for (std::size_t v = 0; v < count; ++v) {
        if (asJson) {
            out += "\t\"";
            appendIndex(out, static_cast<int>(v));
            out += "\": ";
        } else {
            if (v > 0) out += '\n';
            appendIndex(out, static_cast<int>(v));
            out += ' ';
        }
        appendNumber(out, weights[v]);
        if (asJson) out += v + 1 < count ? ",\n" : "\n";
    }
    if (asJson) out += '}';
    return out;
}

void readArray6(std::string_view text, core::RegionMap& map, std::string& settings) {
    bool settingsNext = false, settingsRead = false;
    std::string number;
    std::size_t p = 0;
    while (p < text.size()) {
        const char c = text[p++];
        if (c == '"') {
            const std::size_t close = text.find('"', p);
            const std::string_view quoted =
                text.substr(p, close == std::string_view::npos ? close : close - p);
            p = close == std::string_view::npos ? text.size() : close + 1;
            if (settingsNext) {
                settings.assign(quoted);
                settingsNext = false;
                settingsRead = true;
            } else if (!settingsRead && quoted == "settings") {
                // Only a key counts: the next thing after it must be a colon.
                const std::size_t next = text.find_first_not_of(" \t\r\n", p);
                settingsNext = next != std::string_view::npos && text[next] == ':';
            }
        } else if (c == '[') {
            settingsNext = false;
            int column = 0;
            number.clear();
            while (p < text.size()) {
                const char d = text[p++];
                if (d == ',' || d == ']') {
                    // An empty list adds no row.
                    if (d == ']' && column == 0 && number.empty()) break;
                    appendField(map, column++, number);
                    number.clear();
                    if (d == ']') break;
                } else if (!isNumberSpace(d)) {
                    number += d;
                }
            }
        }
    }
}

void readRegionText(std::string_view text, core::RegionMap& map, std::string& settings) {
    std::size_t lineEnd = text.find('\n');
    std::string_view first = text.substr(0, lineEnd);
    // A file saved with Windows line ends keeps its settings without the carriage return.
    if (!first.empty() && first.back() == '\r') first.remove_suffix(1);
    settings.assign(first);
    while (lineEnd != std::string_view::npos) {
        const std::size_t start = lineEnd + 1;
        lineEnd = text.find('\n', start);
        const std::string_view line =
            text.substr(start, lineEnd == std::string_view::npos ? lineEnd : lineEnd - start);
        int field = -1; // the first field is the vertex index, which is not used
        std::size_t q = 0;
        while (q < line.size() && field < core::kRegionCount) {
            while (q < line.size() && isFieldSpace(line[q])) ++q;
            const std::size_t begin = q;
            while (q < line.size() && !isFieldSpace(line[q])) ++q;
            if (q == begin) break;
            if (field >= 0) appendField(map, field, line.substr(begin, q - begin));
            ++field;
        }
    }
}

bool readRegionFile(const std::string& path, bool asJson, core::RegionMap& map, std::string& settings) {
    std::string text;
    if (!readWholeFile(path, text)) return false;
    if (asJson)
        readArray6(text, map, settings);
    else
        readRegionText(text, map, settings);
    return true;
}

} // namespace json
