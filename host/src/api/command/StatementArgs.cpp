#include "api/command/StatementArgs.h"

#include "lang/Quoting.h"

namespace host {

MArgList argListOf(const Statement& statement) {
    MArgList args;
    for (const Token& token : statement.args) args.addWord(MString(token.text), token.quoted);
    return args;
}

std::string commandTextOf(const Statement& statement) {
    std::string text = statement.command;
    for (const Token& token : statement.args) text += ' ' + (token.quoted ? quoted(token.text) : token.text);
    return text;
}

} // namespace host
