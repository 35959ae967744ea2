#pragma once
// Reads a Maya ASCII scene into the current scene. Only scene-building statements run (createNode,
// setAttr, connectAttr, …); anything else a file holds is skipped, so opening a scene never runs
// a script or a plug-in command.
#include <string>

namespace host {

struct SceneReadReport {
    int statements = 0;
    int skipped = 0; // statements the engine does not model
    int errors = 0;
};

// False when the file cannot be read at all (`error` says why). Errors in single statements are
// reported with file and line and the reading goes on, as Maya does.
bool readSceneFile(const std::string& path, SceneReadReport& report, std::string& error);

} // namespace host
