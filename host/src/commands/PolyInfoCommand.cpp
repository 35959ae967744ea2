// polyInfo: how mesh elements connect, one text line per element as Maya prints it, e.g.
// "EDGE      0:      0      1  Hard\n". -edgeToVertex and -edgeToFace take edges,
// -faceToVertex faces, -vertexToEdge and -vertexToFace vertices; a whole mesh stands for all its
// elements of that kind. Edge hardness is not kept by the engine: every edge reads as hard.
#include "commands/CommandGroups.h"
#include "commands/MeshArgs.h"
#include "engine/Scene.h"

#include <cstdio>

namespace host {

namespace {

struct Query {
    const char* flag;
    const char* label;   // the line's first word
    ComponentType input; // the elements the query takes
};

const Query kQueries[] = {{"edgeToVertex", "EDGE", ComponentType::Edge},
                          {"edgeToFace", "EDGE", ComponentType::Edge},
                          {"faceToVertex", "FACE", ComponentType::Face},
                          {"vertexToEdge", "VERTEX", ComponentType::Vertex},
                          {"vertexToFace", "VERTEX", ComponentType::Vertex}};

void appendNumber(std::string& line, int value) {
    char text[16];
    std::snprintf(text, sizeof text, " %6d", value);
    line += text;
}

template <class Range>
std::string infoLine(const Query& query, int element, const Range& related, bool edgeEnds) {
    std::string line = query.label;
    appendNumber(line, element);
    line += ':';
    for (int index : related) appendNumber(line, index);
    line += edgeEnds ? "  Hard\n" : " \n";
    return line;
}

int elementCount(const core::MeshTopology& topology, ComponentType type) {
    return type == ComponentType::Edge   ? topology.numEdges()
           : type == ComponentType::Face ? topology.numFaces()
                                         : topology.numVertices();
}

bool polyInfoCommand(Invocation& inv) {
    static const FlagTable flags = {{"ev", "edgeToVertex", ""},
                                    {"ef", "edgeToFace", ""},
                                    {"fv", "faceToVertex", ""},
                                    {"ve", "vertexToEdge", ""},
                                    {"vf", "vertexToFace", ""}};
    ArgReader args("polyInfo", inv.statement.args);
    if (!args.parse(flags)) return false;
    if (args.flagUses().size() != 1) return args.fail("give exactly one of -ev, -ef, -fv, -ve, -vf.");
    const std::string flag = args.flagUses().front().flag->longName;
    const Query* query = &kQueries[0];
    for (const Query& q : kQueries)
        if (flag == q.flag) query = &q;
    std::vector<MeshArg> meshes;
    int skipped = 0;
    if (!meshArgs(args, meshes, skipped)) return false;
    if (meshes.empty()) return args.fail("no polygonal object or component is named or selected.");

    std::vector<std::string> lines;
    for (const MeshArg& m : meshes) {
        const core::MeshTopology& topology = m.mesh->topology();
        if (m.component && m.component->type != query->input) {
            messageLog().warning("polyInfo: -" + flag + " skips components of another kind on " +
                                 scene().partialPath(*m.shape) + ".");
            continue;
        }
        const int count = elementCount(topology, query->input);
        std::vector<int> all;
        if (!m.component || m.component->complete)
            for (int i = 0; i < count; ++i) all.push_back(i);
        const std::vector<int>& elements = all.empty() && m.component ? m.component->elements : all;
        for (int e : elements) {
            if (e < 0 || e >= count) continue;
            if (flag == "edgeToVertex") {
                const std::array<int, 2> ends = topology.edgeVertices(e);
                lines.push_back(infoLine(*query, e, ends, true));
            } else if (flag == "edgeToFace") {
                lines.push_back(infoLine(*query, e, topology.edgeFaces(e), false));
            } else if (flag == "faceToVertex") {
                lines.push_back(infoLine(*query, e, topology.faceVertices(e), false));
            } else if (flag == "vertexToEdge") {
                lines.push_back(infoLine(*query, e, topology.vertexEdges(e), false));
            } else {
                lines.push_back(infoLine(*query, e, topology.vertexFaces(e), false));
            }
        }
    }
    inv.result = std::move(lines);
    return true;
}

} // namespace

void registerPolyInfoCommand(CommandTable& table) {
    table.add("polyInfo", polyInfoCommand);
}

} // namespace host
