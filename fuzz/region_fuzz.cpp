// Both region map readers on arbitrary bytes. Besides the sanitizers, no region may be longer than
// region 0 in the text layout (later regions only ever fall short).
#include "core/json/RegionFile.h"

#include <cstddef>
#include <cstdint>
#include <string_view>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    core::RegionMap fromJson;
    std::string settings;
    json::readArray6(text, fromJson, settings);
    core::RegionMap fromText;
    json::readRegionText(text, fromText, settings);
    for (const auto& region : fromText.regions)
        if (region.size() > fromText.vertexCount()) __builtin_trap();
    return 0;
}
