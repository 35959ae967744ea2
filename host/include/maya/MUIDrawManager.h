#pragma once
// The viewport 2.0 draw manager handed to a tool context's event handlers. The host draws nothing,
// so it offers no drawing operations.
#include <maya/MTypes.h>

namespace MHWRender {

class MUIDrawManager {
public:
    MUIDrawManager() = default;
    MUIDrawManager(const MUIDrawManager&) = delete;
    MUIDrawManager& operator=(const MUIDrawManager&) = delete;
};

} // namespace MHWRender
