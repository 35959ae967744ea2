#pragma once
// Text helpers shared by the file formats: numbers written as an output stream writes them by
// default, and whole files read into or written from memory.
#include <string>

namespace json {

// Room a caller must leave for one writeIndex / writeNumber.
constexpr int kIndexTextSize = 12;
constexpr int kNumberTextSize = 32;

// Writes the integer in decimal at out and returns the end of the text.
char* writeIndex(char* out, int index);

// Writes the number as an output stream does by default (%g with six significant digits: 0.5, 1,
// 0.0001, 1e-05) and returns the end of the text.
char* writeNumber(char* out, double value);

// The whole file in memory; false when it cannot be opened or read (a directory fails on reading).
bool readWholeFile(const std::string& path, std::string& data);

// Replaces the file with the text; false when it cannot be created or written completely.
bool writeWholeFile(const std::string& path, const std::string& text);

} // namespace json
