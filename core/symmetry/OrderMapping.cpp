#include "core/symmetry/OrderMapping.h"

#include "core/symmetry/SymmetricTraversal.h"

#include <tbb/blocked_range.h>
#include <tbb/parallel_for.h>
#include <tbb/task_group.h>

#include <string>

namespace core {

namespace {

int entry(const std::vector<int>& list, std::size_t k) {
    return k < list.size() ? list[k] : -1;
}

} // namespace

bool mapShells(const MeshTopology& topology, const ShellComponents& shells, std::vector<int>& map,
               int& mappedShells, SymmetryReport& report) {
    mappedShells = 0;
    const auto mapped = [&](std::size_t s) { return shells.faces1[s] != -1 && shells.faces2[s] != -1; };
    std::size_t s = 0;
    while (s < shells.size() && !mapped(s)) ++s;
    if (s == shells.size()) return true;
    // Both passes' working state is made here, on the calling thread, and reused by every shell.
    Traversal passes[2] = {Traversal(topology), Traversal(topology)};
    const std::vector<int> facesAcross = getFacesAcross(topology);
    for (; s < shells.size(); ++s) {
        if (!mapped(s)) continue;
        const bool ownEntry = shells.vertices3[s] != -1;
        const int starts[2][3] = {{shells.faces1[s], shells.vertices1[s], shells.vertices2[s]},
                                  {shells.faces2[s], ownEntry ? shells.vertices3[s] : shells.vertices1[s],
                                   ownEntry ? shells.vertices4[s] : shells.vertices2[s]}};
        const int faceCount = entry(shells.shellFaceCounts, s);
        tbb::task_group_context context;
        tbb::parallel_for(
            tbb::blocked_range<unsigned int>(0, 2, 1),
            [&](const tbb::blocked_range<unsigned int>& range) {
                for (unsigned int pass = range.begin(); pass != range.end(); ++pass)
                    traverseMesh(topology, facesAcross, starts[pass][0], starts[pass][1], starts[pass][2],
                                 faceCount, passes[pass]);
            },
            tbb::auto_partitioner(), context);

        bool failed = false;
        for (int pass = 0; pass < 2; ++pass) {
            if (passes[pass].complete) continue;
            report.warning("Failed to process all faces.");
            report.info("Shell index: " + std::to_string(s));
            report.info("Vertices: " + std::to_string(starts[pass][1]) + " " +
                        std::to_string(starts[pass][2]));
            report.error(std::string("Error while iterating the mesh during the ") +
                         (pass == 0 ? "first" : "second") + " pass.");
            failed = true;
        }
        if (failed) return false;
        const std::vector<int>& first = passes[0].order;
        const std::vector<int>& second = passes[1].order;
        if (first.size() != second.size()) {
            report.info("Shell index: " + std::to_string(s));
            report.info("Pass counts: " + std::to_string(first.size()) + ", " +
                        std::to_string(second.size()));
            report.error("Remapping failed because the two passes have a different vertex count.");
            return false;
        }
        for (std::size_t i = 0; i < first.size(); ++i) {
            if (first[i] >= int(map.size()) || second[i] >= int(map.size())) continue;
            map[std::size_t(first[i])] = second[i];
            map[std::size_t(second[i])] = first[i];
        }
        ++mappedShells;
    }
    return true;
}

} // namespace core
