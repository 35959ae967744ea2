#pragma once
// Writing a whole file so that a failure never leaves it half written: the text goes to a temporary
// file in the same folder, which replaces the target only once it is complete and on disk.
#include <string>
#include <string_view>

namespace host {

// False with the reason in `error` ("Cannot save <path>: …"); the old file, if any, is unchanged.
bool writeFileAtomically(const std::string& path, std::string_view text, std::string& error);

} // namespace host
