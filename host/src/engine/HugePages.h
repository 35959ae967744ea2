#pragma once
// Large buffers (a scene's text, its geometry numbers, a million-element multi) are filled once from
// start to end; backed by huge pages they take one page fault per 2 MB instead of one per 4 KB.
#include <cstddef>

namespace host {

// A hint for the whole 2 MB pages inside [data, data + size), given before they are first written;
// nothing changes where the system declines it or the buffer is small.
void preferHugePages(const void* data, std::size_t size);

// The same for every large allocation of the process, and freed memory kept for the next one:
// commands build and drop arrays of mesh size, and on some machines first touching fresh pages costs
// more than the work done in them. The C library reads these settings only at start, so the process
// starts itself once more with them (nothing else has run yet when a main calls this). Returns when
// they are set already, when a sanitizer owns the heap, or when the restart fails.
void restartWithHugePageHeap(char** argv);

} // namespace host
