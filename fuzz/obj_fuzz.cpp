// The OBJ reader on arbitrary bytes. A mesh it accepts must be consistent: face vertex numbers
// within the points read, as many as the face counts add up to; and it must write out again.
#include "files/ObjFile.h"

#include <cstddef>
#include <cstdint>
#include <string_view>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    host::MeshData mesh;
    std::string error;
    std::vector<std::string> warnings;
    if (!host::parseObj(std::string_view(reinterpret_cast<const char*>(data), size), mesh, error, warnings))
        return 0;
    std::size_t corners = 0;
    for (const int count : mesh.faceCounts) {
        if (count < 0) __builtin_trap();
        corners += static_cast<std::size_t>(count);
    }
    if (corners != mesh.faceConnects.size()) __builtin_trap();
    for (const int vertex : mesh.faceConnects)
        if (vertex < 0 || vertex >= mesh.numVertices()) __builtin_trap();
    std::string out;
    host::appendObjMesh("fuzzMesh", mesh, 0, out);
    return 0;
}
