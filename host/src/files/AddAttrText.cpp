#include "files/AddAttrText.h"

#include "files/MaText.h"
#include "files/SceneFileStore.h"
#include "files/ValueText.h"

#include <unordered_set>

namespace host {

namespace {

void collectNames(const AttrSpec& attr, std::unordered_set<std::string>& names) {
    names.insert(attr.longName);
    names.insert(attr.shortName);
    for (const auto& child : attr.children) collectNames(*child, names);
}

// " -at \"double\"", " -dt \"string\"": the type part of an addAttr statement.
std::string typeFlags(const AttrSpec& attr) {
    switch (attr.type) {
    case AttrType::Compound:
        return " -at " + quoted(attr.typeName.empty() ? "compound" : attr.typeName) + " -nc " +
               std::to_string(attr.children.size());
    case AttrType::Bool:
        return " -at \"bool\"";
    case AttrType::Enum:
        return " -at \"enum\"";
    case AttrType::Float:
        return " -at \"float\"";
    case AttrType::Int:
    case AttrType::Double:
        return " -at " + quoted(attr.typeName);
    case AttrType::Matrix:
        return " -at \"matrix\"";
    case AttrType::Message:
        return " -at \"message\"";
    case AttrType::String:
        return " -dt \"string\"";
    case AttrType::Data:
    case AttrType::Generic:
        return " -dt " + quoted(attr.typeName);
    }
    return std::string();
}

void describe(const AttrSpec& attr, const std::string& parent, std::string& out) {
    out += "\taddAttr -ci true";
    if (attr.hidden) out += " -h true";
    if (attr.multi) out += " -m";
    out += " -sn " + quoted(attr.shortName) + " -ln " + quoted(attr.longName) + typeFlags(attr);
    if (attr.isNumeric() && valueAsDouble(attr.defaultValue) != 0.0) {
        out += " -dv ";
        appendNumber(attr, attr.defaultValue, out);
    }
    if (!parent.empty()) out += " -p " + quoted(parent);
    out += ";\n";
    for (const auto& child : attr.children) describe(*child, attr.longName, out);
}

bool hasAliasList(const Node& node) {
    const AttrSpec* attr = node.findAttr("aal");
    return attr && !attr->madeUp;
}

} // namespace

void appendAddAttrs(const Node& node, const NodeFileInfo* info, std::string& out) {
    for (const AttrPtr& attr : node.dynamicAttrs()) {
        if (attr->madeUp) continue;
        std::unordered_set<std::string> names;
        collectNames(*attr, names);
        bool kept = false;
        if (info)
            for (const auto& [name, text] : info->addAttrs)
                if (names.count(name)) {
                    out += "\t" + text + ";\n";
                    kept = true;
                }
        if (!kept) describe(*attr, std::string(), out);
    }
    if (!node.aliases().empty() && !hasAliasList(node))
        out += "\taddAttr -ci true -h true -sn \"aal\" -ln \"attributeAliasList\" -dt \"attributeAlias\";\n";
}

} // namespace host
