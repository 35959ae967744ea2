#include "api/command/StatementArgs.h"

namespace host {

MArgList argListOf(const Statement& statement) {
    MArgList args;
    for (const Token& token : statement.args) args.addWord(MString(token.text), token.quoted);
    return args;
}

namespace {

std::string quoted(const std::string& text) {
    std::string out = "\"";
    for (char c : text) {
        switch (c) {
        case '"':
            out += "\\\"";
            break;
        case '\\':
            out += "\\\\";
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
    return out + '"';
}

} // namespace

std::string commandTextOf(const Statement& statement) {
    std::string text = statement.command;
    for (const Token& token : statement.args) text += ' ' + (token.quoted ? quoted(token.text) : token.text);
    return text;
}

} // namespace host
