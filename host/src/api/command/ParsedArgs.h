#pragma once
// The outcome of parsing a command's words against its syntax, shared by copies of the
// MArgParser/MArgDatabase that made it.
#include "api/command/SyntaxData.h"

#include <maya/MArgList.h>
#include <maya/MSelectionList.h>

#include <memory>
#include <string>
#include <vector>

namespace host {

struct FlagUse {
    std::size_t flag; // index into syntax.flags
    std::vector<std::string> words;
};

struct ParsedArgs {
    SyntaxData syntax;
    // In the order given. A flag that is not multi-use appears once, with its last arguments.
    std::vector<FlagUse> uses;
    // For each flag of the syntax, the positions of its uses in `uses`.
    std::vector<std::vector<std::size_t>> usesOfFlag;
    std::vector<std::string> objectWords;
    MSelectionList objects; // resolved objects, or the active selection used as default
    bool objectsFromSelection = false;

    // The i-th use of the flag, or null.
    const FlagUse* use(const char* flag, unsigned int i) const;
    unsigned int useCount(const char* flag) const;
    // The index-th argument of the flag's first use, or null.
    const std::string* argument(const char* flag, unsigned int index) const;
};

// Parses `args`; reports problems as errors through the message log and returns null on failure.
std::shared_ptr<const ParsedArgs> parseArgs(const SyntaxData& syntax, const MArgList& args);

} // namespace host
