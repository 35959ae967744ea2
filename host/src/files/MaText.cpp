#include "files/MaText.h"

#include <charconv>

namespace host {

namespace {

template <class T> void appendChars(std::string& out, T value) {
    char buffer[32];
    const auto result = std::to_chars(buffer, buffer + sizeof(buffer), value);
    out.append(buffer, result.ptr);
}

bool readsBackAs(const char* begin, const char* end, float value) {
    double parsed = 0.0;
    const auto result = std::from_chars(begin, end, parsed);
    return result.ec == std::errc() && static_cast<float>(parsed) == value;
}

} // namespace

void appendDouble(std::string& out, double value) {
    appendChars(out, value);
}

void appendFloat(std::string& out, float value) {
    char buffer[32];
    const auto result = std::to_chars(buffer, buffer + sizeof(buffer), value);
    // Files are read as doubles and rounded to float; the rare shortest float text that rounds the
    // other way on that path is written with the double's digits instead.
    if (readsBackAs(buffer, result.ptr, value))
        out.append(buffer, result.ptr);
    else
        appendDouble(out, static_cast<double>(value));
}

void appendInt(std::string& out, long long value) {
    appendChars(out, value);
}

ValueList::ValueList(std::string& out) : out_(out) {
    const std::size_t newline = out.rfind('\n');
    lineStart_ = newline == std::string::npos ? 0 : newline + 1;
}

std::string& ValueList::next() {
    if (out_.size() - lineStart_ < kLineWidth) {
        out_ += ' ';
        return out_;
    }
    return newLine();
}

std::string& ValueList::newLine() {
    out_ += "\n\t\t";
    lineStart_ = out_.size();
    return out_;
}

} // namespace host
