#include "TALVENCompareDraggerTool.h"

#include <maya/MAnimControl.h>
#include <maya/MCursor.h>
#include <maya/MGlobal.h>
#include <maya/MStringArray.h>
#include <maya/MTime.h>

#include <cstdio>

namespace {

const char* const kStepVar = "TALVENCompareDraggerToolStep";
const char* const kToolListVar = "TALVENSculptCompareToolList";

void run(const MString& command) {
    MGlobal::executeCommand(command, false, false);
}

} // namespace

TALVENCompareDraggerToolContext::TALVENCompareDraggerToolContext()
    : pressX(0), pressY(0), step(0.035), value(0.0), active(false), startTime(0.0), endTime(0.0),
      timeRange(0.0), sensitivity(0.0), restoreTime(0.0) {
    setTitleString("TALVEN Compare Dragger Tool");
}

void TALVENCompareDraggerToolContext::toolOnSetup(MEvent&) {
    setHelpString("Change the compare value by holding the left mouse button and sliding left/right");
    setCursor(MCursor::handCursor);
}

MStatus TALVENCompareDraggerToolContext::doPress(MEvent& event) {
    view = M3dView::active3dView();
    event.getPosition(pressX, pressY);
    value = 0.0;

    bool exists = false;
    const double stepValue = MGlobal::optionVarDoubleValue(kStepVar, &exists);
    if (exists) step = stepValue;

    const MString toolList = MGlobal::optionVarStringValue(kToolListVar, &exists);
    MStringArray fields;
    if (exists) toolList.split(',', fields);
    if (fields.length() != 5) {
        active = false;
        return MS::kSuccess;
    }
    startTime = fields[0].asDouble();
    endTime = fields[1].asDouble();
    timeRange = endTime - startTime;
    sensitivity = fields[2].asDouble();
    restoreTime = fields[3].asDouble();
    compareNode = fields[4];
    active = compareNode.length() > 0;
    return MS::kSuccess;
}

MStatus TALVENCompareDraggerToolContext::doDrag(MEvent& event) {
    if (!active || event.mouseButton() != MEvent::kLeftMouse) return MS::kSuccess;
    run("talvenSculpt_compareSculpt");

    short x = 0;
    short y = 0;
    event.getPosition(x, y);
    const short distance = static_cast<short>(x - pressX);
    // Absolute from the press point, not accumulated.
    value = distance * sensitivity * 0.01;
    if (value > 1.0) value = 1.0;
    if (value <= 0.0) value = 0.0;

    if (startTime != endTime) {
        MTime time = MAnimControl::currentTime();
        time.setValue(timeRange * value + startTime);
        MAnimControl::setCurrentTime(time);
    }

    char number[64];
    std::snprintf(number, sizeof number, "%f", value);
    run("setAttr " + compareNode + ".w[10000]" + number);
    view.refresh(true, false);
    return MS::kSuccess;
}

MStatus TALVENCompareDraggerToolContext::doRelease(MEvent&) {
    if (active) {
        // The time to restore is taken in film frames whatever the scene's unit.
        MAnimControl::setCurrentTime(MTime(restoreTime, MTime::k24FPS));
        run("talvenSculpt_resetCompare");
        view.refresh(true, false);
    }
    active = false;
    return MS::kSuccess;
}

MStatus TALVENCompareDraggerToolContext::doPress(MEvent& event, MHWRender::MUIDrawManager&,
                                                 const MHWRender::MFrameContext&) {
    return doPress(event);
}

MStatus TALVENCompareDraggerToolContext::doDrag(MEvent& event, MHWRender::MUIDrawManager&,
                                                const MHWRender::MFrameContext&) {
    return doDrag(event);
}

MStatus TALVENCompareDraggerToolContext::doRelease(MEvent& event, MHWRender::MUIDrawManager&,
                                                   const MHWRender::MFrameContext&) {
    return doRelease(event);
}

void* TALVENCompareDraggerToolContextCommand::creator() {
    return new TALVENCompareDraggerToolContextCommand();
}

MPxContext* TALVENCompareDraggerToolContextCommand::makeObj() {
    return new TALVENCompareDraggerToolContext();
}
