#pragma once
// Geometry statements of a mesh block that cannot be read where they stand because they name points
// or edges given later in the block (".fc" before ".ed" before ".vt"). They are held and read again
// once the block is complete, so that the order of a block's geometry statements does not matter.
#include "files/SceneFileStore.h"
#include "lang/CommandTable.h"

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace host {

class PendingMeshStatements {
public:
    using FailureHandler =
        std::function<void(const Statement& statement, const std::string& text, const std::string& error)>;

    void hold(const Statement& statement, std::string_view text, std::string error);
    bool empty() const { return held_.empty(); }

    // Reads the held statements into `shape`, again while any of them goes in (a few passes at most,
    // so a hostile block costs linear time); the rest go to `failed` in file order with their last
    // error. Nothing is held afterwards.
    void readInto(Node& shape, NodeFileInfo& info, const FailureHandler& failed);

private:
    struct Held {
        Statement statement;
        std::string text;
        std::string error;
    };
    std::vector<Held> held_;
};

} // namespace host
