#include <maya/MPxContext.h>

MPxContext::MPxContext() = default;
MPxContext::~MPxContext() = default;

void MPxContext::toolOnSetup(MEvent&) {}
void MPxContext::toolOffCleanup() {}

MStatus MPxContext::doPress(MEvent&) {
    return MS::kSuccess;
}
MStatus MPxContext::doRelease(MEvent&) {
    return MS::kSuccess;
}
MStatus MPxContext::doDrag(MEvent&) {
    return MS::kSuccess;
}
MStatus MPxContext::doHold(MEvent&) {
    return MS::kSuccess;
}

MStatus MPxContext::doPress(MEvent& event, MHWRender::MUIDrawManager&, const MHWRender::MFrameContext&) {
    return doPress(event);
}

MStatus MPxContext::doRelease(MEvent& event, MHWRender::MUIDrawManager&, const MHWRender::MFrameContext&) {
    return doRelease(event);
}

MStatus MPxContext::doDrag(MEvent& event, MHWRender::MUIDrawManager&, const MHWRender::MFrameContext&) {
    return doDrag(event);
}

MStatus MPxContext::doHold(MEvent& event, MHWRender::MUIDrawManager&, const MHWRender::MFrameContext&) {
    return doHold(event);
}

MStatus MPxContext::setHelpString(const MString& str) {
    help_ = str;
    return MS::kSuccess;
}

MStatus MPxContext::setTitleString(const MString& str) {
    title_ = str;
    return MS::kSuccess;
}

MStatus MPxContext::setCursor(const MCursor& newCursor) {
    cursor_ = newCursor;
    return MS::kSuccess;
}
