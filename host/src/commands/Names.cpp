#include "commands/Names.h"

#include "commands/CommandState.h"
#include "engine/Scene.h"

namespace host {

namespace {

// "name" or "name[3]" with nothing after it: the only shape of path a generic attribute can take.
bool splitSimplePath(const std::string& path, std::string& name, bool& indexed) {
    const std::size_t bracket = path.find('[');
    name = path.substr(0, bracket);
    if (name.empty() || name.find('.') != std::string::npos) return false;
    indexed = bracket != std::string::npos;
    return !indexed || path.find(']') == path.size() - 1;
}

} // namespace

NodePtr lookupNode(const std::string& name, std::string* error) {
    const bool rootNamespace = name.size() > 1 && name[0] == ':';
    return scene().findNode(rootNamespace ? name.substr(1) : name, error);
}

Plug lookupPlug(const std::string& text, std::string* error) {
    const std::string notFound = "No object matches name: " + text;
    const std::size_t dot = text.find('.');
    if (dot == std::string::npos || dot + 1 == text.size()) {
        if (error) *error = notFound;
        return Plug();
    }
    NodePtr node = dot == 0 ? currentNode() : lookupNode(text.substr(0, dot), error);
    if (!node) {
        if (error && (dot == 0 || error->rfind("More than one", 0) != 0)) *error = notFound;
        return Plug();
    }
    const std::string path = text.substr(dot + 1);
    Plug plug = resolveAttrPath(node, path, error);
    std::string name;
    bool indexed = false;
    if (plug.isNull() && (fileReadingMode() || node->type().generic) && splitSimplePath(path, name, indexed)) {
        const AttrSpec* existing = node->findAttr(name);
        // Files size a generic multi ("setAttr -s 3 .wm") before they index it.
        for (const AttrPtr& own : node->dynamicAttrs())
            if (own.get() == existing && own->type == AttrType::Generic && indexed) own->multi = true;
        if (existing || node->obtainGenericAttr(name, indexed)) plug = resolveAttrPath(node, path, error);
    }
    if (plug.isNull() && error && error->empty()) *error = notFound;
    return plug;
}

std::string nodeName(const Node& node) { return scene().partialPath(node); }

} // namespace host
