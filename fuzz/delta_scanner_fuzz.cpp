// The delta-file scanner on arbitrary bytes, all of them the file, so that delta files serve as
// seeds unchanged. The length chooses the options (bit 0: remap 0 -> 10 and 1 -> 11, bit 1: keep
// only vertices 0 to 9). Besides the
// sanitizers, every item handed over must carry a valid item index and whole deltas.
#include "core/json/DeltaFileScanner.h"

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace {

class CheckingHandler : public json::DeltaScanHandler {
public:
    void targetKey(int) override {}
    void channelName(const std::string&) override {}
    void itemKey(double, bool) override {}
    void item(int, int itemIndex, const std::string&, const std::vector<int>&,
              const std::vector<double>& xyz) override {
        if (itemIndex < 0 || xyz.size() % 3 != 0) __builtin_trap();
    }
    void invalidItem(int, double) override {}
    void blockClosed() override {}
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    json::DeltaScanOptions options;
    if (size & 1) {
        options.remap = true;
        options.sourceIndices = {0, 1};
        options.destinationIndices = {10, 11};
    }
    if (size & 2) options.vertexFilter = {9, 8, 7, 6, 5, 4, 3, 2, 1, 0};
    CheckingHandler handler;
    json::scanDeltaText(std::string_view(reinterpret_cast<const char*>(data), size), options, handler);
    return 0;
}
