#pragma once
// Filling the optional status out-parameter that most interface methods take.
#include <maya/MStatus.h>

namespace host {

inline void setStatus(MStatus* status, bool ok) {
    if (status) *status = ok ? MS::kSuccess : MS::kFailure;
}

// Sets the object of a function set from a constructor, passing the outcome to the caller.
template <class Fn> void initFunctionSet(Fn& fn, const MObject& object, MStatus* ReturnStatus) {
    MStatus s = fn.setObject(object);
    if (ReturnStatus) *ReturnStatus = s;
}

} // namespace host
