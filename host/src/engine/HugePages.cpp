#include "engine/HugePages.h"

#include <cstdint>
#include <cstdlib>
#include <string>
#include <sys/mman.h>
#include <unistd.h>

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

void restartWithHugePageHeap(char** argv) {
#if defined(__SANITIZE_ADDRESS__)
    (void)argv;
#else
    const char* current = std::getenv("GLIBC_TUNABLES");
    std::string tunables = current ? current : "";
    if (tunables.find("glibc.malloc.hugetlb") != std::string::npos) return;
    if (!tunables.empty()) tunables += ':';
    tunables += "glibc.malloc.hugetlb=1:glibc.malloc.mmap_threshold=1073741824:"
                "glibc.malloc.trim_threshold=1073741824";
    if (::setenv("GLIBC_TUNABLES", tunables.c_str(), 1) != 0) return;
    ::execv("/proc/self/exe", argv);
#endif
}

} // namespace host
