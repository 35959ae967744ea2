#include "commands/Names.h"

#include "commands/CommandState.h"
#include "engine/ComponentText.h"
#include "engine/Scene.h"

#include <algorithm>
#include <cctype>

namespace host {

Plug lookupPlug(const std::string& text, std::string* error) {
    const std::string notFound = "No object matches name: " + text;
    const std::size_t dot = text.find('.');
    if (dot == std::string::npos || dot + 1 == text.size()) {
        if (error) *error = notFound;
        return Plug();
    }
    NodePtr node = dot == 0 ? currentNode() : scene().findNode(text.substr(0, dot), error);
    if (!node) {
        if (error && (dot == 0 || error->rfind("More than one", 0) != 0)) *error = notFound;
        return Plug();
    }
    std::string path = text.substr(dot + 1);
    if (path.rfind("vtx[", 0) == 0 && !fileReadingMode()) {
        // A mesh vertex as a plug is its tweak, as Maya's setAttr takes "pShape.vtx[3]" (a
        // transform's vertices are its shape's).
        const NodePtr shape = shapeOf(scene(), node);
        if (shape && shape->type().isA("mesh")) {
            node = shape;
            path = "pnts" + path.substr(3);
        }
    }
    Plug plug = fileReadingMode() || node->type().generic ? obtainGenericPath(node, path, error)
                                                          : resolveAttrPath(node, path, error);
    if (plug.isNull() && error && error->empty()) *error = notFound;
    return plug;
}

std::string nodeName(const Node& node) {
    return scene().partialPath(node);
}

std::string shapeNameFor(const std::string& transform) {
    std::size_t end = transform.size();
    while (end > 0 && std::isdigit(static_cast<unsigned char>(transform[end - 1]))) --end;
    return transform.substr(0, end) + "Shape" + transform.substr(end);
}

bool validAttrName(const std::string& name) {
    if (name.empty() || !std::isalpha(static_cast<unsigned char>(name[0]))) return false;
    return std::all_of(name.begin(), name.end(),
                       [](char c) { return std::isalnum(static_cast<unsigned char>(c)) || c == '_'; });
}

} // namespace host
