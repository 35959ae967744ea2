// Skin cluster function set. The influences are the DAG nodes connected to matrix[j], in logical
// index order; the influence indices that the weight calls take and return are positions in that
// list (as influenceObjects gives it), while weightList[v].weights[j] is stored by logical index.
//
// setWeights with normalisation: per vertex, the influences whose value the call changes keep their
// new values and the others (also influences passed with their current value) are rescaled so the
// vertex sums to 1. When the others cannot take up the rest (they sum to 0, or the changed values
// exceed 1), the others become 0 and the changed values are scaled to sum to 1; when every value
// of the vertex is 0 there is nothing to normalise and the values are written as given.
#include <maya/MDagPath.h>
#include <maya/MDagPathArray.h>
#include <maya/MDoubleArray.h>
#include <maya/MFloatArray.h>
#include <maya/MFnSkinCluster.h>
#include <maya/MIntArray.h>

#include "api/DeformerAccess.h"
#include "api/ObjectRef.h"
#include "api/StatusOut.h"
#include "deform/DeformerChain.h"
#include "engine/Scene.h"
#include "eval/Evaluator.h"

#include <algorithm>
#include <numeric>

namespace {

struct Influence {
    uint32_t logical;
    host::NodePtr node;
};

// The DAG nodes connected to matrix[j], ascending by j.
std::vector<Influence> influencesOf(const host::NodePtr& skin) {
    std::vector<Influence> list;
    if (!skin) return list;
    const host::AttrSpec* matrix = skin->findAttr("matrix");
    for (const host::Connection& c : host::scene().connectionsOf(*skin))
        if (c.destination.node() == skin && c.destination.attr() == matrix && c.destination.isElement() &&
            c.source.node()->isDag())
            list.push_back({c.destination.logicalIndex(), c.source.node()});
    std::sort(list.begin(), list.end(),
              [](const Influence& a, const Influence& b) { return a.logical < b.logical; });
    return list;
}

// The weights of one skin cluster for the vertices of a call's component, checked up front so that
// a bad argument changes nothing.
class WeightTable {
public:
    MStatus open(const MObject& skinObject, const MDagPath& path, const MObject& components) {
        skin_ = host::nodeOf(skinObject);
        if (!skin_ || !skin_->type().hasFn(MFn::kSkinClusterFilter)) return MS::kFailure;
        const host::NodePtr shape = host::meshShapeOf(path.node());
        const auto index = shape ? host::indexForShape(skin_, shape) : std::nullopt;
        if (!index) return MS::kInvalidParameter;
        const host::MeshPtr input = host::geometryInto(
            host::resolveAttrPath(skin_, "input[" + std::to_string(*index) + "].inputGeometry", nullptr));
        const int count = input ? input->numVertices() : 0;
        // No component, or a complete one, means every vertex.
        bool all = components.isNull();
        if (!all) {
            const auto* component = host::dataOf<host::ComponentData>(components);
            if (!component || component->type != host::ComponentType::Vertex) return MS::kInvalidParameter;
            all = component->complete;
            if (!all) vertices_ = component->elements;
        }
        if (all) {
            vertices_.resize(static_cast<std::size_t>(count));
            std::iota(vertices_.begin(), vertices_.end(), 0);
        }
        for (int v : vertices_)
            if (v < 0 || v >= count) return MS::kInvalidParameter;
        for (const Influence& influence : influencesOf(skin_)) logical_.push_back(influence.logical);
        weightList_ = host::resolveAttrPath(skin_, "weightList", nullptr);
        weights_ = weightList_.attr()->children.front().get();
        return MS::kSuccess;
    }

    const std::vector<int>& vertices() const { return vertices_; }
    unsigned influenceCount() const { return static_cast<unsigned>(logical_.size()); }

    // True when every position is an influence and none repeats.
    bool validPositions(const std::vector<unsigned>& positions) const {
        std::vector<bool> seen(logical_.size(), false);
        for (unsigned p : positions) {
            if (p >= logical_.size() || seen[p]) return false;
            seen[p] = true;
        }
        return true;
    }

    // The weights of vertex `v` for every influence, by position.
    void row(int v, std::vector<double>& out) const {
        out.assign(logical_.size(), 0.0);
        const host::Slot* list = weightList_.slot();
        const host::Slot* element =
            list && list->elements ? list->elements->find(static_cast<uint32_t>(v)) : nullptr;
        const auto child = static_cast<std::size_t>(weights_->index);
        if (!element || !element->children || element->children->size() <= child) return;
        const host::Slot& weights = (*element->children)[child];
        if (!weights.elements) return;
        for (std::size_t p = 0; p < logical_.size(); ++p)
            if (const host::Slot* w = weights.elements->find(logical_[p]))
                out[p] = host::valueIsNumeric(w->value) ? host::valueAsDouble(w->value) : 0.0;
    }

    // Writes the entries of `next` that differ from `current`; zero weights are removed, as Maya
    // keeps the weight lists sparse.
    void write(int v, const std::vector<double>& current, const std::vector<double>& next) const {
        const host::Plug weights = weightList_.element(static_cast<uint32_t>(v)).child(weights_);
        for (std::size_t p = 0; p < logical_.size(); ++p) {
            if (next[p] == current[p]) continue;
            if (next[p] == 0.0)
                weights.removeElement(logical_[p]);
            else
                weights.element(logical_[p]).setValue(next[p]);
        }
    }

private:
    host::NodePtr skin_;
    host::Plug weightList_;
    const host::AttrSpec* weights_ = nullptr;
    std::vector<uint32_t> logical_;
    std::vector<int> vertices_;
};

// Rescales a vertex's weights after the influences marked in `changed` were set (rule at the top).
void normalize(std::vector<double>& row, const std::vector<bool>& changed) {
    double setSum = 0.0, otherSum = 0.0;
    for (std::size_t p = 0; p < row.size(); ++p) (changed[p] ? setSum : otherSum) += row[p];
    if (otherSum > 0.0 && setSum <= 1.0) {
        const double scale = (1.0 - setSum) / otherSum;
        for (std::size_t p = 0; p < row.size(); ++p)
            if (!changed[p]) row[p] *= scale;
    } else if (setSum > 0.0) {
        for (std::size_t p = 0; p < row.size(); ++p) row[p] = changed[p] ? row[p] / setSum : 0.0;
    }
}

std::vector<unsigned> allPositions(unsigned count) {
    std::vector<unsigned> positions(count);
    std::iota(positions.begin(), positions.end(), 0u);
    return positions;
}

std::vector<unsigned> positionsOf(const MIntArray& indices) {
    std::vector<unsigned> positions;
    positions.reserve(indices.length());
    for (int i : indices.vec()) positions.push_back(i < 0 ? ~0u : static_cast<unsigned>(i));
    return positions;
}

// The weights of the given influences at the component's vertices, vertex-major.
template <class T>
MStatus readWeights(const MObject& skin, const MDagPath& path, const MObject& components,
                    const std::vector<unsigned>* positions, std::vector<T>& out, unsigned* influenceCount) {
    WeightTable table;
    MStatus status = table.open(skin, path, components);
    if (!status) return status;
    const std::vector<unsigned> chosen = positions ? *positions : allPositions(table.influenceCount());
    if (!table.validPositions(chosen)) return MS::kInvalidParameter;
    if (influenceCount) *influenceCount = table.influenceCount();
    out.clear();
    out.reserve(table.vertices().size() * chosen.size());
    std::vector<double> row;
    for (int v : table.vertices()) {
        table.row(v, row);
        for (unsigned p : chosen) out.push_back(static_cast<T>(row[p]));
    }
    return MS::kSuccess;
}

// Sets the given influences at the component's vertices: `values` holds one value per influence
// per vertex, vertex-major, or with `sameForAll` one value per influence for every vertex. Values
// equal to the stored ones (compared in T's precision) count as unchanged.
template <class T>
MStatus writeWeights(const MObject& skin, const MDagPath& path, const MObject& components,
                     const std::vector<unsigned>& positions, const std::vector<T>& values, bool sameForAll,
                     bool normalizeWeights, std::vector<T>* oldValues) {
    WeightTable table;
    MStatus status = table.open(skin, path, components);
    if (!status) return status;
    const std::size_t k = positions.size();
    if (!table.validPositions(positions) || values.size() != (sameForAll ? k : table.vertices().size() * k))
        return MS::kInvalidParameter;
    if (oldValues) oldValues->clear();
    std::vector<double> current, next;
    std::vector<bool> changed;
    for (std::size_t i = 0; i < table.vertices().size(); ++i) {
        const int v = table.vertices()[i];
        table.row(v, current);
        next = current;
        changed.assign(current.size(), false);
        for (std::size_t j = 0; j < k; ++j) {
            const unsigned p = positions[j];
            const T value = values[(sameForAll ? 0 : i * k) + j];
            if (oldValues) oldValues->push_back(static_cast<T>(current[p]));
            if (value == static_cast<T>(current[p])) continue;
            next[p] = static_cast<double>(value);
            changed[p] = true;
        }
        if (normalizeWeights) normalize(next, changed);
        table.write(v, current, next);
    }
    return MS::kSuccess;
}

} // namespace

MFnSkinCluster::MFnSkinCluster(MObject& object, MStatus* ReturnStatus) {
    host::initFunctionSet(*this, object, ReturnStatus);
}
MFnSkinCluster::MFnSkinCluster(const MObject& object, MStatus* ReturnStatus) {
    host::initFunctionSet(*this, object, ReturnStatus);
}
bool MFnSkinCluster::accepts(const MObject& object) const {
    host::NodePtr node = host::nodeOf(object);
    return node && node->type().hasFn(MFn::kSkinClusterFilter);
}

unsigned int MFnSkinCluster::influenceObjects(MDagPathArray& paths, MStatus* ReturnStatus) const {
    paths.clear();
    host::NodePtr skin = host::nodeOf(object_);
    host::setStatus(ReturnStatus, skin != nullptr);
    for (const Influence& influence : influencesOf(skin))
        paths.append(MDagPath(host::ObjectRef::ofNode(influence.node)));
    return paths.length();
}

unsigned int MFnSkinCluster::indexForInfluenceObject(const MDagPath& path, MStatus* ReturnStatus) const {
    const host::NodePtr node = host::nodeOf(path.node());
    for (const Influence& influence : influencesOf(host::nodeOf(object_))) {
        if (node && influence.node == node) {
            if (ReturnStatus) *ReturnStatus = MS::kSuccess;
            return influence.logical;
        }
    }
    if (ReturnStatus) *ReturnStatus = MS::kInvalidParameter;
    return 0;
}

MStatus MFnSkinCluster::getWeights(const MDagPath& path, const MObject& components,
                                   unsigned int influenceIndex, MDoubleArray& weights) const {
    const std::vector<unsigned> positions{influenceIndex};
    return readWeights(object_, path, components, &positions, weights.vec(), nullptr);
}
MStatus MFnSkinCluster::getWeights(const MDagPath& path, const MObject& components, MDoubleArray& weights,
                                   unsigned int& influenceCount) const {
    return readWeights(object_, path, components, nullptr, weights.vec(), &influenceCount);
}
MStatus MFnSkinCluster::getWeights(const MDagPath& path, const MObject& components,
                                   MIntArray& influenceIndices, MDoubleArray& weights) const {
    const std::vector<unsigned> positions = positionsOf(influenceIndices);
    return readWeights(object_, path, components, &positions, weights.vec(), nullptr);
}
MStatus MFnSkinCluster::getWeights(const MDagPath& path, const MObject& components,
                                   unsigned int influenceIndex, MFloatArray& weights) const {
    const std::vector<unsigned> positions{influenceIndex};
    return readWeights(object_, path, components, &positions, weights.vec(), nullptr);
}
MStatus MFnSkinCluster::getWeights(const MDagPath& path, const MObject& components, MFloatArray& weights,
                                   unsigned int& influenceCount) const {
    return readWeights(object_, path, components, nullptr, weights.vec(), &influenceCount);
}

MStatus MFnSkinCluster::setWeights(const MDagPath& path, const MObject& components, unsigned int jointIndex,
                                   double value, bool normalize, MDoubleArray* oldValues) {
    return writeWeights(object_, path, components, {jointIndex}, std::vector<double>{value}, true, normalize,
                        oldValues ? &oldValues->vec() : nullptr);
}
MStatus MFnSkinCluster::setWeights(const MDagPath& path, const MObject& components,
                                   MIntArray& influenceIndices, MDoubleArray& values, bool normalize,
                                   MDoubleArray* oldValues) {
    return writeWeights(object_, path, components, positionsOf(influenceIndices), values.vec(), false,
                        normalize, oldValues ? &oldValues->vec() : nullptr);
}
MStatus MFnSkinCluster::setWeights(const MDagPath& path, const MObject& components, unsigned int jointIndex,
                                   float value, bool normalize, MFloatArray* oldValues) {
    return writeWeights(object_, path, components, {jointIndex}, std::vector<float>{value}, true, normalize,
                        oldValues ? &oldValues->vec() : nullptr);
}
MStatus MFnSkinCluster::setWeights(const MDagPath& path, const MObject& components,
                                   MIntArray& influenceIndices, MFloatArray& values, bool normalize,
                                   MFloatArray* oldValues) {
    return writeWeights(object_, path, components, positionsOf(influenceIndices), values.vec(), false,
                        normalize, oldValues ? &oldValues->vec() : nullptr);
}
