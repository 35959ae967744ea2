// Both weights file readers on arbitrary bytes. Besides the sanitizers, the plain reader must hand
// back one weight per index.
#include "core/json/WeightsFile.h"

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    std::vector<int> indices;
    std::vector<double> weights;
    json::readWeightsText(text, indices, weights);
    indices.clear();
    weights.clear();
    json::readWeightsTextSimple(text, indices, weights);
    if (indices.size() != weights.size()) __builtin_trap();
    return 0;
}
