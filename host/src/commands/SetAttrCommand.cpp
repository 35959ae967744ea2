// setAttr: plain values, -type payloads, index ranges and attribute aliases.
#include "commands/ArgReader.h"
#include "commands/AttrWrite.h"
#include "commands/CommandGroups.h"
#include "commands/Names.h"
#include "commands/TypedValues.h"
#include "engine/Scene.h"

#include <cctype>

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

// Whether text[at..] starts like a number: a digit, a sign, or a point before a digit.
bool startsNumber(const std::string& text, std::size_t at) {
    auto digit = [&](std::size_t i) {
        return i < text.size() && std::isdigit(static_cast<unsigned char>(text[i]));
    };
    if (at >= text.size()) return false;
    const char c = text[at];
    return digit(at) || c == '-' || c == '+' || (c == '.' && digit(at + 1));
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
    // A value glued to the closing bracket ("cmp.w[10000]0.500000") is read as the first value.
    std::vector<const Token*> values(positional.begin() + 1, positional.end());
    const std::string& plugText = positional[0]->text;
    const std::size_t bracket = plugText.rfind(']');
    Token glued;
    if (bracket != std::string::npos && startsNumber(plugText, bracket + 1)) {
        glued.text = plugText.substr(bracket + 1);
        values.insert(values.begin(), &glued);
    }
    if (!range.resolve(glued.text.empty() ? plugText : plugText.substr(0, bracket + 1), error)) {
        messageLog().error(error);
        return false;
    }
    TokenCursor in(values, 0);
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
