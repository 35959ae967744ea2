#include "nodes/NodeTypes.h"

namespace host {

NodeTypeDef typeDef(const std::string& name, const std::string& base, MFn::Type apiType,
                    std::vector<AttrPtr> attrs) {
    NodeTypeDef def;
    def.name = name;
    def.base = base;
    def.apiType = apiType;
    def.attrs = std::move(attrs);
    return def;
}

std::vector<NodeTypeDef> builtinNodeTypes() {
    std::vector<NodeTypeDef> out;
    std::vector<AttrPtr> base;
    base.push_back(messageAttr("message", "msg"));
    base.push_back(boolAttr("isHistoricallyInteresting", "ihi", true));
    base.push_back(enumAttr("nodeState", "nds", 0));
    base.push_back(multi(messageAttr("binMembership", "bnm")));
    base.push_back(enumAttr("caching", "cch", 0));
    out.push_back(typeDef("node", "", MFn::kDependencyNode, std::move(base)));
    addDagTypes(out);
    addDeformerTypes(out);
    addSetTypes(out);
    addRegionTypes(out);
    return out;
}

} // namespace host
