// optionVar and currentTime.
#include "commands/ArgReader.h"
#include "commands/CommandGroups.h"
#include "commands/TextValues.h"
#include "engine/Scene.h"

#include <cstring>

namespace host {

namespace {

// Appends to an array variable, starting a new array when the variable holds something else.
template <class T> void append(OptionValue& stored, bool exists, T value) {
    auto* array = exists ? std::get_if<std::vector<T>>(&stored) : nullptr;
    if (!array) {
        stored = std::vector<T>();
        array = std::get_if<std::vector<T>>(&stored);
    }
    array->push_back(std::move(value));
}

CommandResult asResult(const OptionValue& value) {
    return std::visit([](const auto& v) { return CommandResult(v); }, value);
}

// Flags act in the order given, so one call can set several variables.
bool optionVarCommand(Invocation& inv) {
    static const FlagTable flags = {{"iv", "intValue", "si"},
                                    {"fv", "floatValue", "sd"},
                                    {"sv", "stringValue", "ss"},
                                    {"iva", "intValueAppend", "si"},
                                    {"fva", "floatValueAppend", "sd"},
                                    {"sva", "stringValueAppend", "ss"},
                                    {"ca", "clearArray", "s"},
                                    {"q", "query", "s"},
                                    {"ex", "exists", "s"},
                                    {"rm", "remove", "s"},
                                    {"l", "list", ""}};
    ArgReader args("optionVar", inv.statement.args);
    if (!args.parse(flags)) return false;
    if (!args.positional().empty())
        return args.fail("unexpected argument " + args.positional()[0]->text + ".");
    if (args.flagUses().empty()) return args.fail("give a flag.");
    auto& vars = scene().optionVars();
    for (const ArgReader::Use& use : args.flagUses()) {
        const std::string flag = use.flag->longName;
        if (flag == "list") {
            std::vector<std::string> names;
            for (const auto& entry : vars) names.push_back(entry.first);
            inv.result = std::move(names);
            continue;
        }
        const std::string& name = args.argText(use, 0);
        auto found = vars.find(name);
        const bool exists = found != vars.end();
        // parse() has checked the value arguments.
        int i = 0;
        double d = 0.0;
        if (std::strchr(use.flag->args, 'i')) integerFromText(args.argText(use, 1), i);
        if (std::strchr(use.flag->args, 'd')) numberFromText(args.argText(use, 1), d);
        if (flag == "query") {
            // An unknown variable reads as 0, as in Maya.
            inv.result = exists ? asResult(found->second) : CommandResult(0);
        } else if (flag == "exists") {
            inv.result = exists ? 1 : 0;
        } else if (flag == "remove") {
            vars.erase(name);
        } else if (flag == "clearArray") {
            if (exists)
                std::visit(
                    [](auto& v) {
                        using T = std::decay_t<decltype(v)>;
                        if constexpr (!std::is_same_v<T, int> && !std::is_same_v<T, double> &&
                                      !std::is_same_v<T, std::string>)
                            v.clear();
                    },
                    found->second);
        } else if (flag == "intValue") {
            vars[name] = i;
        } else if (flag == "floatValue") {
            vars[name] = d;
        } else if (flag == "stringValue") {
            vars[name] = args.argText(use, 1);
        } else if (flag == "intValueAppend") {
            append(vars[name], exists, i);
        } else if (flag == "floatValueAppend") {
            append(vars[name], exists, d);
        } else if (flag == "stringValueAppend") {
            append(vars[name], exists, args.argText(use, 1));
        }
    }
    return true;
}

bool currentTimeCommand(Invocation& inv) {
    static const FlagTable flags = {{"q", "query", ""}, {"e", "edit", ""}, {"u", "update", "b"}};
    ArgReader args("currentTime", inv.statement.args);
    if (!args.parse(flags)) return false;
    const auto& positional = args.positional();
    if (args.has("query")) {
        if (!positional.empty()) return args.fail("a query takes no time.");
        inv.result = scene().currentTime();
        return true;
    }
    double frame = 0.0;
    if (positional.size() != 1 || !numberFromText(positional[0]->text, frame))
        return args.fail("give the time as a number.");
    scene().setCurrentTime(frame);
    scene().touch();
    inv.result = frame;
    return true;
}

} // namespace

void registerMiscCommands(CommandTable& table) {
    table.add("optionVar", optionVarCommand);
    table.add("currentTime", currentTimeCommand);
}

} // namespace host
