#include "files/ImportNames.h"

#include "commands/ArgReader.h"
#include "engine/Scene.h"

namespace host {

namespace {

bool isFlagNamed(const Token& token, const char* shortName, const char* longName) {
    return isFlagToken(token) &&
           (token.text == std::string("-") + shortName || token.text == std::string("-") + longName);
}

} // namespace

void ImportNames::rename(Token& token) const {
    if (renamed_.empty()) return;
    // The first name of a path: "a.tx", "a|b.tx", "|a|b".
    const std::size_t start = !token.text.empty() && token.text[0] == '|' ? 1 : 0;
    const std::size_t end = std::min(token.text.find('|', start), token.text.find('.', start));
    const std::string first =
        token.text.substr(start, end == std::string::npos ? std::string::npos : end - start);
    auto it = renamed_.find(first);
    if (it != renamed_.end()) token.text.replace(start, first.size(), it->second);
}

void ImportNames::rewrite(Statement& statement) {
    requested_.clear();
    std::vector<Token>& args = statement.args;
    const std::string& command = statement.command;
    if (command == "createNode") {
        bool parented = false;
        Token* name = nullptr;
        for (std::size_t i = 0; i + 1 < args.size(); ++i) {
            if (isFlagNamed(args[i], "p", "parent")) {
                rename(args[i + 1]);
                parented = true;
            } else if (isFlagNamed(args[i], "n", "name")) {
                name = &args[i + 1];
            }
        }
        if (!name) return;
        requested_ = name->text;
        if (!parented && scene().nameInUse(name->text)) name->text = prefix_ + "_" + name->text;
        return;
    }
    if (renamed_.empty()) return;
    if (command == "setAttr") {
        for (Token& token : args)
            if (!isFlagToken(token) && token.text.find('.') != std::string::npos) {
                rename(token);
                break;
            }
        return;
    }
    if (command == "connectAttr" || command == "disconnectAttr" || command == "parent" ||
        command == "select" || command == "aliasAttr" || command == "addAttr")
        for (Token& token : args)
            if (!isFlagToken(token)) rename(token);
}

void ImportNames::created(const Statement& statement, const Node& node) {
    if (statement.command == "createNode" && !requested_.empty() && node.name() != requested_)
        renamed_[requested_] = node.name();
}

} // namespace host
