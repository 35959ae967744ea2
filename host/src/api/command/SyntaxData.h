#pragma once
// What an MSyntax describes: flags by short and long name with their argument types, the object
// format and counts, selection default, and whether -query/-edit exist.
#include <maya/MSyntax.h>

#include <climits>
#include <string>
#include <string_view>
#include <vector>

namespace host {

struct SyntaxFlag {
    std::string shortName; // with the leading '-'
    std::string longName;
    std::vector<MSyntax::MArgType> argTypes;
    bool multiUse = false;
};

struct SyntaxData {
    std::vector<SyntaxFlag> flags;
    MSyntax::MObjectFormat objectFormat = MSyntax::kNone;
    unsigned int minObjects = 0;
    unsigned int maxObjects = UINT_MAX;
    bool selectionAsDefault = false;

    // Index into `flags` of the flag named by its short or long name (the '-' may be left off),
    // or -1.
    int findFlag(std::string_view name) const;
};

// "-x" for "x" and "-x".
std::string dashed(std::string_view name);

// The flags that enableQuery/enableEdit add.
inline constexpr const char* kQueryShort = "-q";
inline constexpr const char* kQueryLong = "-query";
inline constexpr const char* kEditShort = "-e";
inline constexpr const char* kEditLong = "-edit";

} // namespace host
