#pragma once
// Reads a Maya ASCII scene into the current scene. Statements that build the scene (createNode,
// setAttr, addAttr, connectAttr, parent, rename, select, aliasAttr) run through the command table
// in file reading mode; everything else is kept as written, in its place, for saving: requires,
// fileInfo, currentUnit, relationship, lockNode, the blocks of default nodes the host does not have
// (`select -ne :time1;` and what follows it), script and expression nodes, and statements the
// host does not know. Opening a scene never runs a script or a plug-in command.
#include <string>
#include <string_view>

namespace host {

struct SceneReadReport {
    int errors = 0; // statements that failed
};

// Reads a scene file's text; false (with the reason) when it cannot be read or holds binary data.
bool loadSceneText(const std::string& path, std::string& text, std::string& error);

// Runs the text of scene file `path` into the current scene. False when it is not a scene file or
// is cut short (`error` says why; what was read before stays in the scene). Errors in single
// statements are reported as "<file> line N: …"; the statement is kept as written and reading goes
// on, as Maya does.
bool readSceneText(const std::string& path, std::string_view text, SceneReadReport& report,
                   std::string& error);

// Reads a scene file into the current scene as `file -i` does: nodes whose names are taken get the
// file's name as a prefix, and the statements kept as written outside node blocks are left out.
bool importSceneText(const std::string& path, std::string_view text, SceneReadReport& report,
                     std::string& error);

} // namespace host
