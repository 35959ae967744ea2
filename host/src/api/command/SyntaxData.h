#pragma once
// What an MSyntax describes: flags by short and long name with their argument types, the object
// format and counts, selection default, and whether -query/-edit exist.
#include <maya/MSyntax.h>

#include <climits>
#include <cstdint>
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

class SyntaxData {
public:
    MSyntax::MObjectFormat objectFormat = MSyntax::kNone;
    unsigned int minObjects = 0;
    unsigned int maxObjects = UINT_MAX;
    bool selectionAsDefault = false;

    const std::vector<SyntaxFlag>& flags() const { return flags_; }
    void addFlag(SyntaxFlag flag);
    void removeFlag(std::size_t index);
    void setMultiUse(std::size_t index) { flags_[index].multiUse = true; }

    // Index into flags() of the flag named by its short or long name (the '-' may be left off),
    // or -1. Constant time: parsing looks up every flag word of a command.
    int findFlag(std::string_view name) const;

private:
    // A name of a flag in the index, as a piece of names_; flag -1 marks a free slot.
    struct Slot {
        int flag = -1;
        std::uint32_t nameStart = 0;
        std::uint32_t nameSize = 0;
    };

    void rebuildIndex();

    std::vector<SyntaxFlag> flags_;
    // Open addressing by the names without their '-', which lie back to back in names_: at least
    // four slots per name, a power of two in all.
    std::vector<Slot> slots_;
    std::string names_;
};

// "-x" for "x" and "-x".
std::string dashed(std::string_view name);

// The flags that enableQuery/enableEdit add.
inline constexpr const char* kQueryShort = "-q";
inline constexpr const char* kQueryLong = "-query";
inline constexpr const char* kEditShort = "-e";
inline constexpr const char* kEditLong = "-edit";

} // namespace host
