// Skin cluster evaluation: linear blend skinning. For vertex v with input point p (row vector),
//   skinned = p · geomMatrix · Σ_j weightList[v].weights[j] · bindPreMatrix[j] · matrix[j] · geomMatrix⁻¹
// geomMatrix, the shape's world matrix when it was bound, takes the points to world space where the
// influences move them; its inverse brings the result back to the shape's own space, so a mesh
// whose transform was not at the origin at bind time stays in place in the bind pose. Unset weights
// are 0 (a vertex without any weight goes to the origin, as in Maya); unset matrices are the
// identity. The envelope blends between the input and the skinned points. Every geometry index
// uses the same weightList, as a skin cluster deforms one geometry.
#include "engine/Evaluation.h"
#include "engine/Scene.h"
#include "engine/TransformMatrix.h"
#include "eval/DeformerData.h"
#include "eval/Deformers.h"

#include <cmath>
#include <unordered_map>

namespace host {

namespace {

// The affine part of gm · pm[j] · ma[j] · gm⁻¹ per influence, computed once per evaluation.
class InfluenceMatrices {
public:
    explicit InfluenceMatrices(const NodePtr& skin)
        : bindPre_(resolveAttrPath(skin, "bindPreMatrix", nullptr)),
          influence_(resolveAttrPath(skin, "matrix", nullptr)),
          geometry_(matrixFromData(evaluatedValue(resolveAttrPath(skin, "geomMatrix", nullptr)))),
          geometryInverse_(geometry_.inverse()) {}

    const Matrix& at(uint32_t logical) {
        auto found = cache_.find(logical);
        if (found != cache_.end()) return found->second;
        const Matrix bindPre =
            bindPre_.isNull() ? Matrix() : matrixFromData(evaluatedValue(bindPre_.element(logical)));
        const Matrix influence =
            influence_.isNull() ? Matrix() : matrixFromData(evaluatedValue(influence_.element(logical)));
        return cache_.emplace(logical, geometry_ * bindPre * influence * geometryInverse_).first->second;
    }

private:
    Plug bindPre_, influence_;
    Matrix geometry_, geometryInverse_;
    std::unordered_map<uint32_t, Matrix> cache_;
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
            const Matrix& m = matrices.at(influences[i]);
            for (int r = 0; r < 4; ++r)
                for (int c = 0; c < 3; ++c) blend[r][c] += w * m.m[r][c];
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
