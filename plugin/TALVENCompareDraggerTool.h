#pragma once
// The compare dragger: a viewport tool whose horizontal mouse drag sets a compare value between 0 and
// 1, and the context command that creates it.
#include <maya/MEvent.h>
#include <maya/MPxContext.h>
#include <maya/MPxContextCommand.h>
#include <maya/MStatus.h>

class TALVENCompareDraggerToolContext : public MPxContext {
public:
    TALVENCompareDraggerToolContext();

    void toolOnSetup(MEvent& event) override;

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
};

class TALVENCompareDraggerToolContextCommand : public MPxContextCommand {
public:
    static void* creator();

    MPxContext* makeObj() override;
};
