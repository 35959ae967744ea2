#include "files/PendingMeshStatements.h"

#include "files/MeshStatements.h"

namespace host {

namespace {

// Points, then edges on them, then faces on those: three passes settle any order of the three.
constexpr int kMostPasses = 3;

} // namespace

void PendingMeshStatements::hold(const Statement& statement, std::string_view text, std::string error) {
    held_.push_back({statement, std::string(text), std::move(error)});
    // Geometry statements are read from their tokens; the tokenizer reuses its word buffer.
    held_.back().statement.words.reset();
}

void PendingMeshStatements::readInto(Node& shape, NodeFileInfo& info, const FailureHandler& failed) {
    bool progress = true;
    for (int pass = 0; pass < kMostPasses && progress && !held_.empty(); ++pass) {
        progress = false;
        std::vector<Held> still;
        for (Held& held : held_) {
            std::string error;
            if (readMeshStatement(held.statement, shape, info, error) == MeshStatement::Read) {
                progress = true;
                continue;
            }
            held.error = std::move(error);
            still.push_back(std::move(held));
        }
        held_ = std::move(still);
    }
    for (const Held& held : held_) failed(held.statement, held.text, held.error);
    held_.clear();
}

} // namespace host
