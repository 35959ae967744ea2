#pragma once
// Large buffers (a scene's text, its geometry numbers, a million-element multi) are filled once from
// start to end; backed by huge pages they take one page fault per 2 MB instead of one per 4 KB.
#include <cstddef>

namespace host {

// A hint for the whole 2 MB pages inside [data, data + size), given before they are first written;
// nothing changes where the system declines it or the buffer is small.
void preferHugePages(const void* data, std::size_t size);

} // namespace host
