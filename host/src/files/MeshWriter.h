#pragma once
// The geometry of a mesh shape as Maya writes it: points in ".vt", edges in ".ed" (both vertices and
// the smoothing flag), and faces in ".fc" as polyFaces, each face a loop of signed edge references
// followed by the records the file gave it (uv and colour assignments).
#include "engine/Node.h"

#include <string>

namespace host {

struct NodeFileInfo;

// Appends the statements for the shape's own geometry (not its deformed result). False, with the
// reason, when its faces cannot be spelled as edge loops; the points are written all the same.
bool appendMeshGeometry(const Node& shape, const NodeFileInfo* info, std::string& out, std::string& problem);

} // namespace host
