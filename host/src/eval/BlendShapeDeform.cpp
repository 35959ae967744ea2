// Blend shape evaluation. The stored deltas of every target item are flattened once into index and
// delta arrays and kept until the node changes; even then an item whose data objects are the same
// keeps its arrays, so evaluating after a weight change is a tight loop over stored deltas.
//
// A target's shape at weight W: its items sit at (item − 5000) / 1000 and an implicit zero shape
// at 0. Between neighbouring keys the shape is interpolated linearly; outside the keys it is
// extrapolated from the nearest segment, as Maya does (one full item at 1.0 gives W × delta for any
// W, negative weights included). An item at weight 0 (5000) is ignored: the zero shape sits there.
#include "engine/Scene.h"
#include "eval/DeformerData.h"
#include "eval/Deformers.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <unordered_map>

namespace host {

namespace {

// One target item's deltas for a given vertex count: vertices in range with a non-zero delta.
struct ItemShape {
    std::vector<uint32_t> indices;
    std::vector<float> deltas; // x, y, z per index
};

using ShapePtr = std::shared_ptr<const ItemShape>;

struct PreparedItem {
    uint32_t item = 6000;
    double weight = 1.0;
    DataPtr points, components; // what `shape` was made from
    ShapePtr shape;
};

struct PreparedTarget {
    uint32_t index = 0;
    std::vector<PreparedItem> items; // ascending weight
};

struct PreparedGeometry {
    uint64_t version = ~uint64_t{0}; // the node's version it was made for
    std::size_t vertexCount = 0;
    std::vector<PreparedTarget> targets;
};

struct NodeCache {
    std::weak_ptr<Node> owner;
    std::map<unsigned, PreparedGeometry> geometries;
};

// Keyed by address; the weak owner tells a live node from a later one at the same address.
std::unordered_map<const Node*, NodeCache>& nodeCaches() {
    static std::unordered_map<const Node*, NodeCache> caches;
    return caches;
}

NodeCache& cacheFor(const NodePtr& node) {
    auto& caches = nodeCaches();
    auto found = caches.find(node.get());
    if (found != caches.end() && found->second.owner.lock() == node) return found->second;
    for (auto it = caches.begin(); it != caches.end();)
        it = it->second.owner.expired() || it->first == node.get() ? caches.erase(it) : std::next(it);
    NodeCache& fresh = caches[node.get()];
    fresh.owner = node;
    return fresh;
}

ShapePtr flatten(const DataPtr& pointData, const DataPtr& componentData, std::size_t n) {
    auto shape = std::make_shared<ItemShape>();
    const auto* points = dataAs<PointArrayData>(pointData);
    const auto* components = dataAs<ComponentListData>(componentData);
    if (!points || !components) return shape;
    const std::vector<Point4>& deltas = points->points;
    std::size_t listed = 0;
    for (const auto& component : components->components)
        if (component) listed += component->complete ? n : component->elements.size();
    const std::size_t count = std::min(listed, deltas.size());
    shape->indices.resize(count);
    shape->deltas.resize(3 * count);
    uint32_t* index = shape->indices.data();
    float* delta = shape->deltas.data();
    std::size_t next = 0; // position in the point list, parallel to the flattened component list
    std::size_t kept = 0;
    auto take = [&](long long vertex) {
        const Point4& d = deltas[next++];
        if (vertex < 0 || static_cast<std::size_t>(vertex) >= n || (d.x == 0 && d.y == 0 && d.z == 0)) return;
        index[kept] = static_cast<uint32_t>(vertex);
        delta[3 * kept] = static_cast<float>(d.x);
        delta[3 * kept + 1] = static_cast<float>(d.y);
        delta[3 * kept + 2] = static_cast<float>(d.z);
        ++kept;
    };
    for (const auto& component : components->components) {
        if (!component) continue;
        const std::size_t size = std::min(component->complete ? n : component->elements.size(), count - next);
        // Other component types keep their places in the point list but move nothing.
        if (component->type != ComponentType::Vertex)
            next += size;
        else if (component->complete)
            for (std::size_t v = 0; v < size; ++v) take(static_cast<long long>(v));
        else
            for (std::size_t k = 0; k < size; ++k) take(component->elements[k]);
    }
    shape->indices.resize(kept);
    shape->deltas.resize(3 * kept);
    return shape;
}

DataPtr dataAt(const Plug& plug) {
    Value value = plug.value();
    auto data = std::get_if<DataPtr>(&value);
    return data ? *data : nullptr;
}

uint64_t itemKey(uint32_t target, uint32_t item) {
    return uint64_t{target} << 32 | item;
}

void rebuild(const NodePtr& node, unsigned geometry, std::size_t n, PreparedGeometry& prepared) {
    // Shapes that can be kept: same data objects, same vertex count.
    std::unordered_map<uint64_t, const PreparedItem*> previous;
    if (prepared.vertexCount == n)
        for (const PreparedTarget& target : prepared.targets)
            for (const PreparedItem& item : target.items) previous[itemKey(target.index, item.item)] = &item;

    std::vector<PreparedTarget> targets;
    Plug groups =
        resolveAttrPath(node, "inputTarget[" + std::to_string(geometry) + "].inputTargetGroup", nullptr);
    for (uint32_t t : groups.existingIndices()) {
        PreparedTarget target;
        target.index = t;
        Plug items = childPlug(groups.element(t), "inputTargetItem");
        for (uint32_t i : items.existingIndices()) {
            if (i == 5000) continue;
            PreparedItem item;
            item.item = i;
            item.weight = (static_cast<double>(i) - 5000.0) / 1000.0;
            item.points = dataAt(childPlug(items.element(i), "inputPointsTarget"));
            item.components = dataAt(childPlug(items.element(i), "inputComponentsTarget"));
            auto kept = previous.find(itemKey(t, i));
            if (kept != previous.end() && kept->second->points == item.points &&
                kept->second->components == item.components)
                item.shape = kept->second->shape;
            else
                item.shape = flatten(item.points, item.components, n);
            target.items.push_back(std::move(item));
        }
        // Item numbers grow with their weights, so the items are already in weight order.
        if (!target.items.empty()) targets.push_back(std::move(target));
    }
    prepared.targets = std::move(targets);
    prepared.vertexCount = n;
    prepared.version = node->version();
}

const PreparedGeometry& preparedGeometry(const NodePtr& node, unsigned geometry, std::size_t n) {
    PreparedGeometry& prepared = cacheFor(node).geometries[geometry];
    if (prepared.version != node->version() || prepared.vertexCount != n)
        rebuild(node, geometry, n, prepared);
    return prepared;
}

// A mesh connected as an item's geometry: its difference to the deformer's input, all vertices.
ShapePtr geometryShape(const Plug& itemPlug, const MeshData& base) {
    MeshPtr target = geometryInto(childPlug(itemPlug, "inputGeomTarget"));
    if (!target) return nullptr;
    auto shape = std::make_shared<ItemShape>();
    const std::size_t n = std::min(target->points.size(), base.points.size());
    shape->indices.resize(n);
    shape->deltas.resize(3 * n);
    for (std::size_t v = 0; v < n; ++v) {
        shape->indices[v] = static_cast<uint32_t>(v);
        for (std::size_t c = 0; c < 3; ++c)
            shape->deltas[3 * v + c] = target->points[v][c] - base.points[v][c];
    }
    return shape;
}

void addShape(std::vector<std::array<float, 3>>& points, const ItemShape& shape, float scale,
              const float* weights) {
    const uint32_t* indices = shape.indices.data();
    const float* d = shape.deltas.data();
    std::array<float, 3>* p = points.data();
    const std::size_t count = shape.indices.size();
    if (!weights) {
        for (std::size_t j = 0; j < count; ++j, d += 3) {
            std::array<float, 3>& q = p[indices[j]];
            q[0] += scale * d[0];
            q[1] += scale * d[1];
            q[2] += scale * d[2];
        }
        return;
    }
    for (std::size_t j = 0; j < count; ++j, d += 3) {
        const uint32_t v = indices[j];
        const float f = scale * weights[v];
        std::array<float, 3>& q = p[v];
        q[0] += f * d[0];
        q[1] += f * d[1];
        q[2] += f * d[2];
    }
}

// The keys around weight w (the zero shape is a null item) and w's position between them.
struct Segment {
    const PreparedItem* a = nullptr;
    const PreparedItem* b = nullptr;
    double fraction = 0.0; // 0 at a, 1 at b
};

Segment segmentAt(const std::vector<PreparedItem>& items, double w) {
    std::vector<std::pair<double, const PreparedItem*>> keys;
    keys.reserve(items.size() + 1);
    keys.emplace_back(0.0, nullptr);
    for (const PreparedItem& item : items) keys.emplace_back(item.weight, &item);
    std::sort(keys.begin(), keys.end(), [](const auto& x, const auto& y) { return x.first < y.first; });
    std::size_t k = 0;
    while (k < keys.size() && keys[k].first < w) ++k;
    const std::size_t b = std::clamp<std::size_t>(k, 1, keys.size() - 1);
    const auto& lo = keys[b - 1];
    const auto& hi = keys[b];
    return {lo.second, hi.second, (w - lo.first) / (hi.first - lo.first)};
}

} // namespace

MeshPtr deformBlendShape(const NodePtr& node, unsigned index, const MeshPtr& input) {
    const double envelope = plugNumber(node, "envelope", 1.0);
    const std::size_t n = input->points.size();
    if (envelope == 0.0 || !std::isfinite(envelope) || n == 0) return input;
    const PreparedGeometry& prepared = preparedGeometry(node, index, n);
    Plug inputTarget = resolveAttrPath(node, "inputTarget[" + std::to_string(index) + "]", nullptr);
    Plug groups = childPlug(inputTarget, "inputTargetGroup");
    std::vector<float> baseWeights;
    bool baseWeightsRead = false;
    std::shared_ptr<MeshData> out;
    for (const PreparedTarget& target : prepared.targets) {
        const double w = plugNumber(node, "weight[" + std::to_string(target.index) + "]", 0.0);
        if (w == 0.0 || !std::isfinite(w)) continue;
        const Segment segment = segmentAt(target.items, w);
        if (!baseWeightsRead) {
            baseWeights = denseWeights(childPlug(inputTarget, "baseWeights"), n);
            baseWeightsRead = true;
        }
        Plug group = groups.element(target.index);
        std::vector<float> weights = denseWeights(childPlug(group, "targetWeights"), n);
        if (!weights.empty() && !baseWeights.empty())
            for (std::size_t v = 0; v < n; ++v) weights[v] *= baseWeights[v];
        const std::vector<float>& map = weights.empty() ? baseWeights : weights;
        const std::pair<const PreparedItem*, double> parts[] = {{segment.a, 1.0 - segment.fraction},
                                                                {segment.b, segment.fraction}};
        for (const auto& [item, coefficient] : parts) {
            if (!item || coefficient == 0.0) continue;
            if (!out) out = std::make_shared<MeshData>(*input);
            Plug itemPlug = childPlug(group, "inputTargetItem").element(item->item);
            ShapePtr connected = geometryShape(itemPlug, *input);
            const ItemShape& shape = connected ? *connected : *item->shape;
            addShape(out->points, shape, static_cast<float>(envelope * coefficient),
                     map.empty() ? nullptr : map.data());
        }
    }
    return out ? MeshPtr(out) : input;
}

} // namespace host
