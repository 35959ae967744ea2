#pragma once
// Strings written back as command-language text: quoted, with the escapes the tokenizer reads.
#include <string>
#include <string_view>

namespace host {

void appendQuoted(std::string& out, std::string_view text);
std::string quoted(std::string_view text);

} // namespace host
