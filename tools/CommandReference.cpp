#include "CommandReference.h"

#include "api/command/PluginRegistry.h"
#include "api/command/SyntaxData.h"
#include "engine/MessageLog.h"
#include "engine/Scene.h"
#include "session/Session.h"

#include <maya/MGlobal.h>
#include <maya/MPxCommand.h>
#include <maya/MPxContextCommand.h>
#include <maya/MString.h>

#include <cstring>
#include <memory>
#include <regex>
#include <sstream>
#include <vector>

namespace tools {

namespace {

// One flag line of a help text: "    -tol    -tolerance   <double>   tolerance value (…)".
struct HelpFlag {
    std::string shortName, longName, argument, meaning, group;
};

struct HelpText {
    std::string description, example, result;
    std::vector<HelpFlag> flags;
};

std::string after(const std::string& line, const char* head) {
    return line.rfind(head, 0) == 0 ? line.substr(std::strlen(head)) : std::string();
}

HelpText parseHelp(const std::string& text) {
    HelpText help;
    std::istringstream lines(text);
    std::string line, group;
    bool inFlags = false;
    while (std::getline(lines, line)) {
        if (line.rfind("Description: ", 0) == 0) help.description = after(line, "Description: ");
        else if (line.rfind("Execute: ", 0) == 0) help.example = after(line, "Execute: ");
        else if (line.rfind("Return Value: ", 0) == 0) help.result = after(line, "Return Value: ");
        else if (line.rfind("Flags: ", 0) == 0) inFlags = true;
        else if (line.rfind("Usage: ", 0) == 0) inFlags = false;
        else if (inFlags) {
            std::istringstream words(line);
            HelpFlag flag;
            words >> flag.shortName;
            if (flag.shortName.empty()) continue;
            if (flag.shortName.back() == ':') {
                group = flag.shortName.substr(0, flag.shortName.size() - 1);
                continue;
            }
            words >> flag.longName >> flag.argument;
            std::getline(words >> std::ws, flag.meaning);
            flag.group = group;
            help.flags.push_back(flag);
        }
    }
    return help;
}

const char* argName(MSyntax::MArgType type) {
    switch (type) {
    case MSyntax::kBoolean:
        return "bool";
    case MSyntax::kLong:
        return "int";
    case MSyntax::kDouble:
        return "double";
    case MSyntax::kString:
        return "string";
    case MSyntax::kUnsigned:
        return "unsigned";
    case MSyntax::kDistance:
        return "distance";
    case MSyntax::kAngle:
        return "angle";
    case MSyntax::kTime:
        return "time";
    case MSyntax::kSelectionItem:
        return "selection item";
    default:
        return "";
    }
}

std::string arguments(const host::SyntaxFlag& flag) {
    std::string text;
    for (MSyntax::MArgType type : flag.argTypes) {
        if (type == MSyntax::kNoArg) continue;
        text += (text.empty() ? "" : " ") + std::string(argName(type));
    }
    return text;
}

// The default a help text states ("…, default: 0.001)"); a flag without argument is off.
std::string defaultOf(const std::string& meaning, const std::string& argument) {
    static const std::regex stated("default:? *([^),;]+)", std::regex::icase);
    std::smatch match;
    if (std::regex_search(meaning, match, stated)) return "`" + match[1].str() + "`";
    return argument.empty() ? "off" : "—";
}

std::string cell(std::string text) {
    std::string escaped;
    for (char c : text) escaped += c == '|' ? std::string("\\|") : std::string(1, c);
    return escaped.empty() ? "—" : escaped;
}

std::string objectsOf(const host::SyntaxData& syntax) {
    std::string text;
    switch (syntax.objectFormat) {
    case MSyntax::kSelectionList:
        text = "node or component names";
        break;
    case MSyntax::kStringObjects:
        text = "strings";
        break;
    default:
        return "none";
    }
    if (syntax.selectionAsDefault) text += "; the active selection when none are given";
    return text;
}

void writeFlags(std::ostringstream& out, const host::SyntaxData& syntax, const HelpText& help) {
    out << "| short | long | argument | default | meaning |\n|---|---|---|---|---|\n";
    std::string group;
    for (const host::SyntaxFlag& flag : syntax.flags()) {
        const HelpFlag* line = nullptr;
        for (const HelpFlag& candidate : help.flags)
            if (candidate.shortName == flag.shortName || candidate.longName == flag.longName) line = &candidate;
        const std::string argument = arguments(flag);
        std::string meaning = line ? line->meaning : std::string("(not in the help text)");
        if (line && !line->group.empty()) meaning = "(" + line->group + ") " + meaning;
        if (flag.multiUse) meaning += meaning.find("multi use") == std::string::npos ? " (multi use)" : "";
        out << "| `" << flag.shortName << "` | `" << flag.longName << "` | " << cell(argument) << " | "
            << defaultOf(meaning, argument) << " | " << cell(meaning) << " |\n";
    }
}

void writeCommand(std::ostringstream& out, const host::RegisteredCommand& command) {
    out << "## " << command.name << "\n\n";
    MSyntax syntax = command.syntax;
    std::string help;
    if (command.context) {
        std::unique_ptr<MPxContextCommand> object(static_cast<MPxContextCommand*>(command.creator()));
        object->appendSyntax();
        syntax = object->syntax();
        out << "Tool context command: creates a context, or with `-edit`/`-query` and a context name "
               "sets or reads its flags.\n\n";
    } else {
        std::unique_ptr<MPxCommand> object(static_cast<MPxCommand*>(command.creator()));
        MString text;
        MGlobal::executeCommand(MString((command.name + " -h").c_str()), text);
        help = text.asChar();
        const HelpText parsed = parseHelp(help);
        out << parsed.description << "\n\n";
        out << "- Undoable: " << (object->isUndoable() ? "yes" : "no") << "\n";
        out << "- Objects: " << objectsOf(syntax.data()) << "\n";
        out << "- Result: " << cell(parsed.result) << "\n\n";
        writeFlags(out, syntax.data(), parsed);
        out << "\nExample:\n\n```mel\n" << parsed.example << "\n```\n\n";
        return;
    }
    writeFlags(out, syntax.data(), parseHelp(help));
    out << "\n";
}

} // namespace

std::string commandReference() {
    host::startSession(host::commandTable(), host::messageLog());
    host::resetScene();
    std::ostringstream out;
    out << "# Command reference\n\n"
           "Written by `talven_commandref` from each command's help text (`-h`) and syntax table; "
           "do not edit by hand. Defaults are those the help texts state; a flag without argument "
           "is off unless given.\n\n";
    for (const host::RegisteredCommand& command : host::talvenPlugin().commands)
        out << "- [" << command.name << "](#" << command.name << ")\n";
    out << "\n";
    for (const host::RegisteredCommand& command : host::talvenPlugin().commands) writeCommand(out, command);
    return out.str();
}

} // namespace tools
