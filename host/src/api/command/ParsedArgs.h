#pragma once
// The outcome of parsing a command's words against its syntax, shared by copies of the
// MArgParser/MArgDatabase that made it. It refers to the words by position in the parsed list,
// which it shares, so that parsing copies no word.
#include "api/command/SyntaxData.h"
#include "lang/WordList.h"

#include <maya/MArgList.h>
#include <maya/MSelectionList.h>

#include <memory>
#include <string_view>
#include <vector>

namespace host {

struct FlagUse {
    unsigned int flag;      // index into syntax.flags()
    unsigned int firstWord; // position of its first argument in the parsed words
    unsigned int wordCount; // its arguments, none in query mode
};

struct ParsedArgs {
    SyntaxData syntax;
    std::shared_ptr<const WordList> words; // never null
    // In the order given. A flag that is not multi-use appears once, with its last arguments.
    std::vector<FlagUse> uses;
    // For each flag of the syntax, the positions of its uses in `uses`.
    std::vector<std::vector<unsigned int>> usesOfFlag;
    // The object words are the parsed words from here on.
    unsigned int firstObject = 0;
    MSelectionList objects; // resolved objects, or the active selection used as default
    bool objectsFromSelection = false;

    // The i-th use of the flag, or null.
    const FlagUse* use(const char* flag, unsigned int i) const;
    unsigned int useCount(const char* flag) const;
    // The index-th argument of the flag's first use; false when there is none.
    bool argument(const char* flag, unsigned int index, std::string_view& word) const;
    unsigned int objectCount() const { return static_cast<unsigned int>(words->size()) - firstObject; }
    std::string_view object(unsigned int i) const { return (*words)[firstObject + i]; }
};

// Parses `args`; reports problems as errors through the message log and returns null on failure.
std::shared_ptr<const ParsedArgs> parseArgs(const SyntaxData& syntax, const MArgList& args);

} // namespace host
