#pragma once
// A 3D view. The host draws nothing: the active view exists and refreshing it succeeds.
#include <maya/MStatus.h>
#include <maya/MTypes.h>

class M3dView {
public:
    M3dView() = default;
    M3dView(const M3dView&) = default;
    M3dView& operator=(const M3dView&) = default;
    virtual ~M3dView() = default;

    static M3dView active3dView(MStatus* ReturnStatus = NULL);
    static unsigned int numberOf3dViews();

    MStatus refresh(bool all = false, bool force = false);
    MStatus refresh(bool all, bool force, bool offscreen);
};
