#include "files/ObjTransfer.h"

#include "commands/Names.h"
#include "core/common/AtomicFile.h"
#include "engine/ComponentText.h"
#include "engine/Scene.h"
#include "eval/Evaluator.h"
#include "files/ObjFile.h"
#include "files/WholeFile.h"

#include <cctype>
#include <unordered_set>

namespace host {

namespace {

// "generic_neutral_mesh.obj" -> "generic_neutral_mesh"; characters a node name cannot hold become '_'.
// A node name made of `text`: other characters become '_', and a leading digit gets a prefix.
std::string safeNodeName(std::string text) {
    for (char& c : text)
        if (!std::isalnum(static_cast<unsigned char>(c)) && c != '_') c = '_';
    if (text.empty() || std::isdigit(static_cast<unsigned char>(text[0]))) text = "obj_" + text;
    return text;
}

// The name of the file's first object ("o name"), or else of the file itself.
std::string nodeNameFor(const std::string& path, const std::string& text) {
    for (std::size_t line = 0; line < text.size();) {
        std::size_t end = text.find('\n', line);
        if (end == std::string::npos) end = text.size();
        if (text.compare(line, 2, "o ") == 0 || text.compare(line, 2, "o\t") == 0) {
            const std::size_t first = text.find_first_not_of(" \t", line + 2);
            std::size_t last = end;
            while (last > line && std::isspace(static_cast<unsigned char>(text[last - 1]))) --last;
            if (first < last) return safeNodeName(text.substr(first, last - first));
        }
        line = end + 1;
    }
    std::string stem = path.substr(path.rfind('/') == std::string::npos ? 0 : path.rfind('/') + 1);
    const std::size_t dot = stem.rfind('.');
    if (dot != std::string::npos && dot > 0) stem.erase(dot);
    return safeNodeName(stem);
}

bool isIntermediate(const NodePtr& node) {
    const Plug io = resolveAttrPath(node, "intermediateObject", nullptr);
    return !io.isNull() && valueAsDouble(io.value()) != 0.0;
}

} // namespace

bool importObjFile(const std::string& path, std::string& transformName, std::string& error) {
    std::string text;
    if (!readWholeFile(path, text, error)) return false;
    auto mesh = std::make_shared<MeshData>();
    std::vector<std::string> warnings;
    if (!parseObj(text, *mesh, error, warnings)) {
        error = path + " " + error;
        return false;
    }
    for (const std::string& warning : warnings) messageLog().warning(path + " " + warning);
    if (!mesh->topologyError().empty()) {
        error = path + ": " + mesh->topologyError() + ".";
        return false;
    }
    Scene& s = scene();
    const std::string name = nodeNameFor(path, text);
    NodePtr transform = s.createNode("transform", name, nullptr, &error);
    NodePtr shape =
        transform ? s.createNode("mesh", shapeNameFor(transform->name()), transform.get(), &error) : nullptr;
    if (!shape) {
        if (transform) s.deleteNode(transform, nullptr);
        return false;
    }
    shape->mesh() = std::move(mesh);
    shape->touch();
    transformName = transform->name();
    return true;
}

std::vector<NodePtr> meshesToExport(const std::vector<NodePtr>& nodes, bool all) {
    std::vector<NodePtr> shapes;
    std::unordered_set<const Node*> seen;
    auto add = [&](const NodePtr& node) {
        NodePtr shape = shapeOf(scene(), node);
        if (shape && shape->type().isA("mesh") && seen.insert(shape.get()).second) shapes.push_back(shape);
    };
    if (!all) {
        for (const NodePtr& node : nodes) add(node);
        return shapes;
    }
    for (const NodePtr& node : scene().nodes())
        if (node->type().isA("mesh") && !isIntermediate(node)) add(node);
    return shapes;
}

bool exportObjFile(const std::string& path, const std::vector<NodePtr>& shapes, std::string& error) {
    std::string text = "# Written by talven\n";
    std::size_t offset = 0;
    for (const NodePtr& shape : shapes) {
        const MeshPtr mesh = evaluatedMesh(shape);
        if (!mesh) continue;
        const Node* named = shape->parent() ? shape->parent() : shape.get();
        appendObjMesh(named->name(), *mesh, offset, text);
        offset += mesh->points.size();
    }
    return common::writeFileAtomically(path, text, error);
}

} // namespace host
