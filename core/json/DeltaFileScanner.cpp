#include "core/json/DeltaFileScanner.h"

#include "core/common/TextNumbers.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <limits>
#include <memory>

namespace json {

namespace {

constexpr int kEnd = -1;
constexpr std::size_t kBlockSize = std::size_t(1) << 20;

// Bytes from memory or from a file read in large blocks; get() is inline and only refills at the
// end of a block.
class ByteSource {
public:
    explicit ByteSource(std::string_view text) : next(text.data()), end(text.data() + text.size()) {}
    explicit ByteSource(std::FILE* file) : file(file), block(new char[kBlockSize]) { refill(); }

    int get() {
        if (next == end && !refill()) return kEnd;
        return static_cast<unsigned char>(*next++);
    }
    bool failed() const { return file && std::ferror(file); }

private:
    bool refill() {
        if (!file) return false;
        const std::size_t got = std::fread(block.get(), 1, kBlockSize, file);
        next = block.get();
        end = next + got;
        return got > 0;
    }

    const char* next = nullptr;
    const char* end = nullptr;
    std::FILE* file = nullptr;
    std::unique_ptr<char[]> block;
};

bool isLineSpace(int c) {
    return c == '\t' || c == '\f' || c == '\r' || c == ' ';
}

bool isLeadingSpace(int c) {
    return isLineSpace(c) || c == '\n' || c == '\v';
}

int textToInt(const std::string& text) {
    int value = 0;
    common::parseInt(text, value);
    return value;
}

class Scanner {
public:
    Scanner(const DeltaScanOptions& options, DeltaScanHandler& handler) : options(options), handler(handler) {
        filter = options.vertexFilter;
        std::sort(filter.begin(), filter.end());
    }

    void run(ByteSource& in) {
        for (int c = in.get(); c != kEnd; c = in.get()) {
            switch (c) {
            case '{':
                openBrace();
                break;
            case '}':
                closeBrace();
                break;
            case '"':
                quote(in);
                break;
            case ':':
                if (depth == 2 && !nameRead) readName(in);
                break;
            case '[':
                openBracket(in);
                break;
            default:
                break;
            }
        }
    }

private:
    void openBrace() {
        ++depth;
        if (depth == 2) nameRead = false;
        if (depth == 3) afterItem = false;
        if (depth == 4) components.clear();
    }

    void closeBrace() {
        --depth;
        if (depth == 3) {
            if (importBlock) {
                int item = 0;
                if (itemFromWeight(itemWeight, item))
                    handler.item(targetIndex, item, name, components, xyz);
                else
                    handler.invalidItem(targetIndex, itemWeight);
            }
            xyz.clear();
            afterItem = true;
        } else if (depth == 1) {
            handler.blockClosed();
            name.clear();
        }
    }

    void quote(ByteSource& in) {
        if (depth == 1) {
            readUpToQuote(in);
            targetKey(textToInt(text));
        } else if (depth == 3) {
            readUpToQuote(in);
            itemWeight = common::textToDouble(text);
            handler.itemKey(itemWeight, afterItem);
        } else if (depth == 4) {
            readUpToQuote(in);
            const int component = textToInt(text);
            if (filter.empty() || std::binary_search(filter.begin(), filter.end(), component))
                components.push_back(component);
            else
                componentAccepted = false;
        }
    }

    void targetKey(int index) {
        importBlock = true;
        if (options.remap) {
            const std::size_t k = remapPosition;
            if (k < options.sourceIndices.size() && k < options.destinationIndices.size() &&
                options.sourceIndices[k] == index) {
                index = options.destinationIndices[k];
                ++remapPosition;
            } else {
                importBlock = false;
            }
        }
        targetIndex = index;
        handler.targetKey(index);
    }

    // The rest of the line: blanks dropped, the text between the first two double quotes kept.
    void readName(ByteSource& in) {
        nameRead = true;
        name.clear();
        int quotes = 0;
        for (int c = in.get(); c != kEnd && c != '\n'; c = in.get()) {
            if (isLineSpace(c)) continue;
            if (c == '"')
                ++quotes;
            else if (quotes == 1)
                name += static_cast<char>(c);
        }
        handler.channelName(name);
    }

    // Numbers separated by "," up to "]", kept as one delta; a dropped component's bracket is left
    // to the main loop. Missing coordinates count as 0.
    void openBracket(ByteSource& in) {
        if (componentAccepted) {
            double numbers[3] = {0.0, 0.0, 0.0};
            std::size_t count = 0;
            text.clear();
            for (int c = in.get();; c = in.get()) {
                if (c == ',' || c == ']' || c == kEnd) {
                    const double value = common::textToDouble(text);
                    if (count < 3) numbers[count] = value;
                    ++count;
                    text.clear();
                    if (c != ',') break;
                } else if (!(text.empty() && isLeadingSpace(c))) {
                    // Leading blanks are skipped here as the conversion would skip them.
                    text += static_cast<char>(c);
                }
            }
            xyz.insert(xyz.end(), numbers, numbers + 3);
        }
        componentAccepted = true;
    }

    void readUpToQuote(ByteSource& in) {
        text.clear();
        for (int c = in.get(); c != kEnd && c != '"'; c = in.get()) text += static_cast<char>(c);
    }

    const DeltaScanOptions& options;
    DeltaScanHandler& handler;
    std::vector<int> filter;

    std::int64_t depth = 0;
    int targetIndex = 0;
    bool importBlock = true;
    std::size_t remapPosition = 0;
    bool nameRead = false;
    bool afterItem = false;
    double itemWeight = 0.0;
    bool componentAccepted = true;
    std::string name;
    std::string text;
    std::vector<int> components;
    std::vector<double> xyz;
};

} // namespace

bool itemFromWeight(double weight, int& item) {
    const double value = weight * 1000.0 + 5000.0;
    if (!(value > -1.0 && value < 2147483648.0)) return false;
    item = static_cast<int>(value);
    return true;
}

bool scanDeltaFile(const std::string& path, const DeltaScanOptions& options, DeltaScanHandler& handler) {
    std::FILE* file = std::fopen(path.c_str(), "rb");
    if (!file) return false;
    ByteSource in(file);
    // A directory opens but cannot be read.
    if (in.failed()) {
        std::fclose(file);
        return false;
    }
    Scanner(options, handler).run(in);
    std::fclose(file);
    return true;
}

void scanDeltaText(std::string_view text, const DeltaScanOptions& options, DeltaScanHandler& handler) {
    ByteSource in(text);
    Scanner(options, handler).run(in);
}

} // namespace json
