#include "commands/QueryArgs.h"

#include "commands/Names.h"
#include "commands/ObjectItems.h"
#include "engine/ComponentText.h"
#include "engine/Scene.h"

namespace host {

bool namesComponent(const std::string& text) {
    const std::size_t dot = text.find('.');
    if (dot == std::string::npos) return false;
    const std::size_t open = text.find('[', dot);
    return open != std::string::npos &&
           componentTypeOf(std::string_view(text).substr(dot + 1, open - dot - 1)) != ComponentType::Other;
}

bool queryItems(const ArgReader& args, SelectionList& out, std::size_t first) {
    const auto& names = args.positional();
    if (names.size() <= first) out = scene().activeSelection();
    for (std::size_t i = first; i < names.size(); ++i) {
        const std::string& text = names[i]->text;
        // Components first: "arm.vtx[3]" is a vertex here, not the plug setAttr would take it for.
        std::string error;
        if (resolveObjectArg(text, out, &error)) continue;
        const Plug plug = isPattern(text) || namesComponent(text) ? Plug() : lookupPlug(text, nullptr);
        if (plug.isNull()) return args.fail(error);
        out.push_back(SelectionItem{plug.node(), nullptr, plug});
    }
    return true;
}

} // namespace host
