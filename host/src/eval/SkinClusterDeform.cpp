// Skin cluster evaluation: linear blend skinning. For vertex v with input point p (row vector),
//   skinned = p · geomMatrix · Σ_j weightList[v].weights[j] · bindPreMatrix[j] · matrix[j] · geomMatrix⁻¹
// geomMatrix, the shape's world matrix when it was bound, takes the points to world space where the
// influences move them; its inverse brings the result back to the shape's own space, so a mesh
// whose transform was not at the origin at bind time stays in place in the bind pose. Unset weights
// are 0 (a vertex without any weight goes to the origin, as in Maya); unset matrices are the
// identity. The envelope blends between the input and the skinned points. Every geometry index
// uses the same weightList, as a skin cluster deforms one geometry.
#include "api/Transforms.h"
#include "engine/Scene.h"
#include "eval/DeformerData.h"
#include "eval/Deformers.h"

#include <maya/MMatrix.h>

#include <cmath>
#include <unordered_map>

namespace host {

namespace {

constexpr int kMaxHops = 256; // a longer chain of matrix connections is a cycle

MMatrix storedMatrix(const Plug& plug) {
    const Value value = plug.value();
    const auto* data = std::get_if<DataPtr>(&value);
    const MatrixData* matrix = data ? dataAs<MatrixData>(*data) : nullptr;
    MMatrix m;
    if (matrix)
        for (int r = 0; r < 4; ++r)
            for (int c = 0; c < 4; ++c) m.matrix[r][c] = matrix->m[static_cast<std::size_t>(r * 4 + c)];
    return m;
}

// The matrix a plug shows: a DAG node's matrix output computed from its transform chain when the
// plug is connected to one, else the stored value at the upstream end of its connections.
MMatrix matrixAt(const Plug& plug) {
    Plug current = plug;
    for (int hop = 0; hop < kMaxHops; ++hop) {
        const Plug source = scene().sourceOf(current);
        if (source.isNull()) break;
        const Node& node = *source.node();
        const std::string& attr = source.attr()->longName;
        if (node.isDag()) {
            if (attr == "worldMatrix") return worldMatrix(node);
            if (attr == "worldInverseMatrix") return worldMatrix(node).inverse();
            if (attr == "matrix") return localMatrix(node);
            if (attr == "inverseMatrix") return localMatrix(node).inverse();
        }
        current = source;
    }
    return storedMatrix(current);
}

// The affine part of gm · pm[j] · ma[j] · gm⁻¹ per influence, computed once per evaluation.
class InfluenceMatrices {
public:
    explicit InfluenceMatrices(const NodePtr& skin)
        : bindPre_(resolveAttrPath(skin, "bindPreMatrix", nullptr)),
          influence_(resolveAttrPath(skin, "matrix", nullptr)),
          geometry_(matrixAt(resolveAttrPath(skin, "geomMatrix", nullptr))),
          geometryInverse_(geometry_.inverse()) {}

    const MMatrix& at(uint32_t logical) {
        auto found = cache_.find(logical);
        if (found != cache_.end()) return found->second;
        const MMatrix bindPre = bindPre_.isNull() ? MMatrix() : matrixAt(bindPre_.element(logical));
        const MMatrix influence = influence_.isNull() ? MMatrix() : matrixAt(influence_.element(logical));
        return cache_.emplace(logical, geometry_ * bindPre * influence * geometryInverse_).first->second;
    }

private:
    Plug bindPre_, influence_;
    MMatrix geometry_, geometryInverse_;
    std::unordered_map<uint32_t, MMatrix> cache_;
};

} // namespace

MeshPtr deformSkinCluster(const NodePtr& node, unsigned, const MeshPtr& input) {
    const double envelope = plugNumber(node, "envelope", 1.0);
    if (envelope == 0.0 || !std::isfinite(envelope)) return input;
    const Plug weightList = resolveAttrPath(node, "weightList", nullptr);
    const Slot* list = weightList.isNull() ? nullptr : weightList.slot();
    InfluenceMatrices matrices(node);

    auto out = std::make_shared<MeshData>(*input);
    // Vertices without a weightList element have no weight at all: their skinned point is the origin.
    for (auto& p : out->points)
        for (float& c : p) c = static_cast<float>((1.0 - envelope) * c);
    if (!list || !list->elements) return out;
    const std::size_t weightsChild = static_cast<std::size_t>(weightList.attr()->children.front()->index);
    const auto& vertices = list->elements->keys();
    for (std::size_t k = 0; k < vertices.size() && vertices[k] < out->points.size(); ++k) {
        const Slot& element = list->elements->valueAt(k);
        if (!element.children || element.children->size() <= weightsChild) continue;
        const Slot& weights = (*element.children)[weightsChild];
        if (!weights.elements) continue;
        // The weighted sum of the influence matrices, applied to the point once.
        double blend[4][3] = {};
        const auto& influences = weights.elements->keys();
        for (std::size_t i = 0; i < influences.size(); ++i) {
            const Value& value = weights.elements->valueAt(i).value;
            const double w = valueIsNumeric(value) ? valueAsDouble(value) : 0.0;
            if (w == 0.0) continue;
            const MMatrix& m = matrices.at(influences[i]);
            for (int r = 0; r < 4; ++r)
                for (int c = 0; c < 3; ++c) blend[r][c] += w * m.matrix[r][c];
        }
        const std::array<float, 3>& in = input->points[vertices[k]];
        std::array<float, 3>& p = out->points[vertices[k]];
        for (int c = 0; c < 3; ++c) {
            const double skinned =
                in[0] * blend[0][c] + in[1] * blend[1][c] + in[2] * blend[2][c] + blend[3][c];
            p[static_cast<std::size_t>(c)] = static_cast<float>(
                in[static_cast<std::size_t>(c)] + envelope * (skinned - in[static_cast<std::size_t>(c)]));
        }
    }
    return out;
}

} // namespace host
