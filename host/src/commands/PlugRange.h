#pragma once
// The plugs one setAttr writes: a single plug, or the elements of an index range such as
// ".vt[0:7]" or ".wl[0:421].w" (one range per name, on any multi level).
#include "engine/Plug.h"

#include <string>

namespace host {

class PlugRange {
public:
    // Resolves the name (see lookupPlug); false with an error for a bad name or range.
    bool resolve(const std::string& text, std::string& error);

    const Plug& first() const { return first_; }
    bool ranged() const { return level_ >= 0; }
    uint32_t firstIndex() const { return lo_; }
    // Number of plugs; a range may be far longer than any data given for it.
    uint64_t count() const { return ranged() ? static_cast<uint64_t>(hi_) - lo_ + 1 : 1; }
    // The plug for position `i` (0 <= i < count()).
    Plug at(uint64_t i) const;

private:
    Plug first_;
    int level_ = -1; // the multi level the range runs over
    uint32_t lo_ = 0, hi_ = 0;
};

} // namespace host
