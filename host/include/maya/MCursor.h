#pragma once
// A mouse cursor shape. The host has no window; the cursor only identifies one of Maya's shapes.
#include <maya/MTypes.h>

class MCursor {
public:
    MCursor(const MCursor& other) = default;
    MCursor& operator=(const MCursor& other) = default;
    ~MCursor() = default;

    bool operator==(const MCursor& other) const { return shape_ == other.shape_; }
    bool operator!=(const MCursor& other) const { return shape_ != other.shape_; }

    static const MCursor defaultCursor;
    static const MCursor crosshairCursor;
    static const MCursor doubleCrosshairCursor;
    static const MCursor editCursor;
    static const MCursor pencilCursor;
    static const MCursor handCursor;

private:
    explicit MCursor(int shape) : shape_(shape) {}
    int shape_;
};
