#pragma once
// A handle to one value of a node's data block. The host passes values through plugs, so a
// handle carries nothing.
#include <maya/MTypes.h>

class MDataHandle {
public:
    MDataHandle() = default;
    MDataHandle(const MDataHandle& other) = default;
    MDataHandle& operator=(const MDataHandle& other) = default;
};
