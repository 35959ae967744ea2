#pragma once
#include <maya/MStatus.h>

namespace talven {

// A value converted between two units given by their sizes in a common base unit; a size of 0
// marks an invalid unit, which fails with kInvalidParameter and gives 0.
inline double convertUnit(double value, double fromSize, double toSize, MStatus* ReturnStatus) {
    const bool ok = fromSize != 0.0 && toSize != 0.0;
    if (ReturnStatus) *ReturnStatus = ok ? MS::kSuccess : MS::kInvalidParameter;
    if (!ok) return 0.0;
    return fromSize == toSize ? value : value * fromSize / toSize;
}

} // namespace talven
