// The extension module loaded by `import talven` in a Python interpreter.
#include "TalvenModule.h"

#include <malloc.h>

PYBIND11_MODULE(talven, module) {
    // Whole-mesh arrays of a few megabytes are made and dropped on every call; with the allocator's
    // defaults each is a fresh mapping whose pages the kernel must clear again. From the heap, and
    // with freed memory kept, they reuse pages already touched. (The talven program gets the same
    // through its allocator settings at start-up.)
    mallopt(M_MMAP_THRESHOLD, 32 << 20);
    mallopt(M_TRIM_THRESHOLD, 512 << 20);
    pytalven::defineTalvenModule(module);
}
