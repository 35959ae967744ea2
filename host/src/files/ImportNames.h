#pragma once
// Names while a scene file is imported into a scene that has nodes already: a node whose name is
// taken is made as "<file>_<name>" (and numbered when that is taken too), as Maya resolves clashes
// with the file name, and the statements after it that name it are pointed at its new name.
#include "engine/Node.h"
#include "lang/CommandTable.h"

#include <string>
#include <unordered_map>

namespace host {

class ImportNames {
public:
    explicit ImportNames(std::string prefix) : prefix_(std::move(prefix)) {}

    // Points the statement's node names at the nodes made so far, and gives a createNode a free name.
    void rewrite(Statement& statement);
    // The node a createNode statement made, under whatever name it got.
    void created(const Statement& statement, const Node& node);

private:
    void rename(Token& token) const;

    std::string prefix_;
    std::unordered_map<std::string, std::string> renamed_; // name in the file -> name in the scene
    std::string requested_;                                // the file's name for the node being made
};

} // namespace host
