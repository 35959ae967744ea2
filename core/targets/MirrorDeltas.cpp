#include "core/targets/MirrorDeltas.h"

#include <unordered_map>
#include <unordered_set>

namespace core {

void removeSkipped(TargetDeltas& deltas, const std::vector<int>& skip) {
    if (skip.empty()) return;
    std::unordered_map<int, std::size_t> pending;
    pending.reserve(skip.size());
    for (const int index : skip) ++pending[index];

    // Walking from the end removes the last occurrences first.
    const std::size_t count = deltas.components.size();
    std::vector<bool> removed(count, false);
    std::size_t removedCount = 0;
    for (std::size_t i = count; i-- > 0;) {
        const auto found = pending.find(deltas.components[i]);
        if (found == pending.end() || found->second == 0) continue;
        --found->second;
        removed[i] = true;
        ++removedCount;
    }
    if (removedCount == 0) return;

    std::size_t kept = 0;
    for (std::size_t i = 0; i < count; ++i) {
        if (removed[i]) continue;
        deltas.components[kept] = deltas.components[i];
        if (i < deltas.deltas.size()) deltas.deltas[kept] = deltas.deltas[i];
        ++kept;
    }
    deltas.components.resize(kept);
    if (deltas.deltas.size() > kept) deltas.deltas.resize(kept);
}

MirroredDeltas mirrorDeltas(const TargetDeltas& source, const std::vector<std::uint32_t>& partners,
                            const std::vector<float>& coordinates, const MirrorSettings& settings) {
    const int effectiveMode = settings.flip ? 2 : settings.type;
    const double band = static_cast<double>(settings.tolerance) * 0.1;
    const double sign[3] = {settings.axis == 0 ? -1.0 : 1.0, settings.axis == 1 ? -1.0 : 1.0,
                            settings.axis == 2 ? -1.0 : 1.0};

    MirroredDeltas result;
    TargetDeltas kept;
    std::size_t count = partners.size();
    if (source.components.size() < count) count = source.components.size();
    if (source.deltas.size() < count) count = source.deltas.size();
    for (std::size_t i = 0; i < count; ++i) {
        const int c = source.components[i];
        const Delta& d = source.deltas[i];
        Delta m{sign[0] * d.x, sign[1] * d.y, sign[2] * d.z, 1.0};
        const double v = axisCoordinate(coordinates, c);

        const bool farSide = settings.direction ? v < -band : v > band;
        bool keep = false;
        if (farSide) {
            if (effectiveMode != 2) continue;
        } else if (settings.type == 0) {
            keep = true;
            if (band * band > v * v) m = withoutAxis(m, settings.axis);
        }

        const std::uint32_t partner = partners[i];
        if (partner == kNoPartner || partner >= coordinates.size()) {
            ++result.skipped;
        } else {
            result.output.components.push_back(static_cast<int>(partner));
            result.output.deltas.push_back(m);
        }
        if (keep) {
            kept.components.push_back(c);
            kept.deltas.push_back(d);
        }
    }

    if (settings.type == 0) {
        // Mirrored deltas win; a kept delta goes where no output entry holds its vertex yet. Output
        // vertices are mesh vertices; kept ones outside the mesh are tracked apart.
        std::vector<char> written(coordinates.size(), 0);
        for (const int c : result.output.components) written[static_cast<std::size_t>(c)] = 1;
        std::unordered_set<int> writtenOutside;
        for (std::size_t k = 0; k < kept.components.size(); ++k) {
            const int c = kept.components[k];
            const bool inside = c >= 0 && static_cast<std::size_t>(c) < written.size();
            if (inside ? written[static_cast<std::size_t>(c)] != 0 : !writtenOutside.insert(c).second)
                continue;
            if (inside) written[static_cast<std::size_t>(c)] = 1;
            result.output.components.push_back(c);
            result.output.deltas.push_back(kept.deltas[k]);
        }
    }
    return result;
}

} // namespace core
