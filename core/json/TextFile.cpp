#include "core/json/TextFile.h"

#include "core/common/AtomicFile.h"

#include <algorithm>
#include <cstdio>

namespace json {

bool readWholeFile(const std::string& path, std::string& data) {
    std::FILE* file = std::fopen(path.c_str(), "rb");
    if (!file) return false;
    std::size_t used = 0;
    for (;;) {
        data.resize(used + std::max<std::size_t>(used, 1 << 16));
        const std::size_t wanted = data.size() - used;
        const std::size_t got = std::fread(&data[used], 1, wanted, file);
        used += got;
        if (got < wanted) break;
    }
    const bool ok = !std::ferror(file);
    std::fclose(file);
    data.resize(used);
    return ok;
}

bool writeWholeFile(const std::string& path, const std::string& text) {
    std::string error;
    return common::writeFileAtomically(path, text, error);
}

} // namespace json
