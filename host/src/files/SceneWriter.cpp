#include "files/SceneWriter.h"

#include "core/common/AtomicFile.h"
#include "files/AddAttrText.h"
#include "files/FilePlugPath.h"
#include "files/MaText.h"
#include "files/NodeValues.h"
#include "files/SceneFileStore.h"

#include <unordered_map>
#include <unordered_set>

namespace host {

namespace {

// Nodes every scene starts with (initialShadingGroup): files name them, they never create them.
bool isDefaultNode(const Node& node) {
    static const uint64_t defaultCount = Scene().nodes().size();
    return node.id() <= defaultCount;
}

std::string nodeReference(const Scene& s, const Node& node) {
    return isDefaultNode(node) ? ":" + node.name() : s.partialPath(node);
}

std::string baseName(const std::string& path) {
    const std::size_t slash = path.rfind('/');
    return slash == std::string::npos ? path : path.substr(slash + 1);
}

// The version a kept `requires maya "…"` names, for the first header line.
std::string mayaVersion(const std::vector<KeptStatement>& kept) {
    const std::string prefix = "requires maya \"";
    for (const KeptStatement& k : kept)
        if (k.place == KeptPlace::Prologue && k.text.compare(0, prefix.size(), prefix) == 0) {
            const std::size_t end = k.text.find('"', prefix.size());
            if (end != std::string::npos) return k.text.substr(prefix.size(), end - prefix.size());
        }
    return "2023";
}

std::size_t connectionHash(const Connection& c) {
    return c.source.hash() * 31 + c.destination.hash();
}

class SceneTextWriter {
public:
    // With a sink, the text goes to it node by node as it grows, so a large scene never sits whole in
    // memory and one buffer serves every node; without one, run() returns it all.
    SceneTextWriter(const std::string& fileName, std::vector<std::string>& problems,
                    common::AtomicFile* sink = nullptr)
        : scene_(scene()), store_(sceneFileStore()), fileName_(fileName), problems_(problems), sink_(sink) {
        indexKept();
    }

    std::string run() {
        out_.reserve(1 << 16);
        header();
        nodes();
        connections();
        out_ += "// End of " + fileName_ + "\n";
        spill(0);
        return std::move(out_);
    }

private:
    static constexpr std::size_t kSpillSize = std::size_t(4) << 20;

    void spill(std::size_t atLeast = kSpillSize) {
        if (!sink_ || out_.size() < atLeast) return;
        sink_->write(out_);
        out_.clear();
    }

    void indexKept() {
        for (std::size_t i = 0; i < store_.kept.size(); ++i) {
            const KeptStatement& k = store_.kept[i];
            if (k.place == KeptPlace::InNode || k.place == KeptPlace::AfterNode) {
                const NodePtr node = k.node.lock();
                const bool live = node && node->alive();
                // Statements inside the block of a deleted node go with it; those after it stay.
                if (live)
                    (k.place == KeptPlace::InNode ? inNode_ : afterNode_)[node.get()].push_back(i);
                else if (k.place == KeptPlace::AfterNode)
                    orphanNodes_.push_back(i);
            } else if (k.place == KeptPlace::AfterConnection) {
                afterConnection_[connectionHash(k.connection)].push_back(i);
            }
        }
    }

    void kept(std::size_t i) {
        const KeptStatement& k = store_.kept[i];
        if (k.indented) out_ += '\t';
        out_ += k.text;
        out_ += ";\n";
    }

    void keptAt(KeptPlace place) {
        for (std::size_t i = 0; i < store_.kept.size(); ++i)
            if (store_.kept[i].place == place) kept(i);
    }

    void keptFor(const std::unordered_map<const Node*, std::vector<std::size_t>>& index, const Node& node) {
        auto it = index.find(&node);
        if (it != index.end())
            for (std::size_t i : it->second) kept(i);
    }

    void header() {
        out_ += "//Maya ASCII " + mayaVersion(store_.kept) + " scene\n";
        out_ += "//Name: " + fileName_ + "\n";
        out_ += "//Codeset: UTF-8\n";
        bool any = false;
        for (const KeptStatement& k : store_.kept) any = any || k.place == KeptPlace::Prologue;
        if (any)
            keptAt(KeptPlace::Prologue);
        else
            out_ += "requires maya \"2023\";\n"
                    "currentUnit -l centimeter -a degree -t film;\n"
                    "fileInfo \"application\" \"talven\";\n";
    }

    // Creation order, except that a DAG node comes after its parent.
    std::vector<NodePtr> regularNodes() const {
        std::vector<NodePtr> order;
        std::unordered_set<const Node*> placed;
        std::vector<const Node*> chain;
        for (const NodePtr& node : scene_.nodes()) {
            if (isDefaultNode(*node) || placed.count(node.get())) continue;
            chain.clear();
            for (const Node* n = node.get(); n && !isDefaultNode(*n) && !placed.count(n); n = n->parent())
                chain.push_back(n);
            for (auto it = chain.rbegin(); it != chain.rend(); ++it) {
                placed.insert(*it);
                order.push_back(scene_.sharedNode(*it));
            }
        }
        return order;
    }

    void nodeBody(const NodePtr& node) {
        const NodeFileInfo* info = store_.find(*node);
        appendAddAttrs(*node, info, out_);
        appendNodeValues(node, info, out_, problems_);
        keptFor(inNode_, *node);
    }

    void nodes() {
        keptAt(KeptPlace::NodesStart);
        for (const NodePtr& node : regularNodes()) {
            const NodeFileInfo* info = store_.find(*node);
            out_ += "createNode " + node->type().name;
            if (info && !info->createFlags.empty()) out_ += " " + info->createFlags;
            out_ += " -n " + quoted(node->name());
            if (node->parent()) out_ += " -p " + quoted(nodeReference(scene_, *node->parent()));
            out_ += ";\n";
            if (info && !info->uuid.empty()) out_ += "\trename -uid " + quoted(info->uuid) + ";\n";
            nodeBody(node);
            keptFor(afterNode_, *node);
            spill();
        }
        for (std::size_t i : orphanNodes_) kept(i);
        for (const NodePtr& node : scene_.nodes()) {
            if (!isDefaultNode(*node)) continue;
            // A default node is named only when there is something to say about it.
            const std::size_t start = out_.size();
            out_ += "select -ne :" + node->name() + ";\n";
            const std::size_t bodyStart = out_.size();
            nodeBody(node);
            if (out_.size() == bodyStart) out_.resize(start);
            keptFor(afterNode_, *node);
            spill();
        }
    }

    std::string plugReference(const Plug& plug) const {
        return quoted(nodeReference(scene_, *plug.node()) + "." + filePlugPath(plug));
    }

    void connections() {
        std::unordered_set<std::size_t> written;
        for (const Connection& c : scene_.connections()) {
            out_ += "connectAttr " + plugReference(c.source) + " " + plugReference(c.destination) + ";\n";
            auto it = afterConnection_.find(connectionHash(c));
            if (it == afterConnection_.end()) continue;
            for (std::size_t i : it->second) {
                const KeptStatement& k = store_.kept[i];
                if (k.connection.source == c.source && k.connection.destination == c.destination &&
                    written.insert(i).second)
                    kept(i);
            }
            spill();
        }
        // Statements whose connection has gone close the list.
        for (std::size_t i = 0; i < store_.kept.size(); ++i)
            if (store_.kept[i].place == KeptPlace::AfterConnection && !written.count(i)) kept(i);
    }

    const Scene& scene_;
    const SceneFileStore& store_;
    std::string fileName_;
    std::vector<std::string>& problems_;
    common::AtomicFile* sink_;
    std::string out_;
    std::unordered_map<const Node*, std::vector<std::size_t>> inNode_, afterNode_;
    std::vector<std::size_t> orphanNodes_;
    std::unordered_map<std::size_t, std::vector<std::size_t>> afterConnection_;
};

} // namespace

std::string sceneText(const std::string& fileName, std::vector<std::string>& problems) {
    return SceneTextWriter(fileName, problems).run();
}

bool saveScene(const std::string& path, std::string& error, std::vector<std::string>& problems) {
    common::AtomicFile file;
    if (!file.open(path, error)) {
        sceneText(baseName(path), problems); // what could not be written is reported all the same
        return false;
    }
    SceneTextWriter(baseName(path), problems, &file).run();
    return file.commit(error);
}

} // namespace host
