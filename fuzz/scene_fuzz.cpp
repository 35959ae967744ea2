// The Maya ASCII loader on arbitrary text: a fresh scene reads it (as far as it goes) and is written
// out again. Reading a scene never runs a script or writes a file, so any text is safe to open.
#include "engine/MessageLog.h"
#include "engine/Scene.h"
#include "files/SceneReader.h"
#include "files/SceneWriter.h"
#include "session/Session.h"

#include <cstddef>
#include <cstdint>
#include <string_view>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const bool started = host::startSession(host::commandTable(), host::messageLog());
    (void)started;
    host::resetScene();
    host::messageLog().clearHistory();
    host::SceneReadReport report;
    std::string error;
    host::readSceneText("fuzz.ma", std::string_view(reinterpret_cast<const char*>(data), size), report,
                        error);
    std::vector<std::string> problems;
    host::sceneText("fuzz.ma", problems);
    return 0;
}
