// The extension module loaded by `import talven` in a Python interpreter.
#include "TalvenModule.h"

PYBIND11_MODULE(talven, module) {
    pytalven::defineTalvenModule(module);
}
