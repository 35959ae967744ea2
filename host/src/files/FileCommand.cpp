// The `file` command: new scenes, opening, naming and saving Maya ASCII scenes, and OBJ import and
// export.
#include "files/FileCommand.h"

#include "commands/ArgReader.h"
#include "engine/Scene.h"
#include "files/ObjTransfer.h"
#include "files/SceneCommands.h"
#include "files/SceneFileStore.h"
#include "files/SceneReader.h"
#include "files/SceneWriter.h"

#include <algorithm>
#include <cctype>
#include <sys/stat.h>

namespace host {

namespace {

bool endsWith(const std::string& text, const std::string& suffix) {
    if (text.size() < suffix.size()) return false;
    return std::equal(suffix.rbegin(), suffix.rend(), text.rbegin(),
                      [](char a, char b) { return std::tolower(static_cast<unsigned char>(a)) == b; });
}

bool isObj(const ArgReader& args, const std::string& path) {
    if (args.has("type")) return args.text("type") == "OBJ" || args.text("type") == "OBJexport";
    return endsWith(path, ".obj");
}

bool exists(const std::string& path) {
    struct stat info {};
    return ::stat(path.c_str(), &info) == 0;
}

// The current scene stays when the file cannot be read or is not text.
bool openScene(Invocation& inv, const std::string& path) {
    std::string text, error;
    if (!loadSceneText(path, text, error)) {
        messageLog().error(error);
        return false;
    }
    resetScene();
    sceneFileStore().path = path;
    SceneReadReport report;
    if (!readSceneText(path, text, report, error)) {
        sceneFileStore().readInPartFrom = path;
        messageLog().error(error);
        return false;
    }
    if (report.errors > 0)
        messageLog().warning(path + " was read with " + std::to_string(report.errors) + " error(s).");
    inv.result = path;
    return true;
}

bool saveCurrentScene(Invocation& inv, const ArgReader& args) {
    const std::string& path = sceneFileStore().path;
    if (path.empty()) return args.fail("the scene has no name yet: give it one with file -rename.");
    if (args.has("type") && args.text("type") != "mayaAscii")
        return args.fail("scenes are saved as \"mayaAscii\", not \"" + args.text("type") + "\".");
    if (endsWith(path, ".mb")) return args.fail("scenes are saved as Maya ASCII (.ma), not " + path + ".");
    if (path == sceneFileStore().readInPartFrom && !args.has("force"))
        return args.fail("the scene was read only in part from " + path +
                         ": saving would replace the file with that part. Give -force to do so, or save "
                         "under another name with -rename.");
    std::string error;
    std::vector<std::string> problems;
    const bool ok = saveScene(path, error, problems);
    for (const std::string& problem : problems) messageLog().warning(problem);
    if (!ok) {
        messageLog().error(error);
        return false;
    }
    inv.result = path;
    return true;
}

bool importScene(Invocation& inv, const std::string& path) {
    std::string text, error;
    SceneReadReport report;
    if (!loadSceneText(path, text, error) || !importSceneText(path, text, report, error)) {
        messageLog().error(error);
        return false;
    }
    if (report.errors > 0)
        messageLog().warning(path + " was imported with " + std::to_string(report.errors) + " error(s).");
    inv.result = path;
    return true;
}

bool importFile(Invocation& inv, const ArgReader& args, const std::string& path) {
    const bool scene = args.has("type") ? args.text("type") == "mayaAscii" : endsWith(path, ".ma");
    if (scene) return importScene(inv, path);
    if (!isObj(args, path))
        return args.fail(
            "files are imported from OBJ (-type \"OBJ\") or Maya ASCII (-type \"mayaAscii\") only.");
    std::string transform, error;
    if (!importObjFile(path, transform, error)) {
        messageLog().error(error);
        return false;
    }
    inv.result = path;
    return true;
}

bool exportFile(Invocation& inv, const ArgReader& args, const std::string& path) {
    if (!isObj(args, path)) return args.fail("files are exported as OBJ (-type \"OBJexport\") only.");
    if (exists(path) && !args.has("force"))
        return args.fail(path + " already exists: give -force to replace it.");
    std::vector<NodePtr> selected;
    for (const SelectionItem& item : scene().activeSelection())
        if (item.node && item.node->alive()) selected.push_back(item.node);
    const std::vector<NodePtr> shapes = meshesToExport(selected, args.has("exportAll"));
    if (shapes.empty())
        return args.fail(args.has("exportAll") ? "the scene has no mesh to export."
                                               : "select a mesh to export.");
    std::string error;
    if (!exportObjFile(path, shapes, error)) {
        messageLog().error(error);
        return false;
    }
    inv.result = path;
    return true;
}

bool fileCommand(Invocation& inv) {
    static const FlagTable flags = {{"new", "newFile", ""},
                                    {"o", "open", ""},
                                    {"s", "save", ""},
                                    {"rn", "rename", "s"},
                                    {"f", "force", ""},
                                    {"typ", "type", "s"},
                                    {"i", "import", ""},
                                    {"es", "exportSelected", ""},
                                    {"ea", "exportAll", ""},
                                    {"q", "query", ""},
                                    {"sn", "sceneName", ""},
                                    {"op", "options", "s"},
                                    {"iv", "ignoreVersion", ""},
                                    {"pmt", "prompt", "b"},
                                    {"pr", "preserveReferences", ""}};
    ArgReader args("file", inv.statement.args);
    if (!args.parse(flags)) return false;
    const auto& positional = args.positional();
    if (positional.size() > 1) return args.fail("give one file name.");
    const std::string path = positional.empty() ? std::string() : positional[0]->text;
    int actions = 0;
    for (const char* action : {"newFile", "open", "import", "exportSelected", "exportAll", "query"})
        actions += args.has(action) ? 1 : 0;
    if (actions > 1)
        return args.fail("give one of -new, -open, -import, -exportSelected, -exportAll and -query.");
    const bool needsPath =
        args.has("open") || args.has("import") || args.has("exportSelected") || args.has("exportAll");
    if (needsPath && path.empty()) return args.fail("give a file name.");
    if (args.has("query")) {
        if (!args.has("sceneName")) return args.fail("query -sceneName.");
        inv.result = sceneFileStore().path;
        return true;
    }
    if (args.has("newFile")) {
        resetScene();
        inv.result = std::string("untitled");
        return true;
    }
    if (args.has("open")) return openScene(inv, path);
    if (args.has("import")) return importFile(inv, args, path);
    if (args.has("exportSelected") || args.has("exportAll")) return exportFile(inv, args, path);
    if (args.has("rename")) {
        if (args.text("rename").empty()) return args.fail("give the scene a file name.");
        sceneFileStore().path = args.text("rename");
        inv.result = args.text("rename");
    }
    if (args.has("save")) return saveCurrentScene(inv, args);
    if (!args.has("rename")) return args.fail("give -new, -open, -save, -rename, -import or an export flag.");
    return true;
}

} // namespace

void registerFileCommands(CommandTable& table) {
    table.add("file", fileCommand);
    table.add("duplicate", duplicateCommand);
    table.add("polyColorSet", polyColorSetCommand);
}

} // namespace host
