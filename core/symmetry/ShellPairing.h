#pragma once

#include "core/symmetry/ShellComponents.h"
#include "core/symmetry/SymmetryMesh.h"
#include "core/symmetry/SymmetryReport.h"
#include "core/symmetry/TopologyQueries.h"

#include <array>
#include <string>
#include <vector>

namespace core {

// Settings shared by the start-component searches.
struct PairingSettings {
    unsigned int axis = 0;
    double tolerance = 0.0001;
    unsigned int verbose = 0;
    bool select = false;
};

// Finds start components for every shell of the mesh that the user gave no symmetry edge for: shells
// symmetric in themselves start from the edge between their two centre vertices; shells of equal face
// count whose mirrored bounding box centres fall into each other's boxes are mapped as a pair. Appends
// the counts of the user-given shells, then one entry per other shell or pair (-1 components where
// nothing was found). Sets `errors` when a shell could not be provided for; with the select setting,
// `selection` receives the components of every entry.
void getMultiShellComponents(const SymmetryMesh& mesh, const PairingSettings& settings,
                             const UserShells& user, const ClosestFace& closestFace, ShellComponents& out,
                             bool& errors, std::vector<std::string>& selection, SymmetryReport& report);

// Start components of two mirrored shells: the first face of the first shell whose mirror face (the face
// nearest its first vertex's mirror image) has matching vertices on two neighbouring vertices.
struct PairComponents {
    int face1 = -1, face2 = -1;
    int vertex1 = -1, vertex2 = -1, vertex3 = -1, vertex4 = -1;
};
bool getSymmetryComponentsShellPair(const SymmetryMesh& mesh, unsigned int axis, double tolerance,
                                    int startFace1, const ClosestFace& closestFace, PairComponents& pair);

// Chooses one of the edge's two faces so that the choices made for two mirrored edges correspond: the
// first call (placement -1) fixes the placement, the second matches it.
bool getFacePlacement(const SymmetryMesh& mesh, unsigned int axis, int edge, int& placement, int& face);

// Start components for two mirrored shells from one selected edge on each (given by their vertices in
// stored order). Appends one entry; fails when a face could not be chosen for either edge.
bool getShellPairExtensionComponents(const SymmetryMesh& mesh, const PairingSettings& settings,
                                     const std::array<int, 2>& edge1, const std::array<int, 2>& edge2,
                                     ShellComponents& out, bool& errors, std::vector<std::string>& selection,
                                     SymmetryReport& report);

// Shows the command that selects the shell of a face.
void displaySelectCommand(const SymmetryMesh& mesh, int face, SymmetryReport& report);

} // namespace core
