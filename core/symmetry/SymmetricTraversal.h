#pragma once

#include "core/mesh/CompressedRows.h"
#include "core/mesh/MeshTopology.h"

#include <vector>

namespace core {

// The edges of one face listed from the entry edge (a, b) onwards, in the walking direction a to b, each
// with its vertices in walking order. `faceEdgeVertices` holds each face edge's two vertices in the
// edge's stored order. Runs one sweep per edge; `remaining` is scratch space.
void getOrderedFaceEdges(int a, int b, IndexRange faceEdges, const std::vector<int>& faceEdgeVertices,
                         std::vector<int>& orderedEdges, std::vector<int>& orderedFrom,
                         std::vector<int>& orderedTo, std::vector<int>& remaining);

// The first of the edge's faces other than `face`, or -1 for a border edge.
int getOppositeEdgeFace(int face, IndexRange edgeFaces);

// For every face edge, laid out like the face vertices (faceConnects), the face across it as
// getOppositeEdgeFace gives it. Walks read it instead of the edges' faces: one pass in memory order here
// spares every walk two scattered reads per edge.
std::vector<int> getFacesAcross(const MeshTopology& topology);

// One walk's result and working state. The state is sized for the whole mesh once and reused by every
// walk over it (a walk clears only the flags it set), so a walk costs the size of its shell. Construct it
// on the thread that prepares the walks: memory a worker thread allocates may be handed back to the system
// when freed and cost fresh pages on the next walk.
class Traversal {
public:
    explicit Traversal(const MeshTopology& topology);

    std::vector<int> order; // vertices in the order of their first visit
    bool complete = false;  // false when the face queue ran dry before the shell's faces were processed

private:
    friend void traverseMesh(const MeshTopology&, const std::vector<int>&, int, int, int, int, Traversal&);
    struct Entry {
        int face, from, to; // a queued face and the edge it is entered through, walked from `from` to `to`
    };
    std::vector<char> vertexVisited_, faceVisited_;
    std::vector<Entry> queue_;
    std::vector<int> edgeVertices_, orderedEdges_, orderedFrom_, orderedTo_, remaining_;
};

// Walks a shell breadth-first over faces from `startFace`, entered through its edge (a, b): each face's
// edges are walked on from the edge it was entered through, and each neighbour face is entered through
// the shared edge in the same direction. The order depends on topology alone, so walks started from two
// mirror-image edges give mirror partners at equal positions. Exactly `shellFaceCount` faces are
// processed. `facesAcross` comes from getFacesAcross; `walk` must have been made for `topology` and
// receives the result.
void traverseMesh(const MeshTopology& topology, const std::vector<int>& facesAcross, int startFace, int a,
                  int b, int shellFaceCount, Traversal& walk);

} // namespace core
