#include <maya/MAnimControl.h>

#include "engine/Scene.h"

// The scene keeps its current time in film frames, the default time unit.
MTime MAnimControl::currentTime() {
    return MTime(host::scene().currentTime(), MTime::kFilm);
}

MStatus MAnimControl::setCurrentTime(const MTime& newTime) {
    host::scene().setCurrentTime(newTime.as(MTime::kFilm));
    return MS::kSuccess;
}
