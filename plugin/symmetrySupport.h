#pragma once
// What the two symmetry commands share: finding the mesh among the command's objects, gathering its
// topology and points once for the algorithms in core/symmetry, closest-face searches, vertex
// selections and a message sink that writes to the script editor.
#include "core/mesh/MeshTopology.h"
#include "core/symmetry/SymmetryReport.h"

#include <maya/MArgDatabase.h>
#include <maya/MDagPath.h>
#include <maya/MIntArray.h>
#include <maya/MMatrix.h>
#include <maya/MMeshIntersector.h>
#include <maya/MObject.h>
#include <maya/MSelectionList.h>
#include <maya/MStatus.h>

#include <array>
#include <memory>
#include <string>
#include <vector>

namespace common {

// Shows the algorithms' messages with MGlobal and formats numbers as MString does.
class ScriptEditorReport : public core::SymmetryReport {
public:
    void info(const std::string& text) override;
    void warning(const std::string& text) override;
    void error(const std::string& text) override;
    std::string number(double value) const override;
};

// The command's objects. Shows "Error getting objects" or, for none, "No mesh provided." and fails.
MStatus getMeshObjects(const MArgDatabase& argData, MSelectionList& objects);

// The mesh shape of item `index` of the list with its component: a transform stands for its first
// child. Shows "<name> has no shape node." or "<name> is not a mesh object." and fails otherwise.
MStatus getMeshObject(const MSelectionList& list, unsigned int index, MDagPath& mesh, MObject& component);

// The mesh's topology with the given adjacency tables (core::MeshTopology::Tables) and its object-space
// points (x, y, z per vertex, from single precision).
MStatus readMeshTopology(const MDagPath& mesh, core::MeshTopology& topology, std::vector<double>& points,
                         unsigned int tables);

// The face of `mesh`, moved by `matrix`, nearest to a point, searched with an intersector built on
// first use.
class ClosestFaceSearch {
public:
    explicit ClosestFaceSearch(const MObject& mesh, const MMatrix& matrix = MMatrix::identity)
        : mesh_(mesh), matrix_(matrix) {}
    // -1 when the intersector cannot be built or the search fails.
    int operator()(const std::array<double, 3>& point);
    // Builds the intersector now; failure when it cannot be built.
    MStatus create();

private:
    MObject mesh_;
    MMatrix matrix_;
    std::unique_ptr<MMeshIntersector> intersector_;
    bool failed_ = false;
};

// Replaces the active selection with the given vertices of the mesh (an empty list clears it).
MStatus selectVertices(const MDagPath& mesh, MIntArray& vertices);

// Replaces the active selection with the components named by the strings.
MStatus selectComponents(const std::vector<std::string>& components);

} // namespace common
