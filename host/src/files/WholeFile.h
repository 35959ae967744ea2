#pragma once
// A file's whole text, read in one piece into a string of its size.
#include <string>

namespace host {

// False with "File not found: <path>" or "Could not read file: <path>" in `error`.
bool readWholeFile(const std::string& path, std::string& text, std::string& error);

} // namespace host
