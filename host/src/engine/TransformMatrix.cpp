#include "engine/TransformMatrix.h"

#include "engine/Evaluation.h"
#include "engine/Scene.h"

#include <algorithm>
#include <unordered_map>
#include <vector>

namespace host {

namespace {

// The attributes a local matrix reads, looked up once per node type.
struct TransformAttrs {
    enum Triple {
        Scale,
        Shear,
        ScalePivot,
        ScalePivotTranslate,
        RotatePivot,
        RotatePivotTranslate,
        Rotate,
        RotateAxis,
        Translate,
        JointOrient,
        InverseScale,
        kTriples
    };
    const AttrSpec* triples[kTriples][3] = {};
    const AttrSpec* rotateOrder = nullptr;
    const AttrSpec* inheritsTransform = nullptr;
    bool joint = false;
};

const TransformAttrs& attrsOf(const NodeType& type) {
    static std::unordered_map<const NodeType*, TransformAttrs> byType;
    auto found = byType.find(&type);
    if (found != byType.end()) return found->second;
    static const char* const kNames[TransformAttrs::kTriples][3] = {
        {"sx", "sy", "sz"},    {"shxy", "shxz", "shyz"}, {"spx", "spy", "spz"}, {"sptx", "spty", "sptz"},
        {"rpx", "rpy", "rpz"}, {"rptx", "rpty", "rptz"}, {"rx", "ry", "rz"},    {"rax", "ray", "raz"},
        {"tx", "ty", "tz"},    {"jox", "joy", "joz"},    {"isx", "isy", "isz"}};
    TransformAttrs attrs;
    for (int t = 0; t < TransformAttrs::kTriples; ++t)
        for (int axis = 0; axis < 3; ++axis) attrs.triples[t][axis] = type.findAttr(kNames[t][axis]);
    attrs.rotateOrder = type.findAttr("ro");
    attrs.inheritsTransform = type.findAttr("it");
    attrs.joint = type.isA("joint");
    return byType.emplace(&type, attrs).first->second;
}

class LocalReader {
public:
    LocalReader(const Node& node, const TransformAttrs& attrs)
        : node_(const_cast<Node&>(node).shared_from_this()), attrs_(attrs) {}

    double value(const AttrSpec* attr, double fallback) const {
        if (!attr) return fallback;
        return valueAsDouble(evaluatedValue(Plug(node_, attr)));
    }
    void triple(TransformAttrs::Triple which, double fallback, double out[3]) const {
        for (int axis = 0; axis < 3; ++axis) out[axis] = value(attrs_.triples[which][axis], fallback);
    }
    Matrix translation(TransformAttrs::Triple which, double sign = 1.0) const {
        double v[3];
        triple(which, 0.0, v);
        return Matrix::translation(sign * v[0], sign * v[1], sign * v[2]);
    }
    Matrix rotation(TransformAttrs::Triple which, int order) const {
        double v[3];
        triple(which, 0.0, v);
        return Matrix::rotation(v[0], v[1], v[2], order);
    }
    // The nodes whose connections feed the attributes the matrix reads, with their versions. False
    // when a feeding plug is itself fed: the matrix then depends on more than those nodes.
    bool inputSources(std::vector<std::pair<std::weak_ptr<Node>, uint64_t>>& out) const {
        const Scene& s = scene();
        auto feed = [&](const Plug& plug) {
            const Plug source = s.sourceOf(plug);
            if (source.isNull()) return true;
            out.emplace_back(source.node(), source.node()->version());
            return s.sourceOf(source).isNull() &&
                   (source.attr()->parent == nullptr || s.sourceOf(source.parent()).isNull());
        };
        auto fed = [&](const AttrSpec* attr) {
            if (!attr) return true;
            const Plug plug(node_, attr);
            return feed(plug) && (!attr->parent || feed(plug.parent()));
        };
        bool direct = fed(attrs_.rotateOrder) && fed(attrs_.inheritsTransform);
        for (const auto& axes : attrs_.triples)
            for (const AttrSpec* attr : axes) direct = fed(attr) && direct;
        return direct;
    }

private:
    NodePtr node_;
    const TransformAttrs& attrs_;
};

uint64_t localCount = 0;

Matrix computeLocal(const LocalReader& read, const TransformAttrs& attrs) {
    ++localCount;
    double s[3];
    read.triple(TransformAttrs::Scale, 1.0, s);
    const Matrix scale = Matrix::scaling(s[0], s[1], s[2]);
    int order = static_cast<int>(read.value(attrs.rotateOrder, 0.0));
    if (order < 0 || order > 5) order = 0;
    const Matrix rotate = read.rotation(TransformAttrs::Rotate, order);
    const Matrix rotateAxis = read.rotation(TransformAttrs::RotateAxis, 0);
    const Matrix t = read.translation(TransformAttrs::Translate);
    if (attrs.joint) {
        // Joints: scale, rotate axis, rotation, joint orient, inverse parent scale, translation.
        double is[3];
        read.triple(TransformAttrs::InverseScale, 1.0, is);
        for (double& v : is) v = v != 0.0 ? 1.0 / v : 1.0;
        return scale * rotateAxis * rotate * read.rotation(TransformAttrs::JointOrient, 0) *
               Matrix::scaling(is[0], is[1], is[2]) * t;
    }
    double sh[3];
    read.triple(TransformAttrs::Shear, 0.0, sh);
    Matrix shear;
    shear.m[1][0] = sh[0];
    shear.m[2][0] = sh[1];
    shear.m[2][1] = sh[2];
    // Transforms: [-sp] S Sh [sp] [spt] [-rp] Ra R [rp] [rpt] T, for row vectors.
    return read.translation(TransformAttrs::ScalePivot, -1.0) * scale * shear *
           read.translation(TransformAttrs::ScalePivot) *
           read.translation(TransformAttrs::ScalePivotTranslate) *
           read.translation(TransformAttrs::RotatePivot, -1.0) * rotateAxis * rotate *
           read.translation(TransformAttrs::RotatePivot) *
           read.translation(TransformAttrs::RotatePivotTranslate) * t;
}

// Per node: the local matrix with what it was computed from, and the world matrix with the stamp
// of the parent world matrix it was built on. Stamps are unique across nodes, so a parent whose
// world matrix changed (or a different parent) is noticed without comparing matrices.
struct TransformCache {
    std::weak_ptr<Node> owner;
    bool localValid = false;
    uint64_t nodeVersion = 0;
    // Nodes feeding the matrix's inputs through connections, with their versions then; when
    // those feeds are themselves fed, the matrix is keyed on the whole scene's version instead.
    std::vector<std::pair<std::weak_ptr<Node>, uint64_t>> sources;
    bool sceneKeyed = false;
    uint64_t sceneVersion = 0;
    Matrix local;
    bool inherits = true;
    bool worldValid = false;
    uint64_t parentId = 0, parentStamp = 0;
    uint64_t stamp = 0;
    Matrix world;
    // The hierarchy change count when the world matrix was last found valid along the whole chain,
    // or 0 when an ancestor depends on something off the chain.
    uint64_t chainChecked = 0;
};

uint64_t lastStamp = 0;

// Caches by node id. Ids start again in a new scene, so an entry is checked against its node.
// Entries of nodes that no longer exist are swept when the map has doubled.
std::unordered_map<uint64_t, TransformCache> caches;
std::size_t sweepAt = 4096;

TransformCache& cacheOf(const Node& node) {
    auto found = caches.find(node.id());
    if (found != caches.end()) {
        if (found->second.owner.lock().get() == &node) return found->second;
        found->second = TransformCache();
        found->second.owner = const_cast<Node&>(node).shared_from_this();
        return found->second;
    }
    if (caches.size() >= sweepAt) {
        for (auto it = caches.begin(); it != caches.end();)
            it = it->second.owner.expired() ? caches.erase(it) : std::next(it);
        sweepAt = std::max<std::size_t>(4096, 2 * caches.size());
    }
    TransformCache& cache = caches[node.id()];
    cache.owner = const_cast<Node&>(node).shared_from_this();
    return cache;
}

bool sourcesChanged(const TransformCache& cache) {
    for (const auto& [source, version] : cache.sources) {
        const NodePtr node = source.lock();
        if (!node || node->version() != version) return true;
    }
    return false;
}

// The node's cache with an up-to-date local matrix; `changed` tells whether it was recomputed.
TransformCache& localEntry(const Node& node, bool& changed) {
    TransformCache& cache = cacheOf(node);
    changed = !cache.localValid || cache.nodeVersion != node.version() ||
              (cache.sceneKeyed && cache.sceneVersion != sceneChangeCount()) || sourcesChanged(cache);
    if (!changed) return cache;
    // The world matrix was made from the old local one.
    cache.worldValid = false;
    cache.localValid = true;
    cache.nodeVersion = node.version();
    cache.sceneVersion = sceneChangeCount();
    cache.sources.clear();
    if (!node.type().transform) {
        cache.sceneKeyed = false;
        cache.inherits = true;
        cache.local = Matrix();
        return cache;
    }
    const TransformAttrs& attrs = attrsOf(node.type());
    const LocalReader read(node, attrs);
    cache.sceneKeyed = !read.inputSources(cache.sources);
    cache.inherits = read.value(attrs.inheritsTransform, 1.0) != 0.0;
    cache.local = computeLocal(read, attrs);
    return cache;
}

// Whether the node's local matrix depends on nothing but itself and its ancestors. Sources are
// usually the parent alone (a joint's inverse scale).
bool dependsOnlyOnAncestors(const Node& node, const TransformCache& cache) {
    if (cache.sceneKeyed) return false;
    for (const auto& source : cache.sources) {
        const NodePtr feeding = source.first.lock();
        const Node* p = node.parent();
        while (p && p != feeding.get()) p = p->parent();
        if (!p) return false;
    }
    return true;
}

bool sameMatrix(const Matrix& a, const Matrix& b) {
    for (int r = 0; r < 4; ++r)
        for (int c = 0; c < 4; ++c)
            if (a.m[r][c] != b.m[r][c]) return false;
    return true;
}

// The node's world matrix taken without looking at its ancestors: valid when nothing that can move
// them has changed since the chain above was last checked, and the node's own local matrix and
// parent are as they were. A touch that left the local matrix as it was (a new outgoing connection)
// keeps it.
TransformCache* unchangedWorld(const Node& node) {
    TransformCache& cache = cacheOf(node);
    if (!cache.worldValid || cache.chainChecked != hierarchyChangeCount()) return nullptr;
    const Matrix local = cache.local;
    const bool inherits = cache.inherits;
    bool changed = false;
    localEntry(node, changed);
    if (changed && sameMatrix(local, cache.local) && inherits == cache.inherits) cache.worldValid = true;
    const uint64_t aboveId = cache.inherits && node.parent() ? node.parent()->id() : 0;
    return cache.worldValid && cache.parentId == aboveId ? &cache : nullptr;
}

// The node's cache with up-to-date local and world matrices: the ancestors are walked up to the
// first whose world matrix stands (or the top), then computed from there down, without recursion.
TransformCache& worldEntry(const Node& node) {
    if (TransformCache* cache = unchangedWorld(node)) return *cache;
    std::vector<const Node*> chain{&node};
    TransformCache* standing = nullptr;
    const Node* top = node.parent();
    for (; top && !(standing = unchangedWorld(*top)); top = top->parent()) {
        chain.push_back(top);
        if (chain.size() > (1u << 20)) break; // a cycle cannot come from the engine's mutators
    }
    const TransformCache* parent = standing;
    TransformCache* self = nullptr;
    uint64_t parentId = standing ? top->id() : 0;
    bool ancestorsContained = !standing || dependsOnlyOnAncestors(*top, *standing);
    for (std::size_t i = chain.size(); i-- > 0;) {
        bool changed = false;
        TransformCache& cache = localEntry(*chain[i], changed);
        const TransformCache* above = cache.inherits ? parent : nullptr;
        const uint64_t aboveId = above ? parentId : 0, aboveStamp = above ? above->stamp : 0;
        if (changed || !cache.worldValid || cache.parentId != aboveId || cache.parentStamp != aboveStamp) {
            cache.world = above ? cache.local * above->world : cache.local;
            cache.worldValid = true;
            cache.parentId = aboveId;
            cache.parentStamp = aboveStamp;
            cache.stamp = ++lastStamp;
        }
        cache.chainChecked = ancestorsContained ? hierarchyChangeCount() : 0;
        ancestorsContained = ancestorsContained && dependsOnlyOnAncestors(*chain[i], cache);
        parent = self = &cache;
        parentId = chain[i]->id();
    }
    return *self;
}

} // namespace

Matrix localMatrixOf(const Node& node) {
    bool changed = false;
    return localEntry(node, changed).local;
}

Matrix worldMatrixOf(const Node& node) {
    return worldEntry(node).world;
}

bool computedMatrix(const Plug& plug, Matrix& out) {
    const AttrSpec* attr = plug.attr();
    if (!attr || attr->type != AttrType::Matrix || attr->dynamic || attr->madeUp || !plug.node()->isDag())
        return false;
    if (plug.isElement() && plug.logicalIndex() != 0) return false; // one instance per node here
    const std::string& name = attr->longName;
    const Node& node = *plug.node();
    if (name == "matrix" || name == "inverseMatrix") {
        const Matrix local = localMatrixOf(node);
        out = name == "matrix" ? local : local.inverse();
        return true;
    }
    const bool world = name == "worldMatrix" || name == "worldInverseMatrix";
    const bool parentOf = name == "parentMatrix" || name == "parentInverseMatrix";
    if (!world && !parentOf) return false;
    Matrix m;
    if (world)
        m = worldMatrixOf(node);
    else if (node.parent() && worldEntry(node).inherits)
        m = worldMatrixOf(*node.parent());
    out = name.find("Inverse") != std::string::npos ? m.inverse() : m;
    return true;
}

Matrix matrixFromData(const Value& value) {
    Matrix m;
    const auto* data = std::get_if<DataPtr>(&value);
    if (!data || !*data || (*data)->kind != DataKind::Matrix) return m;
    const auto& values = static_cast<const MatrixData&>(**data).m;
    for (int r = 0; r < 4; ++r)
        for (int c = 0; c < 4; ++c) m.m[r][c] = values[static_cast<std::size_t>(r * 4 + c)];
    return m;
}

DataPtr matrixData(const Matrix& m) {
    auto data = std::make_shared<MatrixData>();
    for (int r = 0; r < 4; ++r)
        for (int c = 0; c < 4; ++c) data->m[static_cast<std::size_t>(r * 4 + c)] = m.m[r][c];
    return data;
}

uint64_t localMatrixComputations() {
    return localCount;
}

} // namespace host
