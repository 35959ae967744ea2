#include "nodes/NodeTypes.h"

namespace host {

// The region data node of the region map command: six per-vertex weight arrays, a stored copy of
// each for store/restore, six locks, the user interface's settings text, and the TALVENRegion
// message plug that the blend shape node it serves connects to.
void addRegionTypes(std::vector<NodeTypeDef>& out) {
    std::vector<AttrPtr> regionAttrs = attrs(messageAttr("TALVENRegion", "tvr"));
    for (int k = 0; k < 6; ++k) {
        const std::string n = std::to_string(k);
        regionAttrs.push_back(dataAttr("regionWeights" + n, "rw" + n, DataKind::DoubleArray, "doubleArray"));
    }
    for (int k = 0; k < 6; ++k) {
        const std::string n = std::to_string(k);
        regionAttrs.push_back(
            dataAttr("regionWeightsBuffer" + n, "rwb" + n, DataKind::DoubleArray, "doubleArray"));
    }
    regionAttrs.push_back(multi(boolAttr("regionLock", "rl", false)));
    regionAttrs.push_back(stringAttr("regions", "rgs"));
    out.push_back(typeDef("TALVENRegion", "node", MFn::kPluginDependNode, std::move(regionAttrs)));
}

} // namespace host
