#pragma once
// Base class of interactive tool contexts. The host calls the event handlers with MEvents it
// builds; both the legacy and the draw-manager forms exist, and by default the second calls the
// first.
#include <maya/MCursor.h>
#include <maya/MEvent.h>
#include <maya/MStatus.h>
#include <maya/MString.h>
#include <maya/MTypes.h>

class MPxContext {
public:
    MPxContext();
    MPxContext(const MPxContext&) = delete;
    MPxContext& operator=(const MPxContext&) = delete;
    virtual ~MPxContext();

    virtual void toolOnSetup(MEvent& event);
    virtual void toolOffCleanup();
    virtual MStatus doPress(MEvent& event);
    virtual MStatus doRelease(MEvent& event);
    virtual MStatus doDrag(MEvent& event);
    virtual MStatus doHold(MEvent& event);
    virtual MStatus doPress(MEvent& event, MHWRender::MUIDrawManager& drawMgr,
                            const MHWRender::MFrameContext& context);
    virtual MStatus doRelease(MEvent& event, MHWRender::MUIDrawManager& drawMgr,
                              const MHWRender::MFrameContext& context);
    virtual MStatus doDrag(MEvent& event, MHWRender::MUIDrawManager& drawMgr,
                           const MHWRender::MFrameContext& context);
    virtual MStatus doHold(MEvent& event, MHWRender::MUIDrawManager& drawMgr,
                           const MHWRender::MFrameContext& context);

    MStatus setHelpString(const MString& str);
    MStatus setTitleString(const MString& str);
    MStatus setCursor(const MCursor& newCursor);

    // Host access, not part of Maya's interface: never used by plugin code.
    const MString& helpString() const { return help_; }
    const MString& titleString() const { return title_; }
    const MCursor& cursor() const { return cursor_; }

private:
    MString help_;
    MString title_;
    MCursor cursor_ = MCursor::defaultCursor;
};
