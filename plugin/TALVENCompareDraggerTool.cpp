#include "TALVENCompareDraggerTool.h"

#include <maya/MString.h>

TALVENCompareDraggerToolContext::TALVENCompareDraggerToolContext() {
    setTitleString("TALVEN Compare Dragger Tool");
}

void TALVENCompareDraggerToolContext::toolOnSetup(MEvent&) {
    setHelpString("Change the compare value by holding the left mouse button and sliding left/right");
}

MStatus TALVENCompareDraggerToolContext::doPress(MEvent&) {
    return MS::kSuccess;
}

MStatus TALVENCompareDraggerToolContext::doDrag(MEvent&) {
    return MS::kSuccess;
}

MStatus TALVENCompareDraggerToolContext::doRelease(MEvent&) {
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
