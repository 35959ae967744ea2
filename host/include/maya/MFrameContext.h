#pragma once
// The viewport 2.0 frame being drawn, handed to a tool context's event handlers. The host has no
// viewport, so it carries nothing.
#include <maya/MTypes.h>

namespace MHWRender {

class MFrameContext {
public:
    MFrameContext() = default;
    MFrameContext(const MFrameContext&) = delete;
    MFrameContext& operator=(const MFrameContext&) = delete;
};

} // namespace MHWRender
