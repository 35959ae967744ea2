#pragma once
// Fixture for the target mirror and split commands: a plane "pl" of 2 x 2 faces deformed by the
// blend shape "bs" (target 0 made from its duplicate "shape") on request, and target data of "bs"
// written and read as (vertex, delta) lists.
#include "EditWeightsSession.h"

#include "plugin/vertexOrderMap.h"

#include <maya/MDagPath.h>
#include <maya/MFnDependencyNode.h>

#include <sstream>
#include <utility>

class MirrorTargetSession : public EditWeightsSession {
public:
    using Entry = std::pair<int, std::array<double, 3>>;
    using Target = std::vector<Entry>;

protected:
    // Vertex v lies at x = v % 3 - 1, z = 1 - v / 3: pairs 0-2, 3-5, 6-8 across x; 1, 4, 7 on x = 0.
    static void makeDeformedPlane() {
        must("polyPlane -n pl -w 2 -h 2 -sx 2 -sy 2; duplicate -n shape pl; blendShape -n bs shape pl");
        must("select -cl");
    }

    static void setTarget(unsigned int target, const Target& entries, unsigned int item = 6000) {
        std::ostringstream plug, components, points;
        plug << "bs.it[0].itg[" << target << "].iti[" << item << "]";
        components << "setAttr " << plug.str() << ".ict -type componentList " << entries.size();
        points << "setAttr " << plug.str() << ".ipt -type pointArray " << entries.size();
        for (const Entry& e : entries) {
            components << " vtx[" << e.first << "]";
            points << " " << e.second[0] << " " << e.second[1] << " " << e.second[2] << " 1";
        }
        must(components.str() + ";" + points.str());
    }
    static Target target(unsigned int index, unsigned int item = 6000) {
        const std::vector<int> vertices = components(index, item);
        const Deltas values = deltas(index, item);
        Target result;
        for (std::size_t k = 0; k < vertices.size() && k < values.size(); ++k)
            result.emplace_back(vertices[k], values[k]);
        return result;
    }
    static unsigned int weightCount() {
        return MFnDependencyNode(node("bs")).findPlug("weight", false).numElements();
    }
    static std::array<double, 3> tweak(const char* mesh, int v) {
        MPointArray points;
        common::getVertexTweaks(node(mesh), MIntArray(1, v), points);
        return {points[0].x, points[0].y, points[0].z};
    }
    static host::CommandResult mirror(const std::string& arguments, bool expectOk = true) {
        return exec("kv_blendShapeMirrorTarget " + arguments + " bs", expectOk);
    }
    static void setOrderMap(const char* shape, std::vector<int> entries) {
        MSelectionList list;
        list.add(shape);
        MDagPath mesh;
        list.getDagPath(0, mesh);
        MPlug plug;
        if (!common::findVertexOrderMap(mesh, plug)) {
            ASSERT_TRUE(common::createVertexOrderMap(mesh, plug));
        }
        ASSERT_TRUE(common::writeVertexOrderMap(plug, MIntArray(std::move(entries))));
    }
};
