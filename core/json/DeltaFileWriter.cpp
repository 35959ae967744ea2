#include "core/json/DeltaFileWriter.h"

#include "core/common/StreamNumbers.h"

#include <cstring>

namespace json {

namespace {

// Text is handed to the file whenever this much has gathered.
constexpr std::size_t kBlockSize = std::size_t(1) << 20;
// The longest component line: three tabs, a quoted int, the brackets and three doubles.
constexpr std::size_t kComponentLineChars = 3 + common::kStreamIntChars + 3 * common::kStreamDoubleChars + 16;
// The deepest line is three levels below a target key, which stands at most at level 0.
constexpr std::size_t kMostTabs = 3;

} // namespace

DeltaFileWriter::DeltaFileWriter() : block(new char[kBlockSize]), pos(block.get()) {}

DeltaFileWriter::~DeltaFileWriter() = default;

bool DeltaFileWriter::open(const std::string& path) {
    std::string error;
    opened = file.open(path, error);
    if (!opened) return false;
    line(0, "{");
    return true;
}

char* DeltaFileWriter::room(std::size_t bytes) {
    if (static_cast<std::size_t>(block.get() + kBlockSize - pos) < bytes) flush();
    return pos;
}

void DeltaFileWriter::put(std::string_view text) {
    if (text.size() > kBlockSize / 2) {
        // A text this long (a channel name, in practice never) goes to the file directly.
        flush();
        file.write(text);
        return;
    }
    std::memcpy(room(text.size()), text.data(), text.size());
    pos += text.size();
}

void DeltaFileWriter::indent(std::uint32_t tabs) {
    // A level that wrapped below zero (after skipped indices) stands at the start of the line.
    if (tabs > kMostTabs) return;
    std::memset(room(tabs), '\t', tabs);
    pos += tabs;
}

void DeltaFileWriter::line(std::uint32_t tabs, std::string_view text) {
    indent(tabs);
    put(text);
    put("\n");
}

void DeltaFileWriter::beginTarget(int targetIndex, std::string_view channelName) {
    char key[common::kStreamIntChars + 8];
    char* out = key;
    *out++ = '"';
    out = common::writeStreamInt(out, targetIndex);
    std::memcpy(out, "\": {", 4);
    line(level, std::string_view(key, static_cast<std::size_t>(out + 4 - key)));
    indent(level + 1);
    put("\"name\": \"");
    put(channelName);
    put("\",\n");
    line(level + 1, "\"data\": {");
}

void DeltaFileWriter::writeItem(int item, const int* components, const double* xyz, std::size_t count,
                                bool lastItem) {
    // The item's weight as single-precision arithmetic gives it, printed as a float is printed.
    const float weight = static_cast<float>(item - 5000) / 1000.0f;
    char key[common::kStreamDoubleChars + 8];
    char* out = key;
    *out++ = '"';
    out = common::writeStreamDouble(out, static_cast<double>(weight));
    std::memcpy(out, "\": {", 4);
    line(level + 2, std::string_view(key, static_cast<std::size_t>(out + 4 - key)));

    const std::uint32_t componentLevel = level + 3;
    for (std::size_t k = 0; k < count; ++k) {
        indent(componentLevel);
        char* p = room(kComponentLineChars);
        *p++ = '"';
        p = common::writeStreamInt(p, components[k]);
        std::memcpy(p, "\": [", 4);
        p += 4;
        const double* delta = xyz + 3 * k;
        p = common::writeStreamDouble(p, delta[0]);
        *p++ = ',';
        *p++ = ' ';
        p = common::writeStreamDouble(p, delta[1]);
        *p++ = ',';
        *p++ = ' ';
        p = common::writeStreamDouble(p, delta[2]);
        *p++ = ']';
        if (k + 1 < count) *p++ = ',';
        *p++ = '\n';
        pos = p;
    }
    line(level + 2, lastItem ? "}" : "},");
}

void DeltaFileWriter::endTarget(bool lastIndex) {
    line(level + 1, "}");
    line(level, lastIndex ? "}" : "},");
}

void DeltaFileWriter::skipTarget(bool lastIndex) {
    --level;
    line(level, lastIndex ? "}" : "},");
}

bool DeltaFileWriter::close() {
    if (!opened) return false;
    opened = false;
    line(0, "}");
    put("\n");
    flush();
    std::string error;
    return file.commit(error);
}

void DeltaFileWriter::flush() {
    file.write(std::string_view(block.get(), static_cast<std::size_t>(pos - block.get())));
    pos = block.get();
}

} // namespace json
