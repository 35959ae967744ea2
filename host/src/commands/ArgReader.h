#pragma once
// Reads the flags and arguments of a built-in command as Maya's parser does: a flag by its short or
// long name, each with a fixed list of typed arguments, anywhere among the other arguments. Negative
// numbers and quoted strings are never flags. Reading is one pass without copies, so a statement
// with a million values costs no more than the values themselves.
#include "lang/CommandTable.h"

#include <string>
#include <vector>

namespace host {

// `args` lists a flag's arguments, one letter each: s string, i integer, d number, b boolean
// (on/off, true/false, yes/no, 1/0).
struct FlagSpec {
    const char* shortName;
    const char* longName;
    const char* args;
};

using FlagTable = std::vector<FlagSpec>;

class ArgReader {
public:
    struct Use {
        const FlagSpec* flag;
        std::size_t firstArg; // index of the flag's first argument among the tokens
    };

    ArgReader(const char* command, const std::vector<Token>& tokens) : command_(command), tokens_(tokens) {}

    // Reports an unknown flag or a missing or ill-typed flag argument and returns false.
    bool parse(const FlagTable& flags);

    bool has(const char* longName) const { return uses(longName) > 0; }
    int uses(const char* longName) const;
    // Argument `arg` of use `use` of a flag; parse() has checked that it exists and has its type.
    const std::string& text(const char* longName, int arg = 0, int use = 0) const;
    int integer(const char* longName, int arg = 0, int use = 0) const;
    double number(const char* longName, int arg = 0, int use = 0) const;
    bool boolean(const char* longName, int arg = 0, int use = 0) const;
    // A boolean flag: false when absent, its argument (or true without one) when given.
    bool enabled(const char* longName) const;

    // Every flag use in order, for commands whose flags act in sequence.
    const std::vector<Use>& flagUses() const { return uses_; }
    const std::string& argText(const Use& use, int arg) const;

    const std::vector<const Token*>& positional() const { return positional_; }

    // Logs "<command>: <text>" as an error; returns false so handlers can `return reader.fail(…)`.
    bool fail(const std::string& text) const;

private:
    const Use* findUse(const char* longName, int use) const;

    const char* command_;
    const std::vector<Token>& tokens_;
    std::vector<Use> uses_;
    std::vector<const Token*> positional_;
};

// True for an unquoted "-word": numbers such as -1.5 are not flags.
bool isFlagToken(const Token& token);

} // namespace host
