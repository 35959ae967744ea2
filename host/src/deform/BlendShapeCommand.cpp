// blendShape: creates a blend shape on a mesh or edits one. The result is the node's name.
//   blendShape [-n name] [-foc] [-ib] [-w index value]… target… base
//       the last object is the base; targets become targets 0, 1, … at full weight, their weight
//       channels named after the targets' transforms. With -ib the targets are the in-betweens of
//       one target 0, evenly spaced up to weight 1.
//   blendShape -e -t base index target weight [-ib] [-w index value]… node
//       stores `target` as target `index` at `weight`: a new target that replaces any earlier shapes
//       of that index, or with -ib one more in-between item of it.
#include "commands/ArgReader.h"
#include "deform/BlendShapeBuild.h"
#include "deform/DeformerChain.h"
#include "deform/DeformerCommands.h"
#include "engine/ComponentText.h"
#include "engine/Scene.h"
#include "eval/DeformerData.h"
#include "eval/Evaluator.h"

#include <algorithm>

namespace host {

namespace {

NodePtr meshShape(const NodePtr& node, std::string& error) {
    NodePtr shape = shapeOf(scene(), node);
    if (shape && shape->type().isA("mesh")) return shape;
    if (node) error = scene().partialPath(*node) + " is not a mesh.";
    return nullptr;
}

NodePtr meshShape(const std::string& name, std::string& error) {
    return meshShape(scene().findNode(name, &error), error);
}

// Names a weight channel after the target's transform, as Maya does; a name that the node already
// uses for an attribute or another channel leaves the channel without an alias.
void nameWeight(const NodePtr& blendShape, unsigned index, const NodePtr& target) {
    const Node* named = target->type().shape && target->parent() ? target->parent() : target.get();
    const std::string& name = named->name();
    const std::string path = weightPlug(blendShape, index).attrPath(true);
    auto& aliases = blendShape->aliases();
    if (blendShape->findAttr(name) ||
        std::any_of(aliases.begin(), aliases.end(), [&](const auto& a) { return a.first == name; }))
        return;
    aliases.erase(
        std::remove_if(aliases.begin(), aliases.end(), [&](const auto& a) { return a.second == path; }),
        aliases.end());
    aliases.emplace_back(name, path);
    blendShape->touch();
}

bool targetFits(const ArgReader& args, const NodePtr& target, const NodePtr& base) {
    if (evaluatedMesh(target)->numVertices() == evaluatedMesh(base)->numVertices()) return true;
    return args.fail(target->name() + " does not have the same number of vertices as " + base->name() + ".");
}

bool weightsValid(const ArgReader& args) {
    for (int use = 0; use < args.uses("weight"); ++use)
        if (args.integer("weight", 0, use) < 0)
            return args.fail("invalid weight index " + std::to_string(args.integer("weight", 0, use)) + ".");
    return true;
}

void setWeights(const ArgReader& args, const NodePtr& blendShape) {
    for (int use = 0; use < args.uses("weight"); ++use)
        weightPlug(blendShape, static_cast<unsigned>(args.integer("weight", 0, use)))
            .setValue(args.number("weight", 1, use));
}

bool create(Invocation& inv, const ArgReader& args) {
    if (args.has("target")) return args.fail("-target needs -edit.");
    std::vector<NodePtr> shapes;
    std::string error;
    for (const Token* token : args.positional())
        if (!shapes.emplace_back(meshShape(token->text, error))) return args.fail(error);
    if (shapes.empty())
        for (const SelectionItem& item : scene().activeSelection())
            if (!shapes.emplace_back(meshShape(item.node, error))) return args.fail(error);
    if (shapes.empty()) return args.fail("give the targets and the base object.");
    const NodePtr base = shapes.back();
    shapes.pop_back();
    for (const NodePtr& target : shapes)
        if (!targetFits(args, target, base)) return false;
    const std::string name = args.has("name") ? args.text("name") : std::string();
    NodePtr blendShape = createBlendShape({base}, name, args.has("frontOfChain"), &error);
    if (!blendShape) return args.fail(error);
    const bool inBetween = args.has("inBetween");
    for (std::size_t k = 0; k < shapes.size(); ++k) {
        const unsigned index = inBetween ? 0 : static_cast<unsigned>(k);
        const double weight =
            inBetween ? static_cast<double>(k + 1) / static_cast<double>(shapes.size()) : 1.0;
        if (!addBlendShapeTarget(blendShape, 0, index, evaluatedMesh(shapes[k]).get(), weight, &error))
            return args.fail(error);
        nameWeight(blendShape, index, shapes[k]);
    }
    setWeights(args, blendShape);
    inv.result = std::vector<std::string>{scene().partialPath(*blendShape)};
    return true;
}

struct TargetUse {
    NodePtr target;
    unsigned geometry = 0;
    unsigned index = 0;
    uint32_t item = 6000;
    double weight = 1.0;
};

// Reads and checks every -target use before anything changes.
bool readTargets(const ArgReader& args, const NodePtr& blendShape, std::vector<TargetUse>& uses) {
    std::string error;
    for (int use = 0; use < args.uses("target"); ++use) {
        TargetUse t;
        const NodePtr base = meshShape(args.text("target", 0, use), error);
        t.target = meshShape(args.text("target", 2, use), error);
        if (!base || !t.target) return args.fail(error);
        const auto geometry = indexForShape(blendShape, base);
        if (!geometry) return args.fail(base->name() + " is not deformed by " + blendShape->name() + ".");
        const int index = args.integer("target", 1, use);
        if (index < 0) return args.fail("invalid target index " + std::to_string(index) + ".");
        t.weight = args.number("target", 3, use);
        const auto item = itemForWeight(t.weight);
        if (!item) return args.fail("the weight of a target must not be 0.");
        if (!targetFits(args, t.target, base)) return false;
        t.geometry = *geometry;
        t.index = static_cast<unsigned>(index);
        t.item = *item;
        uses.push_back(t);
    }
    return true;
}

bool edit(Invocation& inv, const ArgReader& args) {
    if (args.has("name") || args.has("frontOfChain"))
        return args.fail("-name and -frontOfChain need create mode.");
    if (args.positional().size() != 1) return args.fail("give the blend shape node to edit.");
    std::string error;
    NodePtr blendShape = scene().findNode(args.positional()[0]->text, &error);
    if (!blendShape) return args.fail(error);
    if (!blendShape->type().isA("blendShape"))
        return args.fail(blendShape->name() + " is not a blend shape.");
    std::vector<TargetUse> uses;
    if (!readTargets(args, blendShape, uses)) return false;
    const bool inBetween = args.has("inBetween");
    for (const TargetUse& t : uses) {
        const bool newChannel = !weightPlug(blendShape, t.index).hasStoredValue();
        if (!addBlendShapeTarget(blendShape, t.geometry, t.index, evaluatedMesh(t.target).get(), t.weight,
                                 &error))
            return args.fail(error);
        if (!inBetween) {
            const Plug items = childPlug(targetGroupPlug(blendShape, t.geometry, t.index), "inputTargetItem");
            for (uint32_t item : items.existingIndices())
                if (item != t.item) removeBlendShapeItems(blendShape, t.geometry, t.index, item);
        }
        if (newChannel || !inBetween) nameWeight(blendShape, t.index, t.target);
    }
    setWeights(args, blendShape);
    inv.result = std::vector<std::string>{scene().partialPath(*blendShape)};
    return true;
}

bool blendShapeCommand(Invocation& inv) {
    static const FlagTable flags = {{"n", "name", "s"},      {"e", "edit", ""},
                                    {"t", "target", "sisd"}, {"ib", "inBetween", ""},
                                    {"w", "weight", "id"},   {"foc", "frontOfChain", ""}};
    ArgReader args("blendShape", inv.statement.args);
    if (!args.parse(flags) || !weightsValid(args)) return false;
    return args.has("edit") ? edit(inv, args) : create(inv, args);
}

} // namespace

void registerBlendShapeCommand(CommandTable& table) {
    table.add("blendShape", blendShapeCommand);
}

} // namespace host
