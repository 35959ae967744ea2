#include "files/FilePlugPath.h"

namespace host {

std::string filePlugPath(const Plug& plug) {
    if (plug.isNull()) return std::string();
    const auto chain = plug.attr()->chain();
    std::string out;
    int level = 0;
    for (std::size_t k = 0; k < chain.size(); ++k) {
        const AttrSpec* a = chain[k];
        if (!a->multi && !a->madeUp && k + 1 != chain.size()) continue;
        if (!out.empty()) out += '.';
        out += a->shortName;
        if (!a->multi) continue;
        const uint32_t index = plug.indexAt(level++);
        if (index != kNoIndex) out += '[' + std::to_string(index) + ']';
    }
    return out;
}

} // namespace host
