#include "engine/HugePages.h"

#include <cstdint>
#include <sys/mman.h>

namespace host {

void preferHugePages(const void* data, std::size_t size) {
#ifdef MADV_HUGEPAGE
    constexpr std::uintptr_t kHugePage = std::uintptr_t(2) << 20;
    const auto begin = (reinterpret_cast<std::uintptr_t>(data) + kHugePage - 1) & ~(kHugePage - 1);
    const auto end = (reinterpret_cast<std::uintptr_t>(data) + size) & ~(kHugePage - 1);
    if (end > begin) ::madvise(reinterpret_cast<void*>(begin), end - begin, MADV_HUGEPAGE);
#else
    (void)data;
    (void)size;
#endif
}

} // namespace host
