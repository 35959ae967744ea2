#include <maya/MEvent.h>

namespace {

void setStatus(MStatus* status) {
    if (status) *status = MS::kSuccess;
}

} // namespace

MStatus MEvent::getPosition(short& x_pos, short& y_pos) const {
    x_pos = x_;
    y_pos = y_;
    return MS::kSuccess;
}

MStatus MEvent::setPosition(short& x_pos, short& y_pos) {
    x_ = x_pos;
    y_ = y_pos;
    return MS::kSuccess;
}

MEvent::MouseButtonType MEvent::mouseButton(MStatus* ReturnStatus) const {
    setStatus(ReturnStatus);
    return button_;
}

MEvent::ModifierType MEvent::modifiers(MStatus* ReturnStatus) const {
    setStatus(ReturnStatus);
    return static_cast<ModifierType>(modifiers_);
}

MStatus MEvent::setModifiers(ModifierType& modType) {
    modifiers_ = modType;
    return MS::kSuccess;
}

bool MEvent::isModifierNone(MStatus* ReturnStatus) const {
    setStatus(ReturnStatus);
    return modifiers_ == 0;
}

bool MEvent::isModifierShift(MStatus* ReturnStatus) const {
    setStatus(ReturnStatus);
    return (modifiers_ & shiftKey) != 0;
}

bool MEvent::isModifierControl(MStatus* ReturnStatus) const {
    setStatus(ReturnStatus);
    return (modifiers_ & controlKey) != 0;
}
