#pragma once
// Writes the current scene as a Maya ASCII file, laid out as Maya lays it out:
//   header comments; the requires/currentUnit/fileInfo statements of the file that was read (or
//   defaults); per node in creation order (parents before children) `createNode type -n "name"
//   -p "parent";` with its UUID, addAttr and setAttr statements; the default nodes every scene
//   has as `select -ne :name;` blocks; the connections; and the statements kept from the file that
//   was read, each in its place.
// Writing the same scene twice gives the same text, and a file this writes reads back into a scene
// that writes the same text again.
#include <string>
#include <vector>

namespace host {

// The text of the current scene as a file called `fileName` (used in the header comments).
// `problems` collects what could not be written.
std::string sceneText(const std::string& fileName, std::vector<std::string>& problems);

// Writes the current scene to `path` without ever leaving a half-written file.
bool saveScene(const std::string& path, std::string& error, std::vector<std::string>& problems);

} // namespace host
