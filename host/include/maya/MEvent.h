#pragma once
// A mouse event handed to a tool context: the position in view coordinates and the button.
#include <maya/MStatus.h>
#include <maya/MTypes.h>

class MEvent {
public:
    enum MouseButtonType { kLeftMouse = 1 << 6, kMiddleMouse = 1 << 7 };
    enum ModifierType { shiftKey = 1 << 0, controlKey = 1 << 2 };

    MEvent() = default;
    virtual ~MEvent() = default;

    MStatus getPosition(short& x_pos, short& y_pos) const;
    MStatus setPosition(short& x_pos, short& y_pos);
    MouseButtonType mouseButton(MStatus* ReturnStatus = NULL) const;
    ModifierType modifiers(MStatus* ReturnStatus = NULL) const;
    MStatus setModifiers(ModifierType& modType);
    bool isModifierNone(MStatus* ReturnStatus = NULL) const;
    bool isModifierShift(MStatus* ReturnStatus = NULL) const;
    bool isModifierControl(MStatus* ReturnStatus = NULL) const;

    // Host access, not part of Maya's interface: never used by plugin code.
    void setMouseButton(MouseButtonType button) { button_ = button; }

private:
    short x_ = 0;
    short y_ = 0;
    MouseButtonType button_ = kLeftMouse;
    int modifiers_ = 0;
};
