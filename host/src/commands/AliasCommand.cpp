// aliasAttr: alternative names for plugs ("pCube2" for blendShape1.weight[0]).
#include "commands/ArgReader.h"
#include "commands/CommandGroups.h"
#include "commands/Names.h"
#include "engine/Scene.h"

#include <algorithm>

namespace host {

namespace {

using AliasList = std::vector<std::pair<std::string, std::string>>;

AliasList::iterator findAlias(AliasList& aliases, const std::string& alias) {
    return std::find_if(aliases.begin(), aliases.end(), [&](const auto& a) { return a.first == alias; });
}

bool removeAlias(const ArgReader& args, const std::string& text) {
    const std::size_t dot = text.find('.');
    std::string error;
    NodePtr node = dot == std::string::npos ? nullptr : scene().findNode(text.substr(0, dot), &error);
    if (!node) return args.fail("No object matches name: " + text);
    AliasList& aliases = node->aliases();
    auto found = findAlias(aliases, text.substr(dot + 1));
    if (found == aliases.end()) {
        // The plug's real name removes its alias too.
        const Plug plug = resolveAttrPath(node, text.substr(dot + 1), nullptr);
        const std::string path = plug.isNull() ? std::string() : plug.attrPath(true);
        found = std::find_if(aliases.begin(), aliases.end(), [&](const auto& a) { return a.second == path; });
    }
    if (found == aliases.end()) return args.fail("there is no alias " + text + ".");
    aliases.erase(found);
    node->touch();
    scene().touch();
    return true;
}

bool aliasAttrCommand(Invocation& inv) {
    static const FlagTable flags = {{"rm", "remove", ""}, {"q", "query", ""}};
    ArgReader args("aliasAttr", inv.statement.args);
    if (!args.parse(flags)) return false;
    const auto& names = args.positional();
    std::string error;
    if (args.has("remove")) {
        if (names.empty()) return args.fail("give the alias to remove as node.alias.");
        for (const Token* name : names)
            if (!removeAlias(args, name->text)) return false;
        return true;
    }
    if (args.has("query")) {
        if (names.size() != 1) return args.fail("give one node or node.alias to query.");
        const std::string& text = names[0]->text;
        const std::size_t dot = text.find('.');
        NodePtr node = scene().findNode(text.substr(0, dot), &error);
        if (!node) return args.fail(error);
        AliasList& aliases = node->aliases();
        if (dot != std::string::npos) {
            auto found = findAlias(aliases, text.substr(dot + 1));
            if (found == aliases.end()) return args.fail("there is no alias " + text + ".");
            inv.result = found->second;
            return true;
        }
        std::vector<std::string> pairs;
        for (const auto& [alias, attr] : aliases) pairs.insert(pairs.end(), {alias, attr});
        inv.result = std::move(pairs);
        return true;
    }
    if (names.size() != 2) return args.fail("give an alias and the attribute it names.");
    const std::string& alias = names[0]->text;
    const Plug plug = lookupPlug(names[1]->text, &error);
    if (plug.isNull()) {
        messageLog().error(error);
        return false;
    }
    const NodePtr& node = plug.node();
    AliasList& aliases = node->aliases();
    const std::string path = plug.attrPath(true);
    auto existing = findAlias(aliases, alias);
    if (!validAttrName(alias) || node->findAttr(alias))
        return args.fail("'" + alias +
                         "' cannot be an alias: it is not a valid name or an attribute has it.");
    if (existing != aliases.end() && existing->second != path)
        return args.fail("the alias '" + alias + "' is already used for " + node->name() + "." +
                         existing->second + ".");
    // A plug has one alias: a new one replaces the old.
    aliases.erase(
        std::remove_if(aliases.begin(), aliases.end(), [&](const auto& a) { return a.second == path; }),
        aliases.end());
    aliases.emplace_back(alias, path);
    node->touch();
    scene().touch();
    return true;
}

} // namespace

void registerAliasCommand(CommandTable& table) {
    table.add("aliasAttr", aliasAttrCommand);
}

} // namespace host
