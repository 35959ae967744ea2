#include "core/json/WeightsFile.h"

#include "core/common/StreamNumbers.h"
#include "core/common/TextNumbers.h"
#include "core/json/TextFile.h"

#include <algorithm>
#include <cstring>
#include <limits>
#include <string_view>

namespace json {

namespace {

const char* findByte(const char* begin, const char* end, char byte) {
    const void* found = std::memchr(begin, byte, static_cast<std::size_t>(end - begin));
    return found ? static_cast<const char*>(found) : end;
}

std::string_view between(const char* begin, const char* end) {
    return {begin, static_cast<std::size_t>(end - begin)};
}

// A key converted as the host's string conversion does, except that a number too large for an int
// becomes -1 instead of 0, so that it is dropped as an index outside the mesh rather than landing on
// vertex 0.
int indexFromText(std::string_view text) {
    long long value = 0;
    common::parseLong(text, value);
    return value < std::numeric_limits<int>::min() || value > std::numeric_limits<int>::max()
               ? -1
               : static_cast<int>(value);
}

bool isPlainSpace(char c) {
    return c == '\t' || c == '\n' || c == '\f' || c == '\r' || c == ' ';
}

} // namespace

bool fileTypeIsJSON(const std::string& fileName) {
    return fileName.size() >= 4 && fileName.compare(fileName.size() - 4, 4, "json") == 0;
}

std::string formatWeights(const std::vector<int>& indices, const std::vector<double>& weights, bool asJson) {
    const std::size_t count = std::min(indices.size(), weights.size());
    std::string text;
    text.reserve(count * 24 + 4);
    if (asJson) text += "{\n";
    char line[64];
    for (std::size_t k = 0; k < count; ++k) {
        char* out = line;
        if (asJson) {
            *out++ = '\t';
            *out++ = '"';
            out = common::writeStreamInt(out, indices[k]);
            *out++ = '"';
            *out++ = ':';
            *out++ = ' ';
            out = common::writeStreamDouble(out, weights[k]);
            if (k + 1 < count) *out++ = ',';
            *out++ = '\n';
        } else {
            if (k > 0) *out++ = '\n';
            out = common::writeStreamInt(out, indices[k]);
            *out++ = ' ';
            out = common::writeStreamDouble(out, weights[k]);
        }
        text.append(line, out);
    }
    if (asJson) text += '}';
    return text;
}

bool writeWeightsFile(const std::string& path, const std::vector<int>& indices,
                      const std::vector<double>& weights, bool asJson) {
    std::string text = formatWeights(indices, weights, asJson);
    text += '\n';
    return writeWholeFile(path, text);
}

// Scans byte by byte: control bytes and blanks are skipped, "..." is a key (converted as an int), and
// ':' starts a value that runs to a newline or comma (consumed) with tabs, form feeds, carriage
// returns and blanks dropped. Everything else is ignored; nothing checks that keys and values pair up.
void readWeightsText(std::string_view data, std::vector<int>& indices, std::vector<double>& weights) {
    const char* p = data.data();
    const char* const end = p + data.size();
    std::string value;
    while (p < end) {
        const unsigned char c = static_cast<unsigned char>(*p++);
        if (c <= 32) continue;
        if (c == '"') {
            const char* close = findByte(p, end, '"');
            indices.push_back(indexFromText(between(p, close)));
            p = close == end ? end : close + 1;
        } else if (c == ':') {
            value.clear();
            for (; p < end && *p != '\n' && *p != ','; ++p)
                if (*p != '\t' && *p != '\f' && *p != '\r' && *p != ' ') value += *p;
            if (p < end) ++p;
            weights.push_back(common::textToDouble(value));
        }
    }
}

// Non-whitespace bytes build the index token; the first whitespace byte after it takes the rest of the
// line as the weight text, and the newline ending that line is consumed with it, so the next line starts
// a fresh token. Hence "3 0.25\n7 1\n" gives (3, 0.25), (7, 1). When the whitespace byte is itself a
// newline (an empty line, or a token alone on its line) the weight text is the whole following line. A
// token still pending at the end of the file has no weight and is dropped.
void readWeightsTextSimple(std::string_view data, std::vector<int>& indices, std::vector<double>& weights) {
    const char* p = data.data();
    const char* const end = p + data.size();
    const char* token = p;
    while (p < end) {
        if (!isPlainSpace(*p)) {
            ++p;
            continue;
        }
        const char* lineEnd = findByte(p + 1, end, '\n');
        weights.push_back(common::textToDouble(between(p + 1, lineEnd)));
        indices.push_back(indexFromText(between(token, p)));
        p = lineEnd == end ? end : lineEnd + 1;
        token = p;
    }
}

bool readFile(const std::string& path, std::vector<int>& indices, std::vector<double>& weights) {
    std::string data;
    if (!readWholeFile(path, data)) return false;
    readWeightsText(data, indices, weights);
    return true;
}

bool readFileSimple(const std::string& path, std::vector<int>& indices, std::vector<double>& weights) {
    std::string data;
    if (!readWholeFile(path, data)) return false;
    readWeightsTextSimple(data, indices, weights);
    return true;
}

} // namespace json
