#include "lang/Quoting.h"

namespace host {

void appendQuoted(std::string& out, std::string_view text) {
    out += '"';
    for (char c : text) {
        switch (c) {
        case '"':
        case '\\':
            out += '\\';
            out += c;
            break;
        case '\n':
            out += "\\n";
            break;
        case '\t':
            out += "\\t";
            break;
        case '\r':
            out += "\\r";
            break;
        default:
            out += c;
        }
    }
    out += '"';
}

std::string quoted(std::string_view text) {
    std::string out;
    appendQuoted(out, text);
    return out;
}

} // namespace host
