#include <maya/M3dView.h>

M3dView M3dView::active3dView(MStatus* ReturnStatus) {
    if (ReturnStatus) *ReturnStatus = MS::kSuccess;
    return M3dView();
}

unsigned int M3dView::numberOf3dViews() {
    return 1;
}

MStatus M3dView::refresh(bool, bool) {
    return MS::kSuccess;
}

MStatus M3dView::refresh(bool, bool, bool) {
    return MS::kSuccess;
}
