#pragma once
// The scene's current time.
#include <maya/MStatus.h>
#include <maya/MTime.h>
#include <maya/MTypes.h>

class MAnimControl {
public:
    MAnimControl() = default;
    virtual ~MAnimControl() = default;

    static MTime currentTime();
    static MStatus setCurrentTime(const MTime& newTime);
};
