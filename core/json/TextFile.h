#pragma once
// Whole files read into or written from memory, for the file formats.
#include <string>

namespace json {

// The whole file in memory; false when it cannot be opened or read (a directory fails on reading).
bool readWholeFile(const std::string& path, std::string& data);

// Replaces the file with the text, never leaving it cut short (see AtomicFile); false when it cannot
// be written completely.
bool writeWholeFile(const std::string& path, const std::string& text);

} // namespace json
