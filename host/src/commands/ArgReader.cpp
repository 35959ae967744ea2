#include "commands/ArgReader.h"

#include "commands/TextValues.h"
#include "engine/Scene.h"

#include <cctype>
#include <cstring>

namespace host {

namespace {

const char* kindName(char kind) {
    switch (kind) {
    case 'i':
        return "an integer";
    case 'd':
        return "a number";
    case 'b':
        return "a boolean";
    default:
        return "a string";
    }
}

bool argFits(char kind, const Token& token) {
    double number = 0.0;
    int integer = 0;
    bool flag = false;
    switch (kind) {
    case 'i':
        return integerFromText(token.text, integer);
    case 'd':
        return numberFromText(token.text, number);
    case 'b':
        return boolFromText(token.text, flag);
    default:
        return !isFlagToken(token);
    }
}

const FlagSpec* findFlag(const FlagTable& flags, const std::string& word) {
    for (const FlagSpec& flagDef : flags)
        if (word == flagDef.shortName || word == flagDef.longName) return &flagDef;
    return nullptr;
}

} // namespace

bool isFlagToken(const Token& token) {
    return !token.quoted && token.text.size() > 1 && token.text[0] == '-' &&
           std::isalpha(static_cast<unsigned char>(token.text[1]));
}

bool ArgReader::parse(const FlagTable& flags) {
    uses_.clear();
    positional_.clear();
    positional_.reserve(tokens_.size());
    for (std::size_t i = 0; i < tokens_.size(); ++i) {
        const Token& token = tokens_[i];
        if (!isFlagToken(token)) {
            positional_.push_back(&token);
            continue;
        }
        const FlagSpec* flagDef = findFlag(flags, token.text.substr(1));
        if (!flagDef) {
            messageLog().error("Invalid flag: " + token.text);
            return false;
        }
        const std::size_t argCount = std::strlen(flagDef->args);
        for (std::size_t k = 0; k < argCount; ++k) {
            const char kind = flagDef->args[k];
            if (i + 1 + k >= tokens_.size() || !argFits(kind, tokens_[i + 1 + k])) {
                std::string got =
                    i + 1 + k < tokens_.size() ? ", got \"" + tokens_[i + 1 + k].text + "\"" : "";
                messageLog().error("Flag " + token.text + " needs " + kindName(kind) + " argument" + got +
                                   ".");
                return false;
            }
        }
        uses_.push_back({flagDef, i + 1});
        i += argCount;
    }
    return true;
}

int ArgReader::uses(const char* longName) const {
    int count = 0;
    for (const Use& use : uses_)
        if (std::strcmp(use.flag->longName, longName) == 0) ++count;
    return count;
}

const ArgReader::Use* ArgReader::findUse(const char* longName, int use) const {
    for (const Use& u : uses_)
        if (std::strcmp(u.flag->longName, longName) == 0 && use-- == 0) return &u;
    return nullptr;
}

const std::string& ArgReader::argText(const Use& use, int arg) const {
    return tokens_[use.firstArg + static_cast<std::size_t>(arg)].text;
}

const std::string& ArgReader::text(const char* longName, int arg, int use) const {
    static const std::string empty;
    const Use* u = findUse(longName, use);
    if (!u || static_cast<std::size_t>(arg) >= std::strlen(u->flag->args)) return empty;
    return argText(*u, arg);
}

int ArgReader::integer(const char* longName, int arg, int use) const {
    int value = 0;
    integerFromText(text(longName, arg, use), value);
    return value;
}

double ArgReader::number(const char* longName, int arg, int use) const {
    double value = 0.0;
    numberFromText(text(longName, arg, use), value);
    return value;
}

bool ArgReader::boolean(const char* longName, int arg, int use) const {
    bool value = false;
    boolFromText(text(longName, arg, use), value);
    return value;
}

bool ArgReader::enabled(const char* longName) const {
    const Use* u = findUse(longName, uses(longName) - 1);
    if (!u) return false;
    return std::strlen(u->flag->args) == 0 || boolean(longName, 0, uses(longName) - 1);
}

bool ArgReader::fail(const std::string& text) const {
    messageLog().error(std::string(command_) + ": " + text);
    return false;
}

} // namespace host
