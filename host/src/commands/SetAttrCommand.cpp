// setAttr: plain values, -type payloads, index ranges and attribute aliases.
#include "commands/ArgReader.h"
#include "commands/AttrWrite.h"
#include "commands/CommandGroups.h"
#include "commands/Names.h"
#include "commands/TypedValues.h"
#include "engine/Scene.h"

namespace host {

namespace {

// The node's aliases become the given (alias, attribute) pairs; each attribute must exist and no
// alias may hide a real attribute name.
bool writeAliases(const Plug& plug, TokenCursor& in, std::string& error) {
    Value value;
    if (!readPayload("attributeAlias", in, value, error)) return false;
    if (!in.atEnd()) {
        error = "too much data provided for " + scene().plugName(plug) + ".";
        return false;
    }
    const auto& list = dataAs<StringArrayData>(std::get<DataPtr>(value))->values;
    const NodePtr& node = plug.node();
    std::vector<std::pair<std::string, std::string>> aliases;
    for (std::size_t i = 0; i + 1 < list.size(); i += 2) {
        const std::string& alias = list[i];
        Plug target = resolveAttrPath(node, list[i + 1], &error);
        if (!validAttrName(alias) || node->findAttr(alias)) {
            error = "'" + alias + "' cannot be an alias on " + node->name() + ".";
            return false;
        }
        if (target.isNull()) return false;
        aliases.emplace_back(alias, target.attrPath(true));
    }
    node->aliases() = std::move(aliases);
    node->touch();
    return true;
}

bool numericCompound(const AttrSpec& attr) {
    if (!attr.isCompound() || attr.children.empty()) return false;
    for (const auto& child : attr.children)
        if (!child->isNumeric() || child->multi) return false;
    return true;
}

bool writeValues(const PlugRange& range, std::string typeName, TokenCursor& in, std::string& error) {
    const Plug& plug = range.first();
    const AttrSpec& attr = *plug.attr();
    if (typeName.empty() && attr.type == AttrType::String) typeName = "string";
    if (typeName == "attributeAlias") return writeAliases(plug, in, error);
    const PayloadType payload = payloadType(typeName);
    const int children = static_cast<int>(attr.children.size());
    if (plug.isArray()) {
        if (typeName.empty() && attr.isNumeric()) return writeSparseRows(range, in, error);
        error = scene().plugName(plug) + " is an array: give an element index or a range.";
        return false;
    }
    if (attr.type == AttrType::Generic) {
        return typeName.empty() ? writeGenericValues(range, in, error)
                                : writePayloads(range, typeName, in, error);
    }
    if (typeName.empty() || payload.kind == PayloadKind::Numbers) {
        if (attr.isNumeric() && typeName.empty()) return writeNumbers(range, 1, in, error);
        if (numericCompound(attr) && (typeName.empty() || payload.arity == children))
            return writeNumbers(range, children, in, error);
        error = typeName.empty() ? scene().plugName(plug) + " needs a -type flag for its data."
                                 : "the attribute " + scene().plugName(plug) + " does not take -type " +
                                       typeName + " data.";
        return false;
    }
    return writePayloads(range, typeName, in, error);
}

bool setAttrCommand(Invocation& inv) {
    static const FlagTable flags = {
        {"typ", "type", "s"},  {"s", "size", "i"},         {"l", "lock", "b"},
        {"k", "keyable", "b"}, {"cb", "channelBox", "b"},  {"ca", "caching", "b"},
        {"c", "clamp", ""},    {"av", "alteredValue", ""}, {"ch", "capacityHint", "i"}};
    ArgReader args("setAttr", inv.statement.args);
    if (!args.parse(flags)) return false;
    const auto& positional = args.positional();
    if (positional.empty()) return args.fail("give the attribute to set.");
    // -s is only a size hint: nothing is allocated for it.
    if (args.has("size") && args.integer("size") < 0) return args.fail("-s needs a count of 0 or more.");
    std::string error;
    PlugRange range;
    if (!range.resolve(positional[0]->text, error)) {
        messageLog().error(error);
        return false;
    }
    TokenCursor in(positional, 1);
    if (in.atEnd()) {
        // Flags alone (lock, keyable, size hints) set nothing the host keeps.
        if (!args.flagUses().empty()) return true;
        return args.fail("not enough data was provided.");
    }
    if (!writeValues(range, args.text("type"), in, error)) return args.fail(error);
    scene().touch();
    return true;
}

} // namespace

void registerSetAttrCommand(CommandTable& table) {
    table.add("setAttr", setAttrCommand);
}

} // namespace host
