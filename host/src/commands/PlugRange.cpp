#include "commands/PlugRange.h"

#include "commands/Names.h"

namespace host {

namespace {

bool readIndex(const std::string& text, std::size_t begin, std::size_t end, uint32_t& out) {
    if (begin >= end) return false;
    uint64_t value = 0;
    for (std::size_t i = begin; i < end; ++i) {
        if (text[i] < '0' || text[i] > '9') return false;
        value = value * 10 + static_cast<uint64_t>(text[i] - '0');
        if (value >= kNoIndex) return false;
    }
    out = static_cast<uint32_t>(value);
    return true;
}

std::string withIndex(const std::string& text, std::size_t open, std::size_t close, uint32_t index) {
    return text.substr(0, open + 1) + std::to_string(index) + text.substr(close);
}

// Rebuilds `plug` with `index` at multi level `level`.
Plug withIndexAt(const Plug& plug, int level, uint32_t index) {
    if (level == plug.depth() - 1 && plug.isElement()) return plug.array().element(index);
    const auto chain = plug.attr()->chain();
    Plug p(plug.node(), chain.front());
    int multiLevel = 0;
    for (std::size_t k = 0; k < chain.size(); ++k) {
        if (k > 0) p = p.child(chain[k]);
        if (!chain[k]->multi) continue;
        const uint32_t original = plug.indexAt(multiLevel);
        const uint32_t wanted = multiLevel == level ? index : original;
        ++multiLevel;
        if (wanted != kNoIndex) p = p.element(wanted);
    }
    return p;
}

} // namespace

bool PlugRange::resolve(const std::string& text, std::string& error) {
    level_ = -1;
    const std::size_t dot = text.find('.');
    // The first '[' whose next ']' has a ':' before it. The next ']' and ':' only move forwards
    // from one '[' to the next, so the text is read once however many brackets it holds.
    std::size_t open = std::string::npos, close = std::string::npos, colon = std::string::npos;
    std::size_t end = 0, sep = 0;
    for (std::size_t at = text.find('[', dot); at != std::string::npos; at = text.find('[', at + 1)) {
        if (end <= at) end = text.find(']', at);
        if (sep <= at) sep = text.find(':', at);
        if (end == std::string::npos || sep == std::string::npos) break;
        if (sep < end) {
            open = at;
            close = end;
            colon = sep;
            break;
        }
    }
    if (open == std::string::npos) {
        first_ = lookupPlug(text, &error);
        return !first_.isNull();
    }
    if (dot == std::string::npos || !readIndex(text, open + 1, colon, lo_) ||
        !readIndex(text, colon + 1, close, hi_) || hi_ < lo_ || text.find(':', close) != std::string::npos) {
        error = "Invalid index range: " + text;
        return false;
    }
    first_ = lookupPlug(withIndex(text, open, close, lo_), &error);
    if (first_.isNull()) return false;
    // The level the range runs over is where a neighbouring index lands.
    const uint32_t other = lo_ + 1 < kNoIndex ? lo_ + 1 : lo_ - 1;
    const Plug probe = lookupPlug(withIndex(text, open, close, other), &error);
    for (int level = 0; !probe.isNull() && level < first_.depth(); ++level)
        if (probe.indexAt(level) != first_.indexAt(level)) level_ = level;
    if (level_ < 0) {
        error = "Invalid index range: " + text;
        return false;
    }
    return true;
}

Plug PlugRange::at(uint64_t i) const {
    return ranged() ? withIndexAt(first_, level_, static_cast<uint32_t>(lo_ + i)) : first_;
}

} // namespace host
