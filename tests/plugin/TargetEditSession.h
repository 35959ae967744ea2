#pragma once
// Fixture for the target editing commands: the edit-weights fixture's command runner, target data
// readers and message lists, plus mesh points and node lookups.
#include "EditWeightsSession.h"

#include <maya/MDagPath.h>
#include <maya/MFloatPointArray.h>
#include <maya/MFnDagNode.h>
#include <maya/MFnMesh.h>

#include <array>
#include <map>

class TargetEditSession : public EditWeightsSession {
public:
    using Points = std::vector<std::array<float, 3>>;

protected:
    // makeBlendShape's "box" and "bs", and an in-between at item 5500 of target 0 that moves vertex
    // 3 by (0.25, 0, 0).
    static void makeBlendShapeWithInbetween() {
        makeBlendShape();
        must("setAttr bs.it[0].itg[0].iti[5500].ict -type componentList 1 vtx[3]");
        must("setAttr bs.it[0].itg[0].iti[5500].ipt -type pointArray 1 0.25 0 0 1");
    }
    static MDagPath path(const std::string& name) {
        MSelectionList list;
        MDagPath result;
        if (list.add(name.c_str())) list.getDagPath(0, result);
        return result;
    }
    // The name of the first shape under a transform; empty when there is none.
    static std::string shapeOf(const std::string& transform) {
        const MFnDagNode parent(path(transform).node());
        if (parent.childCount() == 0) return std::string();
        return MFnDagNode(parent.child(0)).name().asChar();
    }
    static bool exists(const std::string& name) { return !node(name.c_str()).isNull(); }

    // Object-space positions of a mesh (shape or transform).
    static Points meshPoints(const std::string& mesh) {
        MFloatPointArray points;
        MFnMesh(path(mesh)).getPoints(points, MSpace::kObject);
        Points result;
        for (unsigned int i = 0; i < points.length(); ++i)
            result.push_back({points[i].x, points[i].y, points[i].z});
        return result;
    }
    // Moves vertices of a mesh by the given offsets.
    static void movePoints(const std::string& mesh, const std::map<int, std::array<float, 3>>& offsets) {
        MFloatPointArray points;
        MFnMesh fn(path(mesh));
        fn.getPoints(points, MSpace::kObject);
        for (const auto& [v, d] : offsets) {
            MFloatPoint& p = points[static_cast<unsigned int>(v)];
            p = MFloatPoint(p.x + d[0], p.y + d[1], p.z + d[2]);
        }
        fn.setPoints(points, MSpace::kObject);
    }
    // Points plus deltas at the listed components.
    static Points withDeltas(Points points, const std::vector<int>& components, const Deltas& deltas) {
        for (std::size_t k = 0; k < components.size(); ++k)
            for (std::size_t c = 0; c < 3; ++c)
                points[static_cast<std::size_t>(components[k])][c] += static_cast<float>(deltas[k][c]);
        return points;
    }
    static std::vector<std::string> nodesOfType(const std::string& type) {
        const host::CommandResult result = exec("ls -type " + type);
        if (const auto* names = std::get_if<std::vector<std::string>>(&result)) return *names;
        return {};
    }
};
