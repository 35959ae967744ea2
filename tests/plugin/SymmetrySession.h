#pragma once
// Fixture for the symmetry command tests: plain meshes put into the scene under a given name, and
// access to their points, vertex order maps and the active selection.
#include "PluginSession.h"
#include "core/mesh/PolyMesh.h"
#include "plugin/vertexOrderMap.h"

#include <maya/MDagPath.h>
#include <maya/MFnDagNode.h>
#include <maya/MFnDependencyNode.h>
#include <maya/MFnMesh.h>
#include <maya/MIntArray.h>
#include <maya/MPointArray.h>
#include <maya/MStringArray.h>

#include <algorithm>
#include <string>
#include <vector>

class SymmetrySession : public PluginSession {
protected:
    using Ints = std::vector<int>;

    // Creates the mesh under a transform named `name`; its shape is `name` + "Shape".
    static void addMesh(const core::PolyMesh& mesh, const std::string& name) {
        MPointArray points;
        for (int v = 0; v < mesh.numVertices(); ++v)
            points.append(MPoint(mesh.points[3 * std::size_t(v)], mesh.points[3 * std::size_t(v) + 1],
                                 mesh.points[3 * std::size_t(v) + 2]));
        MIntArray counts, connects;
        for (int c : mesh.faceCounts) counts.append(c);
        for (int v : mesh.faceConnects) connects.append(v);
        MFnMesh meshFn;
        MObject transform = meshFn.create(mesh.numVertices(), static_cast<int>(mesh.faceCounts.size()),
                                          points, counts, connects);
        ASSERT_FALSE(transform.isNull());
        MFnDependencyNode(transform).setName((name).c_str());
        MFnDependencyNode(meshFn.object()).setName((name + "Shape").c_str());
    }

    static MDagPath shape(const std::string& name) {
        MSelectionList list;
        list.add(name.c_str());
        MDagPath path;
        list.getDagPath(0, path);
        path.extendToShape();
        return path;
    }

    // The stored map; "none" when the mesh has no attribute.
    static Ints storedMap(const std::string& name) {
        MPlug plug;
        if (!common::findVertexOrderMap(shape(name), plug)) return {-999};
        const MIntArray map = common::readVertexOrderMap(plug);
        Ints result;
        for (unsigned int i = 0; i < map.length(); ++i) result.push_back(map[i]);
        return result;
    }

    static void setPoints(const std::string& name, const std::vector<double>& xyz) {
        MPointArray points;
        for (std::size_t v = 0; v < xyz.size() / 3; ++v)
            points.append(MPoint(xyz[3 * v], xyz[3 * v + 1], xyz[3 * v + 2]));
        MFnMesh(shape(name)).setPoints(points, MSpace::kObject);
    }

    static std::vector<double> getPoints(const std::string& name) {
        MPointArray points;
        MFnMesh(shape(name)).getPoints(points, MSpace::kObject);
        std::vector<double> xyz;
        for (unsigned int v = 0; v < points.length(); ++v)
            xyz.insert(xyz.end(), {points[v].x, points[v].y, points[v].z});
        return xyz;
    }

    // The vertex indices of the active selection, sorted.
    static Ints selectedVertices() {
        MStringArray selection;
        MGlobal::executeCommand("ls -sl -fl", selection);
        Ints vertices;
        for (unsigned int i = 0; i < selection.length(); ++i) {
            const std::string item = selection[i].asChar();
            const std::size_t open = item.find(".vtx[");
            if (open != std::string::npos) vertices.push_back(std::stoi(item.substr(open + 5)));
        }
        std::sort(vertices.begin(), vertices.end());
        return vertices;
    }

    // The texts of the messages of one kind, in order.
    static std::vector<std::string> lines(host::MessageKind kind) {
        std::vector<std::string> result;
        for (const host::Message& message : messages())
            if (message.kind == kind) result.push_back(message.text);
        return result;
    }
};
