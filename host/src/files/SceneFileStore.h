#pragma once
// What a scene keeps from the file it was read from beyond its nodes, values and connections, so
// that saving writes it back: the statements the engine does not run (requires, fileInfo,
// relationship, the blocks of default nodes the host does not have, script nodes…) in their places,
// node UUIDs and createNode flags, addAttr statements as written, setAttr flags, the raw text of
// generic typed values and the per-face records of mesh faces. There is one store per scene;
// `file -new` and `file -o` start a fresh one with the fresh scene.
#include "engine/Scene.h"

#include <cstdint>
#include <string>
#include <unordered_map>
#include <vector>

namespace host {

// Where a kept statement goes when the scene is written.
enum class KeptPlace {
    Prologue,       // after the header comments, before any node
    NodesStart,     // before the first node
    InNode,         // inside a node's block, after its values
    AfterNode,      // after a node's block
    AfterConnection // after a connectAttr
};

struct KeptStatement {
    KeptPlace place = KeptPlace::Prologue;
    std::weak_ptr<Node> node; // InNode, AfterNode
    Connection connection;    // AfterConnection
    std::string text;         // as written, without the closing ';'
    bool indented = false;    // written inside a block, one tab in
};

// A generic value as the file spelled it; used while the plug still holds `value`.
struct RawValue {
    std::string typeName;
    std::string text;
    Value value;
};

struct NodeFileInfo {
    std::string uuid;
    std::string createFlags; // "-s", "-ss" as given to createNode
    // addAttr statements as written, with the long name of the attribute each one adds.
    std::vector<std::pair<std::string, std::string>> addAttrs;
    // Flags of value-setting setAttr statements (-k on, -l on, -cb on, -av…), by plug path with
    // short names ("tx", "iog[0].og[1].gco").
    std::vector<std::pair<std::string, std::string>> plugFlags;
    std::unordered_map<std::string, RawValue> rawValues;
    // Mesh faces: the records that follow each face in a polyFaces payload ("mu 0 4 0 1 3 2").
    std::vector<std::string> faceRecords;
    // Mesh edges: the smoothing flag of each edge (the third value of ".ed").
    std::vector<uint8_t> edgeFlags;
};

struct SceneFileStore {
    std::string path; // the scene's file name; empty while untitled
    // The file this scene was read from when reading stopped part way: saving over it would lose
    // what was not read, so that needs -force.
    std::string readInPartFrom;
    std::vector<KeptStatement> kept;
    std::unordered_map<uint64_t, NodeFileInfo> nodes; // by node id

    NodeFileInfo& info(const Node& node) { return nodes[node.id()]; }
    const NodeFileInfo* find(const Node& node) const;
};

// The store of the current scene; a scene that replaced the one it belonged to gets a fresh one.
SceneFileStore& sceneFileStore();

} // namespace host
