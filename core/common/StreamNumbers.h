#pragma once
// Numbers written as a default-formatted output stream writes them, without a stream: integers as
// plain decimals, doubles as %g with six significant digits ("0.5", "1", "-1.5e-05"). Each writer
// puts its text at out and returns the end; out needs room for the matching constant.
#include <charconv>

namespace common {

constexpr int kStreamIntChars = 12;
constexpr int kStreamDoubleChars = 32;

inline char* writeStreamInt(char* out, int value) {
    return std::to_chars(out, out + kStreamIntChars, value).ptr;
}

char* writeStreamDouble(char* out, double value);

} // namespace common
