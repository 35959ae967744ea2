// addAttr: dynamic attributes on any node. A compound (-at compound -nc N, or double3 and its kin)
// waits until its children have been added with -p, and only then appears on the node, as in Maya.
#include "commands/ArgReader.h"
#include "commands/CommandGroups.h"
#include "commands/CommandState.h"
#include "commands/Names.h"
#include "commands/TypedValues.h"
#include "engine/Scene.h"

#include <algorithm>
#include <unordered_map>

namespace host {

namespace {

constexpr int kMaxChildren = 1000;

struct PendingCompound {
    std::weak_ptr<Node> node;
    AttrPtr root;
    std::unordered_map<const AttrSpec*, int> missing; // children still to come, per compound of the tree
};

std::vector<PendingCompound>& pendingCompounds() {
    static std::vector<PendingCompound> pending;
    return pending;
}

AttrSpec* findInTree(AttrSpec& attr, const std::string& name) {
    if (attr.longName == name || attr.shortName == name) return &attr;
    for (auto& child : attr.children)
        if (AttrSpec* found = findInTree(*child, name)) return found;
    return nullptr;
}

// The number of children a compound type needs (0 for other types); -1 when it cannot be known.
int childrenNeeded(const std::string& type, const ArgReader& args) {
    if (type == "compound") return args.has("numberOfChildren") ? args.integer("numberOfChildren") : -1;
    const PayloadType numbers = payloadType(type);
    return numbers.kind == PayloadKind::Numbers ? numbers.arity : 0;
}

Value defaultFor(AttrType type, const ArgReader& args, Value fallback) {
    if (!args.has("defaultValue")) return fallback;
    const double v = args.number("defaultValue");
    switch (type) {
    case AttrType::Bool:
        return v != 0.0;
    case AttrType::Int:
    case AttrType::Enum:
        return static_cast<int>(v);
    default:
        return v;
    }
}

AttrPtr numericType(const std::string& type, const std::string& ln, const std::string& sn) {
    if (type == "bool") return boolAttr(ln, sn);
    if (type == "long" || type == "short" || type == "byte" || type == "char")
        return intAttr(ln, sn, 0, type);
    if (type == "enum") return enumAttr(ln, sn);
    if (type == "float") return floatAttr(ln, sn);
    if (type == "double" || type == "doubleLinear" || type == "doubleAngle" || type == "time")
        return doubleAttr(ln, sn, 0.0, type);
    if (type == "message") return messageAttr(ln, sn);
    if (type == "matrix" || type == "fltMatrix") return matrixAttr(ln, sn);
    return nullptr;
}

AttrPtr dataType(const std::string& type, const std::string& ln, const std::string& sn) {
    if (type == "string") return stringAttr(ln, sn);
    if (type == "matrix") return matrixAttr(ln, sn);
    const std::pair<const char*, DataKind> kinds[] = {
        {"stringArray", DataKind::StringArray},     {"Int32Array", DataKind::IntArray},
        {"doubleArray", DataKind::DoubleArray},     {"pointArray", DataKind::PointArray},
        {"componentList", DataKind::ComponentList}, {"mesh", DataKind::Mesh}};
    for (const auto& [name, kind] : kinds)
        if (type == name) return dataAttr(ln, sn, kind, type);
    // Aliases are kept on the node itself; the attribute only stands for them in files.
    if (type == "attributeAlias") {
        auto attr = genericAttr(ln, sn);
        attr->typeName = type;
        return attr;
    }
    return nullptr;
}

// The attribute the flags describe, with `missing` set to the children a compound still needs.
AttrPtr describe(const ArgReader& args, int& missing, std::string& error) {
    std::string ln = args.text("longName"), sn = args.text("shortName");
    if (ln.empty()) ln = sn;
    if (sn.empty()) sn = ln;
    if (!validAttrName(ln) || !validAttrName(sn)) {
        error = ln.empty() ? "give the attribute a name with -ln."
                           : "'" + ln + "' is not a valid attribute name.";
        return nullptr;
    }
    const bool data = args.has("dataType");
    const std::string type = data                        ? args.text("dataType")
                             : args.has("attributeType") ? args.text("attributeType")
                                                         : "double";
    missing = data ? 0 : childrenNeeded(type, args);
    if (missing < 0 || missing > kMaxChildren || (type == "compound" && missing == 0)) {
        error = "a compound attribute needs -nc with 1 to " + std::to_string(kMaxChildren) + " children.";
        return nullptr;
    }
    AttrPtr attr = missing > 0 ? compoundAttr(ln, sn, {}, type == "compound" ? "" : type)
                   : data      ? dataType(type, ln, sn)
                               : numericType(type, ln, sn);
    if (!attr && fileReadingMode()) {
        // Kept as a generic attribute so a scene file's values survive.
        attr = genericAttr(ln, sn);
        attr->typeName = type;
    }
    if (!attr) {
        error = "unknown attribute type '" + type + "'.";
        return nullptr;
    }
    attr->defaultValue = defaultFor(attr->type, args, attr->defaultValue);
    attr->multi = args.has("multi");
    attr->hidden = args.enabled("hidden");
    attr->keyable = args.enabled("keyable");
    return attr;
}

bool nameTaken(const Node& node, const AttrSpec& attr) {
    for (const PendingCompound& p : pendingCompounds())
        if (p.node.lock().get() == &node &&
            (findInTree(*p.root, attr.longName) || findInTree(*p.root, attr.shortName)))
            return true;
    return node.findAttr(attr.longName) || node.findAttr(attr.shortName);
}

bool addChild(const NodePtr& node, const std::string& parentName, AttrPtr attr, int missing,
              std::string& error) {
    auto& pending = pendingCompounds();
    for (auto it = pending.begin(); it != pending.end(); ++it) {
        if (it->node.lock() != node) continue;
        AttrSpec* parent = findInTree(*it->root, parentName);
        if (!parent || !it->missing.count(parent)) continue;
        if (it->missing[parent] == 0) break;
        --it->missing[parent];
        if (missing > 0) it->missing[attr.get()] = missing;
        parent->children.push_back(std::move(attr));
        const bool complete = std::all_of(it->missing.begin(), it->missing.end(),
                                          [](const auto& entry) { return entry.second == 0; });
        if (!complete) return true;
        AttrPtr root = std::move(it->root);
        pending.erase(it);
        if (node->addDynamicAttr(std::move(root))) return true;
        error = "the attribute names clash with existing ones on " + node->name() + ".";
        return false;
    }
    error = "there is no compound '" + parentName + "' waiting for children on " + node->name() + ".";
    return false;
}

bool addAttrCommand(Invocation& inv) {
    static const FlagTable flags = {
        {"ln", "longName", "s"},      {"sn", "shortName", "s"},        {"nn", "niceName", "s"},
        {"at", "attributeType", "s"}, {"dt", "dataType", "s"},         {"m", "multi", ""},
        {"im", "indexMatters", "b"},  {"dv", "defaultValue", "d"},     {"h", "hidden", "b"},
        {"k", "keyable", "b"},        {"ci", "cachedInternally", "b"}, {"nc", "numberOfChildren", "i"},
        {"p", "parent", "s"},         {"min", "minValue", "d"},        {"max", "maxValue", "d"},
        {"smn", "softMinValue", "d"}, {"smx", "softMaxValue", "d"},    {"hnv", "hasMinValue", "b"},
        {"hxv", "hasMaxValue", "b"},  {"hsn", "hasSoftMinValue", "b"}, {"hsx", "hasSoftMaxValue", "b"},
        {"en", "enumName", "s"},      {"uac", "usedAsColor", ""},      {"uaf", "usedAsFilename", ""},
        {"uap", "usedAsProxy", ""},   {"is", "internalSet", "b"},      {"r", "readable", "b"},
        {"w", "writable", "b"},       {"s", "storable", "b"},          {"con", "connectable", "b"}};
    ArgReader args("addAttr", inv.statement.args);
    if (!args.parse(flags)) return false;
    std::vector<NodePtr> nodes;
    std::string error;
    for (const Token* token : args.positional()) {
        NodePtr node = scene().findNode(token->text, &error);
        if (!node) {
            messageLog().error(error);
            return false;
        }
        nodes.push_back(node);
    }
    if (nodes.empty())
        for (const SelectionItem& item : scene().activeSelection())
            if (item.node && item.node->alive()) nodes.push_back(item.node);
    if (nodes.empty())
        if (NodePtr current = currentNode()) nodes.push_back(current);
    if (nodes.empty()) return args.fail("give a node or select one.");
    auto& pending = pendingCompounds();
    pending.erase(std::remove_if(pending.begin(), pending.end(),
                                 [](const PendingCompound& p) { return p.node.expired(); }),
                  pending.end());
    for (const NodePtr& node : nodes) {
        int missing = 0;
        AttrPtr attr = describe(args, missing, error);
        if (!attr) return args.fail(error);
        if (nameTaken(*node, *attr))
            return args.fail("the name '" + attr->longName + "' is already used on " + node->name() + ".");
        if (args.has("parent")) {
            if (!addChild(node, args.text("parent"), std::move(attr), missing, error))
                return args.fail(error);
        } else if (missing > 0) {
            PendingCompound compound{node, std::move(attr), {}};
            compound.missing[compound.root.get()] = missing;
            pending.push_back(std::move(compound));
        } else if (!node->addDynamicAttr(std::move(attr))) {
            return args.fail("the attribute could not be added to " + node->name() + ".");
        }
    }
    scene().touch();
    return true;
}

} // namespace

void registerAddAttrCommand(CommandTable& table) {
    table.add("addAttr", addAttrCommand);
}

} // namespace host
