#pragma once
// The geometry statements of a mesh block read straight from the file text, without splitting them
// into tokens first: a million-vertex mesh is millions of words, and as tokens they cost several
// times the file's size in short-lived memory. Only the plain form that scene files hold is taken:
//   setAttr [-s N] [-ch N] [-type "polyFaces"] ".vt[a:b]" x y z …;      (also .ed and .fc)
// with blanks between words, plain numbers and, for faces, "f" records alone. Anything else (a
// comment, another flag or record, a count that does not match, data the mesh rejects) is left to
// the general reader, which then reads the same statement and reports what is wrong with it.
#include "files/SceneFileStore.h"

#include <string>
#include <string_view>
#include <vector>

namespace host {

// Storage reused by the statements of one file.
struct MeshPayloadBuffers {
    std::vector<double> numbers;
    std::vector<std::vector<int>> loops;
};

// The length of the statement read from the start of `text` (through its ';'), or 0 when the text
// does not start with such a statement; nothing is changed then.
std::size_t readMeshPayload(std::string_view text, Node& shape, NodeFileInfo& info,
                            MeshPayloadBuffers& buffers);

} // namespace host
