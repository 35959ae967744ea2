// The `file` command: new scene and opening Maya ASCII scenes.
#include "files/FileCommand.h"

#include "engine/Scene.h"
#include "files/SceneReader.h"

namespace host {

namespace {

bool fileCommand(Invocation& inv) {
    const auto& args = inv.statement.args;
    bool newScene = false, open = false;
    std::string path;
    for (std::size_t i = 0; i < args.size(); ++i) {
        const Token& t = args[i];
        if (!t.quoted && (t.text == "-new" || t.text == "-n")) newScene = true;
        else if (!t.quoted && (t.text == "-o" || t.text == "-open")) open = true;
        else if (!t.quoted && (t.text == "-f" || t.text == "-force")) continue;
        else if (!t.quoted && !t.text.empty() && t.text[0] == '-') {
            messageLog().error("Invalid flag: " + t.text);
            return false;
        } else if (path.empty()) path = t.text;
        else {
            messageLog().error("Too many arguments: " + t.text);
            return false;
        }
    }
    if (newScene) {
        resetScene();
        inv.result = std::string("untitled");
        return true;
    }
    if (!open || path.empty()) {
        messageLog().error("file: give -new, or -o with a scene file.");
        return false;
    }
    resetScene();
    SceneReadReport report;
    std::string error;
    if (!readSceneFile(path, report, error)) {
        messageLog().error(error);
        return false;
    }
    if (report.errors > 0)
        messageLog().warning("File read with " + std::to_string(report.errors) + " error(s): " + path);
    inv.result = path;
    return true;
}

} // namespace

void registerFileCommands(CommandTable& table) { table.add("file", fileCommand); }

} // namespace host
