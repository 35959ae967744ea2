#include "core/json/DeltaFileScanner.h"

#include "core/common/TextNumbers.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <limits>
#include <memory>

namespace json {

namespace {

constexpr int kEnd = -1;
constexpr std::size_t kBlockSize = std::size_t(1) << 20;

// Bytes from memory or from a file read in large blocks. get() is inline and only refills at the
// end of a block; text up to a delimiter is handed out as a view into the block when it lies in
// one, and gathered across blocks otherwise.
class ByteSource {
public:
    explicit ByteSource(std::string_view text) : next(text.data()), end(text.data() + text.size()) {}
    explicit ByteSource(std::FILE* file) : file(file), block(new char[kBlockSize]) { refill(); }

    int get() {
        if (next == end && !refill()) return kEnd;
        return static_cast<unsigned char>(*next++);
    }

    // The next byte for which acts[byte] is set, or kEnd; the bytes before it are passed over.
    int nextActive(const bool (&acts)[256]) {
        for (;;) {
            while (next != end) {
                const unsigned char c = static_cast<unsigned char>(*next++);
                if (acts[c]) return c;
            }
            if (!refill()) return kEnd;
        }
    }

    // The text up to the delimiter, which is consumed; at the end of the input, the rest.
    std::string_view takeUntil(char delimiter) {
        const char* found = find(delimiter);
        if (found) {
            const std::string_view text(next, static_cast<std::size_t>(found - next));
            next = found + 1;
            return text;
        }
        spill.assign(next, end);
        next = end;
        while (refill()) {
            found = find(delimiter);
            spill.append(next, found ? found : end);
            next = found ? found + 1 : end;
            if (found) break;
        }
        return spill;
    }

    bool failed() const { return file && std::ferror(file); }

private:
    const char* find(char delimiter) const {
        if (next == end) return nullptr;
        return static_cast<const char*>(std::memchr(next, delimiter, static_cast<std::size_t>(end - next)));
    }

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
    std::string spill;
};

// The bytes the main loop acts on; all others are passed over.
struct ActiveBytes {
    bool acts[256] = {};
    ActiveBytes() {
        for (const unsigned char c : {'{', '}', '"', ':', '['}) acts[c] = true;
    }
};
const ActiveBytes kActive;

bool isLineSpace(int c) {
    return c == '\t' || c == '\f' || c == '\r' || c == ' ';
}

bool isLeadingSpace(int c) {
    return isLineSpace(c) || c == '\n' || c == '\v';
}

// Leading whitespace goes as the conversion would skip it, which keeps numbers on its fast path.
std::string_view withoutLeadingSpace(std::string_view text) {
    std::size_t k = 0;
    while (k < text.size() && isLeadingSpace(static_cast<unsigned char>(text[k]))) ++k;
    return text.substr(k);
}

int textToInt(std::string_view text) {
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
        for (int c = in.nextActive(kActive.acts); c != kEnd; c = in.nextActive(kActive.acts)) {
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
            targetKey(textToInt(in.takeUntil('"')));
        } else if (depth == 3) {
            itemWeight = common::textToDouble(in.takeUntil('"'));
            handler.itemKey(itemWeight, afterItem);
        } else if (depth == 4) {
            const int component = textToInt(in.takeUntil('"'));
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
            std::string_view rest = in.takeUntil(']');
            for (std::size_t k = 0;; ++k) {
                const std::size_t comma = rest.find(',');
                if (k < 3) numbers[k] = common::textToDouble(withoutLeadingSpace(rest.substr(0, comma)));
                if (comma == std::string_view::npos) break;
                rest.remove_prefix(comma + 1);
            }
            xyz.insert(xyz.end(), numbers, numbers + 3);
        }
        componentAccepted = true;
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
