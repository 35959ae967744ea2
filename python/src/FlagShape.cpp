#include "FlagShape.h"

#include "api/command/PluginRegistry.h"
#include "api/command/SyntaxData.h"

#include <unordered_map>
#include <unordered_set>

namespace pytalven {

namespace {

// The built-in flags, by short and long name, that take a boolean argument.
const std::unordered_map<std::string, std::unordered_set<std::string>>& builtinBooleanFlags() {
    static const std::unordered_map<std::string, std::unordered_set<std::string>> flags = {
        {"addAttr",
         {"im",  "indexMatters", "h",   "hidden",      "k",   "keyable",         "ci",  "cachedInternally",
          "hnv", "hasMinValue",  "hxv", "hasMaxValue", "hsn", "hasSoftMinValue", "hsx", "hasSoftMaxValue",
          "is",  "internalSet",  "r",   "readable",    "w",   "writable",        "s",   "storable",
          "con", "connectable"}},
        {"connectAttr", {"l", "lock"}},
        {"currentTime", {"u", "update"}},
        {"file", {"pmt", "prompt"}},
        {"listConnections", {"s", "source", "d", "destination", "p", "plugs", "c", "connections"}},
        {"polyColorSet", {"clm", "clamped"}},
        {"polyCube", {"ch", "constructionHistory", "o", "object"}},
        {"polyCylinder", {"ch", "constructionHistory", "o", "object"}},
        {"polyPlane", {"ch", "constructionHistory", "o", "object"}},
        {"polySphere", {"ch", "constructionHistory", "o", "object"}},
        {"removeMultiInstance", {"b", "break"}},
        {"setAttr", {"l", "lock", "k", "keyable", "cb", "channelBox", "ca", "caching"}},
    };
    return flags;
}

} // namespace

FlagShape flagShape(const std::string& command, const std::string& flag) {
    FlagShape shape;
    const host::RegisteredCommand* registered = host::talvenPlugin().command(command);
    if (registered && !registered->context) {
        const host::SyntaxData& syntax = registered->syntax.data();
        const int index = syntax.findFlag(flag);
        if (index < 0) return shape;
        const host::SyntaxFlag& declared = syntax.flags()[static_cast<std::size_t>(index)];
        shape.known = true;
        shape.multiUse = declared.multiUse;
        shape.argTypes = declared.argTypes;
        shape.booleanArgument = declared.argTypes.size() == 1 && declared.argTypes[0] == MSyntax::kBoolean;
        return shape;
    }
    const auto& builtins = builtinBooleanFlags();
    const auto it = builtins.find(command);
    shape.booleanArgument = it != builtins.end() && it->second.count(flag) > 0;
    return shape;
}

} // namespace pytalven
