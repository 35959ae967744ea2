// listAttr: the attributes of nodes (the selection when none are named) or of one plug, as Maya
// lists them: children of compounds by their own names, children below a multi as dotted paths;
// -multi lists the existing elements of multis instead ("weight[0]"), -userDefined only dynamic
// attributes, -keyable only keyable ones, -shortNames by short names.
#include "commands/ArgReader.h"
#include "commands/CommandGroups.h"
#include "commands/QueryArgs.h"
#include "engine/Scene.h"

namespace host {

namespace {

struct Options {
    bool userDefined = false, keyable = false, multi = false, shortNames = false;
};

class AttrLister {
public:
    AttrLister(const Options& options, std::vector<std::string>& out) : options_(options), out_(out) {}

    // Lists `plug` (a top-level attribute, or any plug named on the command line) and what is below.
    void list(const Plug& plug, const std::string& prefix) {
        const AttrSpec& attr = *plug.attr();
        const std::string own = options_.shortNames ? attr.shortName : attr.longName;
        const std::string name = prefix.empty() ? own : prefix + "." + own;
        if (attr.multi && plug.isArray() && options_.multi) {
            for (uint32_t index : plug.existingIndices())
                visit(plug.element(index), name + "[" + std::to_string(index) + "]", true);
            return;
        }
        visit(plug, name, attr.multi || !prefix.empty());
    }

private:
    // `inMulti`: the plug is or lies below a multi, so its children are named by dotted paths.
    void visit(const Plug& plug, const std::string& name, bool inMulti) {
        const AttrSpec& attr = *plug.attr();
        if (wanted(attr)) out_.push_back(name);
        if (!attr.isCompound()) return;
        for (const auto& child : attr.children) {
            const Plug childPlug = plug.isArray() ? Plug(plug.node(), child.get()) : plug.child(child.get());
            list(childPlug, inMulti ? name : std::string());
        }
    }

    bool wanted(const AttrSpec& attr) const {
        const AttrSpec* top = &attr;
        while (top->parent) top = top->parent;
        if (options_.userDefined && !top->dynamic) return false;
        return !options_.keyable || attr.keyable;
    }

    const Options& options_;
    std::vector<std::string>& out_;
};

bool listAttrCommand(Invocation& inv) {
    static const FlagTable flags = {
        {"ud", "userDefined", ""}, {"k", "keyable", ""}, {"m", "multi", ""}, {"sn", "shortNames", ""}};
    ArgReader args("listAttr", inv.statement.args);
    if (!args.parse(flags)) return false;
    Options options;
    options.userDefined = args.has("userDefined");
    options.keyable = args.has("keyable");
    options.multi = args.has("multi");
    options.shortNames = args.has("shortNames");

    SelectionList items;
    if (!queryItems(args, items)) return false;
    std::vector<std::string> names;
    AttrLister lister(options, names);
    for (const SelectionItem& item : items) {
        if (!item.node || !item.node->alive()) continue;
        if (!item.plug.isNull()) {
            lister.list(item.plug, std::string());
            continue;
        }
        for (std::size_t i = 0; i < item.node->attrCount(); ++i)
            lister.list(Plug(item.node, item.node->attrAt(i)), std::string());
    }
    inv.result = std::move(names);
    return true;
}

} // namespace

void registerListAttrCommand(CommandTable& table) {
    table.add("listAttr", listAttrCommand);
}

} // namespace host
