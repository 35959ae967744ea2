#include "files/SceneReader.h"

#include "commands/CommandState.h"
#include "engine/Scene.h"
#include "engine/Session.h"
#include "lang/Tokenizer.h"

#include <fstream>
#include <sstream>
#include <unordered_set>

namespace host {

namespace {

// Statements a scene file may run: they build nodes, values and connections and nothing else.
bool sceneStatement(const std::string& command) {
    static const std::unordered_set<std::string> allowed = {
        "createNode", "setAttr", "addAttr", "connectAttr", "parent", "rename", "select", "aliasAttr",
    };
    return allowed.count(command) > 0;
}

bool readWholeFile(const std::string& path, std::string& text, std::string& error) {
    std::ifstream in(path, std::ios::binary);
    if (!in) {
        error = "File not found: " + path;
        return false;
    }
    std::ostringstream buffer;
    buffer << in.rdbuf();
    if (in.bad()) {
        error = "Could not read file: " + path;
        return false;
    }
    text = buffer.str();
    return true;
}

} // namespace

bool readSceneFile(const std::string& path, SceneReadReport& report, std::string& error) {
    std::string text;
    if (!readWholeFile(path, text, error)) return false;
    Tokenizer tokenizer(text);
    Statement statement;
    const bool wasReading = fileReadingMode();
    setFileReadingMode(true);
    while (tokenizer.nextStatement(statement)) {
        ++report.statements;
        const CommandHandler* handler = sceneStatement(statement.command) ? commandTable().find(statement.command)
                                                                          : nullptr;
        if (!handler) {
            ++report.skipped;
            continue;
        }
        Invocation invocation{statement, {}};
        const std::size_t before = messageLog().history().size();
        const bool ok = (*handler)(invocation);
        if (!ok) {
            ++report.errors;
            if (messageLog().history().size() == before)
                messageLog().error(path + " line " + std::to_string(statement.line) + ": " + statement.command +
                                   " failed.");
            else
                messageLog().error(path + " line " + std::to_string(statement.line) + ": the statement above failed.");
        }
    }
    setFileReadingMode(wasReading);
    setCurrentNode(nullptr);
    if (!tokenizer.error().empty()) {
        ++report.errors;
        messageLog().error(path + ": " + tokenizer.error());
    }
    return true;
}

} // namespace host
