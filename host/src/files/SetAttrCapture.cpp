#include "files/SetAttrCapture.h"

#include "commands/ArgReader.h"
#include "commands/Names.h"
#include "commands/TypedValues.h"
#include "files/FilePlugPath.h"

namespace host {

namespace {

// setAttr's own flags, so that the statement reads here as the command read it.
const FlagTable& setAttrFlags() {
    static const FlagTable flags = {
        {"typ", "type", "s"},  {"s", "size", "i"},         {"l", "lock", "b"},
        {"k", "keyable", "b"}, {"cb", "channelBox", "b"},  {"ca", "caching", "b"},
        {"c", "clamp", ""},    {"av", "alteredValue", ""}, {"ch", "capacityHint", "i"}};
    return flags;
}

// The flags that say something about the plug rather than about the data that follows.
std::string plugFlags(const ArgReader& args) {
    std::string text;
    for (const ArgReader::Use& use : args.flagUses()) {
        const std::string name = use.flag->longName;
        if (name == "type" || name == "size" || name == "capacityHint") continue;
        if (!text.empty()) text += ' ';
        text += std::string("-") + use.flag->shortName;
        if (use.flag->args[0] != '\0') text += ' ' + args.argText(use, 0);
    }
    return text;
}

std::string joinedRaw(const std::vector<const Token*>& positional) {
    TokenCursor values(positional, 1);
    const Value raw = rawPayload(values);
    std::string text;
    for (const std::string& token : dataAs<StringArrayData>(std::get<DataPtr>(raw))->values) {
        if (!text.empty()) text += ' ';
        text += token;
    }
    return text;
}

// "a.w[0:7]": an index range rather than a single plug.
bool isRange(const std::string& text) {
    for (std::size_t open = text.find('['); open != std::string::npos; open = text.find('[', open + 1)) {
        const std::size_t close = text.find(']', open);
        const std::size_t colon = text.find(':', open);
        if (colon < close) return true;
    }
    return false;
}

} // namespace

SetAttrKind captureSetAttr(const Statement& statement, SceneFileStore& store) {
    ArgReader args("setAttr", statement.args);
    if (!args.parse(setAttrFlags()) || args.positional().size() < 2) return SetAttrKind::FlagsOnly;
    const auto& positional = args.positional();
    const std::string& plugText = positional[0]->text;
    const std::string typeName = args.has("type") ? args.text("type") : std::string();
    std::string error;
    // The flags of a range's elements are not kept.
    if (isRange(plugText)) return SetAttrKind::Value;
    const Plug plug = lookupPlug(plugText, &error);
    if (plug.isNull()) return SetAttrKind::Value;
    NodeFileInfo& info = store.info(*plug.node());
    const std::string path = filePlugPath(plug);
    const std::string flags = plugFlags(args);
    if (!flags.empty()) {
        bool replaced = false;
        for (auto& entry : info.plugFlags)
            if (entry.first == path) {
                entry.second = flags;
                replaced = true;
            }
        if (!replaced) info.plugFlags.emplace_back(path, flags);
    }
    if (!typeName.empty() && typeName != "attributeAlias" && plug.attr()->madeUp && !plug.isArray())
        info.rawValues[path] = RawValue{typeName, joinedRaw(positional), plug.value()};
    return SetAttrKind::Value;
}

} // namespace host
