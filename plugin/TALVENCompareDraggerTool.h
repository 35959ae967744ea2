#pragma once
// The compare dragger: a viewport tool whose horizontal mouse drag sets a compare value between 0 and
// 1, and the context command that creates it.
#include <maya/M3dView.h>
#include <maya/MEvent.h>
#include <maya/MPxContext.h>
#include <maya/MPxContextCommand.h>
#include <maya/MStatus.h>
#include <maya/MString.h>

class TALVENCompareDraggerToolContext : public MPxContext {
public:
    TALVENCompareDraggerToolContext();

    void toolOnSetup(MEvent& event) override;

    // Press reads the configuration, drag (left button) drives the compare weight and the time,
    // release puts the time back.
    MStatus doPress(MEvent& event) override;
    MStatus doDrag(MEvent& event) override;
    MStatus doRelease(MEvent& event) override;

    // The viewport 2.0 forms; each forwards to its legacy form.
    MStatus doPress(MEvent& event, MHWRender::MUIDrawManager& drawMgr,
                    const MHWRender::MFrameContext& context) override;
    MStatus doDrag(MEvent& event, MHWRender::MUIDrawManager& drawMgr,
                   const MHWRender::MFrameContext& context) override;
    MStatus doRelease(MEvent& event, MHWRender::MUIDrawManager& drawMgr,
                      const MHWRender::MFrameContext& context) override;

private:
    M3dView view;
    short pressX;
    short pressY;
    double step;      // kept from the option variable; the drag mapping does not use it
    double value;     // the compare value, 0 .. 1
    bool active;      // a press found a usable tool list
    double startTime; // the tool list's five fields
    double endTime;
    double timeRange;
    double sensitivity;
    double restoreTime;
    MString compareNode;
};

class TALVENCompareDraggerToolContextCommand : public MPxContextCommand {
public:
    static void* creator();

    MPxContext* makeObj() override;
};
