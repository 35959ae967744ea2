#include "core/json/DeltaFileWriter.h"

#include "core/common/StreamNumbers.h"

#include <cstring>

namespace json {

namespace {

// Text is handed to the file whenever this much has gathered.
constexpr std::size_t kBlockSize = std::size_t(1) << 20;
// The longest component line: three tabs, a quoted int, the brackets and three doubles.
constexpr std::size_t kComponentLineChars = 3 + common::kStreamIntChars + 3 * common::kStreamDoubleChars + 16;

} // namespace

DeltaFileWriter::~DeltaFileWriter() {
    if (file) std::fclose(file);
}

bool DeltaFileWriter::open(const std::string& path) {
    std::FILE* truncated = std::fopen(path.c_str(), "wb");
    if (!truncated) return false;
    std::fclose(truncated);
    file = std::fopen(path.c_str(), "ab");
    if (!file) return false;
    buffer.reserve(kBlockSize + kComponentLineChars);
    line(0, "{");
    return true;
}

void DeltaFileWriter::indent(std::uint32_t tabs) {
    // A level that wrapped below zero (after skipped indices) stands at the start of the line.
    if (tabs > INT32_MAX) return;
    buffer.append(tabs, '\t');
}

void DeltaFileWriter::line(std::uint32_t tabs, std::string_view text) {
    indent(tabs);
    buffer.append(text);
    buffer += '\n';
    if (buffer.size() >= kBlockSize) flush();
}

void DeltaFileWriter::beginTarget(int targetIndex, std::string_view channelName) {
    char key[common::kStreamIntChars + 8];
    char* out = key;
    *out++ = '"';
    out = common::writeStreamInt(out, targetIndex);
    std::memcpy(out, "\": {", 4);
    line(level, std::string_view(key, static_cast<std::size_t>(out + 4 - key)));
    indent(level + 1);
    buffer += "\"name\": \"";
    buffer.append(channelName);
    buffer += "\",\n";
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
        reserve(kComponentLineChars);
        const std::size_t start = buffer.size();
        buffer.resize(start + kComponentLineChars);
        char* p = &buffer[start];
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
        buffer.resize(static_cast<std::size_t>(p - buffer.data()));
        if (buffer.size() >= kBlockSize) flush();
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
    if (!file) return false;
    line(0, "}");
    buffer += '\n';
    flush();
    if (std::fflush(file) != 0) failed = true;
    if (std::fclose(file) != 0) failed = true;
    file = nullptr;
    return !failed;
}

void DeltaFileWriter::reserve(std::size_t bytes) {
    if (buffer.capacity() - buffer.size() < bytes) buffer.reserve(buffer.size() + bytes + kBlockSize);
}

void DeltaFileWriter::flush() {
    if (buffer.empty()) return;
    if (file && std::fwrite(buffer.data(), 1, buffer.size(), file) != buffer.size()) failed = true;
    buffer.clear();
}

} // namespace json
