// polyColorPerVertex: reads (-q -rgb, -q -r/-g/-b/-a) or writes (-rgb r g b, -a alpha) the colours
// of mesh vertices in the current colour set, through the same mesh access the plug-in uses, so a
// deformed shape keeps the colours written to it. A query lists the channels asked for, vertex
// after vertex; a vertex without a colour reads as -1.
#include "api/ObjectRef.h"
#include "commands/CommandGroups.h"
#include "commands/MeshArgs.h"
#include "engine/Scene.h"

#include <maya/MColorArray.h>
#include <maya/MFnMesh.h>
#include <maya/MIntArray.h>

namespace host {

namespace {

bool isQuery(const std::vector<Token>& tokens) {
    for (const Token& t : tokens)
        if (isFlagToken(t) && (t.text == "-q" || t.text == "-query")) return true;
    return false;
}

// The vertices an argument names: its vertex components, or every vertex of a whole mesh.
std::vector<int> verticesOf(const MeshArg& arg) {
    std::vector<int> vertices;
    if (!arg.component || arg.component->complete) {
        for (int v = 0; v < arg.mesh->numVertices(); ++v) vertices.push_back(v);
    } else if (arg.component->type == ComponentType::Vertex) {
        for (int v : arg.component->elements)
            if (v >= 0 && v < arg.mesh->numVertices()) vertices.push_back(v);
    }
    return vertices;
}

bool polyColorPerVertexCommand(Invocation& inv) {
    static const FlagTable editFlags = {{"rgb", "colorRGB", "ddd"}, {"r", "red", "d"},
                                        {"g", "green", "d"},        {"b", "blue", "d"},
                                        {"a", "alpha", "d"},        {"cdo", "colorDisplayOption", ""}};
    static const FlagTable queryFlags = {{"q", "query", ""}, {"rgb", "colorRGB", ""}, {"r", "red", ""},
                                         {"g", "green", ""}, {"b", "blue", ""},       {"a", "alpha", ""}};
    const bool query = isQuery(inv.statement.args);
    ArgReader args("polyColorPerVertex", inv.statement.args);
    if (!args.parse(query ? queryFlags : editFlags)) return false;
    std::vector<MeshArg> meshes;
    int skipped = 0;
    if (!meshArgs(args, meshes, skipped)) return false;
    if (meshes.empty()) return args.fail("no mesh or vertex is named or selected.");
    for (const MeshArg& m : meshes)
        if (m.component && m.component->type != ComponentType::Vertex)
            return args.fail("name vertices (.vtx[…]), not other components.");

    if (query) {
        std::vector<int> channels;
        if (args.has("colorRGB")) channels = {0, 1, 2};
        if (args.has("red")) channels.push_back(0);
        if (args.has("green")) channels.push_back(1);
        if (args.has("blue")) channels.push_back(2);
        if (args.has("alpha")) channels.push_back(3);
        if (channels.empty()) return args.fail("query -rgb, -r, -g, -b or -a.");
        std::vector<double> values;
        for (const MeshArg& m : meshes) {
            MFnMesh fn(ObjectRef::ofNode(m.shape));
            MColorArray colors;
            fn.getVertexColors(colors);
            for (int v : verticesOf(m))
                for (int c : channels)
                    values.push_back(colors[static_cast<unsigned>(v)][static_cast<unsigned>(c)]);
        }
        inv.result = std::move(values);
        return true;
    }
    const bool rgb = args.has("colorRGB");
    if (!rgb && !args.has("red") && !args.has("green") && !args.has("blue") && !args.has("alpha"))
        return args.fail("give a colour with -rgb, -r, -g, -b or -a.");
    for (const MeshArg& m : meshes) {
        MFnMesh fn(ObjectRef::ofNode(m.shape));
        MColorArray current;
        fn.getVertexColors(current, nullptr, nullptr);
        MColorArray colors;
        MIntArray vertices;
        for (int v : verticesOf(m)) {
            MColor c = current[static_cast<unsigned>(v)];
            if (c.a < 0.f) c = MColor(0.f, 0.f, 0.f, 1.f); // an unset colour starts from black
            if (rgb)
                c = MColor(static_cast<float>(args.number("colorRGB", 0)),
                           static_cast<float>(args.number("colorRGB", 1)),
                           static_cast<float>(args.number("colorRGB", 2)), c.a);
            if (args.has("red")) c.r = static_cast<float>(args.number("red"));
            if (args.has("green")) c.g = static_cast<float>(args.number("green"));
            if (args.has("blue")) c.b = static_cast<float>(args.number("blue"));
            if (args.has("alpha")) c.a = static_cast<float>(args.number("alpha"));
            colors.append(c);
            vertices.append(v);
        }
        if (!fn.setVertexColors(colors, vertices))
            return args.fail("the colours of " + scene().partialPath(*m.shape) + " cannot be set.");
    }
    return true;
}

} // namespace

void registerPolyColorPerVertexCommand(CommandTable& table) {
    table.add("polyColorPerVertex", polyColorPerVertexCommand);
}

} // namespace host
