// polyEvaluate: vertex, edge, face and triangle counts of meshes (the selection when none are
// named). One flag gives a number, several give the numbers in the order of the flags; without
// flags all four come as text. Counts of several meshes add up.
#include "commands/CommandGroups.h"
#include "commands/MeshArgs.h"
#include "engine/Scene.h"

namespace host {

namespace {

enum class Count { Vertices, Edges, Faces, Triangles };

int countOf(const MeshData& mesh, Count count) {
    switch (count) {
    case Count::Vertices:
        return mesh.numVertices();
    case Count::Edges:
        return mesh.topology().numEdges();
    case Count::Faces:
        return mesh.numFaces();
    case Count::Triangles: {
        int triangles = 0;
        for (int n : mesh.faceCounts) triangles += n > 2 ? n - 2 : 0;
        return triangles;
    }
    }
    return 0;
}

bool polyEvaluateCommand(Invocation& inv) {
    static const FlagTable flags = {
        {"v", "vertex", ""}, {"e", "edge", ""}, {"f", "face", ""}, {"t", "triangle", ""}};
    ArgReader args("polyEvaluate", inv.statement.args);
    if (!args.parse(flags)) return false;
    std::vector<MeshArg> meshes;
    int skipped = 0;
    if (!meshArgs(args, meshes, skipped)) return false;
    if (meshes.empty()) {
        const std::string text = "Nothing counted : no polygonal object is selected.";
        messageLog().warning("polyEvaluate: " + text);
        inv.result = text;
        return true;
    }
    auto total = [&](Count count) {
        int sum = 0;
        for (const MeshArg& m : meshes) sum += countOf(*m.mesh, count);
        return sum;
    };
    std::vector<int> counts;
    for (const ArgReader::Use& use : args.flagUses()) {
        const std::string flag = use.flag->longName;
        counts.push_back(total(flag == "vertex" ? Count::Vertices
                               : flag == "edge" ? Count::Edges
                               : flag == "face" ? Count::Faces
                                                : Count::Triangles));
    }
    if (counts.size() == 1)
        inv.result = counts.front();
    else if (!counts.empty())
        inv.result = std::move(counts);
    else
        inv.result = "vertex: " + std::to_string(total(Count::Vertices)) +
                     " edge: " + std::to_string(total(Count::Edges)) +
                     " face: " + std::to_string(total(Count::Faces)) +
                     " triangle: " + std::to_string(total(Count::Triangles));
    return true;
}

} // namespace

void registerPolyEvaluateCommand(CommandTable& table) {
    table.add("polyEvaluate", polyEvaluateCommand);
}

} // namespace host
