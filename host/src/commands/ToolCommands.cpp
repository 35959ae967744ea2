// The current tool and the events sent to it.
//   setToolTo context          makes a tool context current: the previous one gets toolOffCleanup,
//                              the new one toolOnSetup. "selectSuperContext" is the default tool,
//                              which has no context object.
//   currentCtx                 the current tool's name.
//   toolEvent [-button left|middle|right] [-viewport2] -press x y | -drag x y | -release x y …
//                              exists only in the embedded host, where there is no viewport and no
//                              mouse: it hands mouse events, in the order given, to the current
//                              context (with -viewport2 through the draw-manager forms of the
//                              handlers). The button (default left) holds for every event of the
//                              call; positions are view coordinates that fit a short.
#include "api/command/ContextRegistry.h"
#include "commands/ArgReader.h"
#include "commands/CommandGroups.h"
#include "commands/InterfaceProcedures.h"
#include "commands/TextValues.h"
#include "engine/MessageLog.h"

#include <maya/MEvent.h>
#include <maya/MFrameContext.h>
#include <maya/MUIDrawManager.h>

#include <limits>

namespace host {

namespace {

const char* const kDefaultTool = "selectSuperContext";

std::string& currentTool() {
    static std::string name = kDefaultTool;
    return name;
}

bool setToolToCommand(Invocation& inv) {
    ArgReader args("setToolTo", inv.statement.args);
    if (!args.parse({})) return false;
    if (args.positional().size() != 1) return args.fail("give one tool context name.");
    const std::string& name = args.positional()[0]->text;
    MPxContext* next = findContext(name);
    if (!next && name != kDefaultTool) return args.fail("Context not found: " + name);
    if (MPxContext* previous = findContext(currentTool()); previous && previous != next)
        previous->toolOffCleanup();
    currentTool() = name;
    if (next) {
        MEvent setup;
        next->toolOnSetup(setup);
    }
    return true;
}

bool currentCtxCommand(Invocation& inv) {
    ArgReader args("currentCtx", inv.statement.args);
    if (!args.parse({})) return false;
    if (!args.positional().empty()) return args.fail("takes no arguments.");
    inv.result = currentTool();
    return true;
}

bool buttonOf(const std::string& text, MEvent::MouseButtonType& button) {
    if (text == "left")
        button = MEvent::kLeftMouse;
    else if (text == "middle")
        button = MEvent::kMiddleMouse;
    // Maya's events name only the left and middle buttons; any other reads as neither.
    else if (text == "right")
        button = static_cast<MEvent::MouseButtonType>(0);
    else
        return false;
    return true;
}

bool fitsShort(int value) {
    return value >= std::numeric_limits<short>::min() && value <= std::numeric_limits<short>::max();
}

MStatus deliver(MPxContext& context, const std::string& kind, MEvent& event, bool viewport2) {
    MHWRender::MUIDrawManager drawManager;
    MHWRender::MFrameContext frame;
    if (kind == "press")
        return viewport2 ? context.doPress(event, drawManager, frame) : context.doPress(event);
    if (kind == "drag") return viewport2 ? context.doDrag(event, drawManager, frame) : context.doDrag(event);
    return viewport2 ? context.doRelease(event, drawManager, frame) : context.doRelease(event);
}

bool toolEventCommand(Invocation& inv) {
    static const FlagTable flags = {{"b", "button", "s"},
                                    {"vp2", "viewport2", ""},
                                    {"p", "press", "ii"},
                                    {"d", "drag", "ii"},
                                    {"r", "release", "ii"}};
    ArgReader args("toolEvent", inv.statement.args);
    if (!args.parse(flags)) return false;
    if (!args.positional().empty())
        return args.fail("unexpected argument " + args.positional()[0]->text + ".");
    MEvent::MouseButtonType button = MEvent::kLeftMouse;
    if (args.has("button") && !buttonOf(args.text("button"), button))
        return args.fail("the button is left, middle or right.");
    const bool viewport2 = args.has("viewport2");
    if (!args.has("press") && !args.has("drag") && !args.has("release"))
        return args.fail("give -press, -drag or -release with a position.");
    MPxContext* context = findContext(currentTool());
    if (!context) return args.fail("the current tool " + currentTool() + " takes no events.");
    for (const ArgReader::Use& use : args.flagUses()) {
        const std::string kind = use.flag->longName;
        if (kind != "press" && kind != "drag" && kind != "release") continue;
        int x = 0;
        int y = 0;
        if (!integerFromText(args.argText(use, 0), x) || !integerFromText(args.argText(use, 1), y) ||
            !fitsShort(x) || !fitsShort(y))
            return args.fail("a position must fit in 16 bits.");
        short sx = static_cast<short>(x);
        short sy = static_cast<short>(y);
        MEvent event;
        event.setPosition(sx, sy);
        event.setMouseButton(button);
        // A context may be removed while it handles an event (its command deregistered): look it
        // up again for every event.
        context = findContext(currentTool());
        if (!context) return args.fail("the current tool " + currentTool() + " takes no events.");
        if (deliver(*context, kind, event, viewport2) != MS::kSuccess)
            return args.fail("the tool did not handle the " + kind + " event.");
    }
    return true;
}

} // namespace

void registerToolCommands(CommandTable& table) {
    table.add("setToolTo", setToolToCommand);
    table.add("currentCtx", currentCtxCommand);
    table.add("toolEvent", toolEventCommand);
    registerInterfaceProcedures(table);
}

} // namespace host
