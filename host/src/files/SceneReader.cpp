#include "files/SceneReader.h"

#include "commands/ArgReader.h"
#include "commands/CommandState.h"
#include "files/ImportNames.h"
#include "files/MeshColorSets.h"
#include "files/MeshPayload.h"
#include "files/MeshStatements.h"
#include "files/PendingMeshStatements.h"
#include "files/SceneFileStore.h"
#include "files/SetAttrCapture.h"
#include "files/WholeFile.h"
#include "lang/Tokenizer.h"
#include "session/Session.h"

#include <algorithm>
#include <cctype>
#include <initializer_list>
#include <unordered_set>

namespace host {

namespace {

// Statements a scene file may run: they build nodes, values and connections and nothing else.
bool runnable(const std::string& command) {
    static const std::unordered_set<std::string> commands = {
        "createNode", "setAttr", "addAttr", "connectAttr", "disconnectAttr",
        "parent",     "rename",  "select",  "aliasAttr",
    };
    return commands.count(command) > 0;
}

// Statements Maya writes that the host keeps without running them.
bool keptQuietly(const std::string& command) {
    static const std::unordered_set<std::string> commands = {
        "requires", "currentUnit", "fileInfo", "relationship", "lockNode", "dataStructure", "file",
    };
    return commands.count(command) > 0;
}

// Node types that hold code: kept as written, never made.
bool holdsCode(const std::string& type) {
    return type == "script" || type == "expression";
}

bool isIdentifier(const std::string& word) {
    if (word.empty() || !(std::isalpha(static_cast<unsigned char>(word[0])) || word[0] == '_')) return false;
    for (char c : word)
        if (!std::isalnum(static_cast<unsigned char>(c)) && c != '_') return false;
    return true;
}

bool hasFlag(const Statement& s, std::initializer_list<const char*> names) {
    for (const Token& t : s.args)
        if (isFlagToken(t))
            for (const char* name : names)
                if (t.text.compare(1, std::string::npos, name) == 0) return true;
    return false;
}

// The first argument that is neither a flag nor a flag argument: flags named in `bare` take none,
// every other flag one, as in the statements Maya writes. Null when there is none.
const Token* firstPositional(const Statement& s, std::initializer_list<const char*> bare) {
    for (std::size_t i = 0; i < s.args.size(); ++i) {
        const Token& t = s.args[i];
        if (!isFlagToken(t)) return &t;
        bool takesNone = false;
        for (const char* name : bare)
            takesNone = takesNone || t.text.compare(1, std::string::npos, name) == 0;
        if (!takesNone) ++i;
    }
    return nullptr;
}

class FileReader {
public:
    FileReader(const std::string& path, SceneReadReport& report, ImportNames* importNames = nullptr)
        : path_(path), report_(report), store_(sceneFileStore()), importNames_(importNames) {}

    bool run(std::string_view text, std::string& error) {
        Tokenizer tokenizer(text);
        Statement statement;
        for (;;) {
            if (readMeshPayloadOf(tokenizer)) continue;
            if (!tokenizer.nextStatement(statement)) break;
            if (!isIdentifier(statement.command)) {
                error = where(statement) + "'" + statement.command.substr(0, 40) +
                        "' does not start a statement: this is not a Maya ASCII scene.";
                return false;
            }
            if (!tokenizer.terminated()) {
                error = where(statement) + "the file ends inside this statement: it is cut short.";
                return false;
            }
            if (importNames_) importNames_->rewrite(statement);
            read(statement, tokenizer.statementText());
        }
        endBlock();
        if (!tokenizer.error().empty()) {
            // "Line 3: Unterminated string." as "<file> line 3: Unterminated string."
            error = path_ + " l" + tokenizer.error().substr(1) + " The rest of the file is not read.";
            return false;
        }
        return true;
    }

private:
    enum class Block { None, Node, Kept };
    enum class Last { None, Node, Connection };

    // A geometry statement of the mesh block being read, taken straight from the text.
    bool readMeshPayloadOf(Tokenizer& tokenizer) {
        if (block_ != Block::Node || !blockNode_->type().isA("mesh")) return false;
        const std::size_t length =
            readMeshPayload(tokenizer.rest(), *blockNode_, store_.info(*blockNode_), payloadBuffers_);
        tokenizer.skip(length);
        return length > 0;
    }

    std::string where(const Statement& s) const { return path_ + " line " + std::to_string(s.line) + ": "; }

    void read(const Statement& s, std::string_view text) {
        const std::string& command = s.command;
        if (command == "createNode") return createNode(s, text);
        if (command == "select" && hasFlag(s, {"ne", "noExpand"})) return selectNode(s, text);
        if (block_ != Block::None && inBlock(s)) return blockStatement(s, text);
        endBlock();
        topStatement(s, text);
    }

    // Whether the statement names a node the scene does not have because it was never made: one of
    // Maya's default nodes (":time1"), which the host does not have, or a node whose createNode was
    // kept as written. Such statements are kept as written too.
    bool namesUnmadeNode(const Statement& s) const {
        for (const Token& t : s.args) {
            if (isFlagToken(t)) continue;
            const std::string node = t.text.substr(0, t.text.find('.'));
            const bool rootNamespace = node.size() > 1 && node[0] == ':';
            if (!rootNamespace && !(node.size() < t.text.size() && unmadeNodes_.count(node))) continue;
            if (!scene().findNode(node)) return true;
        }
        return false;
    }

    // Statements that belong to the node block before them: its UUID, attributes and values.
    static bool inBlock(const Statement& s) {
        if (s.command == "lockNode") return true;
        if (s.command == "addAttr")
            return !firstPositional(
                s, {"m", "multi", "uac", "usedAsColor", "uaf", "usedAsFilename", "uap", "usedAsProxy"});
        if (s.command == "rename") return hasFlag(s, {"uid", "uuid"});
        if (s.command != "setAttr") return false;
        const Token* plug = firstPositional(s, {"c", "clamp", "av", "alteredValue"});
        return plug && !plug->text.empty() && plug->text[0] == '.';
    }

    void createNode(const Statement& s, std::string_view text) {
        endBlock();
        nodesStarted_ = true;
        const Token* type = firstPositional(s, {"s", "shared", "ss", "skipSelect"});
        if ((type && holdsCode(type->text)) || namesUnmadeNode(s) || !execute(s)) {
            for (std::size_t i = 0; i + 1 < s.args.size(); ++i)
                if (s.args[i].text == "-n" || s.args[i].text == "-name")
                    unmadeNodes_.insert(s.args[i + 1].text);
            return startKeptBlock(text);
        }
        NodePtr node = currentNode();
        if (!node) return startKeptBlock(text);
        if (importNames_) importNames_->created(s, *node);
        std::string flags;
        if (hasFlag(s, {"s", "shared"})) flags = "-s";
        if (hasFlag(s, {"ss", "skipSelect"})) flags += flags.empty() ? "-ss" : " -ss";
        store_.info(*node).createFlags = flags;
        startNodeBlock(node);
    }

    void selectNode(const Statement& s, std::string_view text) {
        endBlock();
        nodesStarted_ = true;
        if (namesUnmadeNode(s) || !execute(s)) return startKeptBlock(text);
        if (NodePtr node = currentNode()) return startNodeBlock(node);
        startKeptBlock(text);
    }

    void blockStatement(const Statement& s, std::string_view text) {
        if (block_ == Block::Kept) {
            KeptStatement k = blockStart_;
            k.text = std::string(text);
            k.indented = true;
            return keep(std::move(k));
        }
        const std::string& command = s.command;
        if (command == "rename") {
            if (const Token* uuid = firstPositional(s, {"uid", "uuid", "is", "ignoreShape"}))
                store_.info(*blockNode_).uuid = uuid->text;
            return;
        }
        std::string error;
        const bool mesh = command == "setAttr" && blockNode_->type().isA("mesh");
        switch (mesh ? readMeshStatement(s, *blockNode_, store_.info(*blockNode_), error)
                     : MeshStatement::Other) {
        case MeshStatement::Read:
            return;
        case MeshStatement::Failed:
            // It may name points or edges that come later in the block.
            return pendingMesh_.hold(s, text, std::move(error));
        case MeshStatement::Other:
            break;
        }
        if (command == "lockNode" || !execute(s)) return keepInNode(text);
        if (command == "setAttr" && captureSetAttr(s, store_) == SetAttrKind::FlagsOnly)
            return keepInNode(text);
        if (command == "addAttr")
            store_.info(*blockNode_).addAttrs.emplace_back(attrNameOf(s), std::string(text));
    }

    // The attribute an addAttr statement adds: its long name, or its short name.
    static std::string attrNameOf(const Statement& s) {
        std::string shortName;
        for (std::size_t i = 0; i + 1 < s.args.size(); ++i) {
            const std::string& flag = s.args[i].text;
            if (flag == "-ln" || flag == "-longName") return s.args[i + 1].text;
            if (flag == "-sn" || flag == "-shortName") shortName = s.args[i + 1].text;
        }
        return shortName;
    }

    void topStatement(const Statement& s, std::string_view text) {
        const std::string& command = s.command;
        if (keptQuietly(command) || (command == "rename" && hasFlag(s, {"uid", "uuid"})))
            return keepHere(text);
        if (!runnable(command)) {
            messageLog().warning(where(s) + "'" + command +
                                 "' is not a scene file statement: it is kept as written and not run.");
            return keepHere(text);
        }
        if (namesUnmadeNode(s) || !execute(s)) return keepHere(text);
        if (command == "connectAttr" && !scene().connections().empty()) {
            lastConnection_ = scene().connections().back();
            last_ = Last::Connection;
        } else if (command == "setAttr" && captureSetAttr(s, store_) == SetAttrKind::FlagsOnly) {
            keepHere(text);
        }
    }

    // Runs a statement; a failure is reported with the file and line.
    bool execute(const Statement& s) {
        const CommandHandler* handler = commandTable().find(s.command);
        const std::size_t before = messageLog().history().size();
        Invocation invocation{s, {}};
        if (handler && (*handler)(invocation)) return true;
        std::string why = s.command + " failed.";
        const auto& history = messageLog().history();
        for (std::size_t i = before; i < history.size(); ++i)
            if (history[i].kind == MessageKind::Error) {
                why = history[i].text;
                break;
            }
        ++report_.errors;
        messageLog().error(where(s) + why);
        return false;
    }

    KeptStatement here(std::string_view text) const {
        KeptStatement k;
        k.text = std::string(text);
        if (last_ == Last::Connection) {
            k.place = KeptPlace::AfterConnection;
            k.connection = lastConnection_;
        } else if (last_ == Last::Node) {
            k.place = KeptPlace::AfterNode;
            k.node = lastNode_;
        } else {
            k.place = nodesStarted_ ? KeptPlace::NodesStart : KeptPlace::Prologue;
        }
        return k;
    }

    void keep(KeptStatement k) { store_.kept.push_back(std::move(k)); }

    void keepHere(std::string_view text) { keep(here(text)); }

    void keepInNode(std::string_view text) {
        KeptStatement k;
        k.place = KeptPlace::InNode;
        k.node = blockNode_;
        k.text = std::string(text);
        k.indented = true;
        keep(std::move(k));
    }

    void startNodeBlock(const NodePtr& node) {
        block_ = Block::Node;
        blockNode_ = node;
        lastNode_ = node;
        last_ = Last::Node;
    }

    // A block that is not run: the statement and those that belong to it are kept together.
    void startKeptBlock(std::string_view text) {
        setCurrentNode(nullptr);
        blockStart_ = here(text);
        keep(blockStart_);
        block_ = Block::Kept;
    }

    void endBlock() {
        if (blockNode_ && !pendingMesh_.empty())
            pendingMesh_.readInto(
                *blockNode_, store_.info(*blockNode_),
                [this](const Statement& s, const std::string& text, const std::string& error) {
                    ++report_.errors;
                    messageLog().error(where(s) + "setAttr: " + error);
                    keepInNode(text);
                });
        block_ = Block::None;
        blockNode_.reset();
        setCurrentNode(nullptr);
    }

    std::string path_;
    SceneReadReport& report_;
    SceneFileStore& store_;
    Block block_ = Block::None;
    NodePtr blockNode_;
    KeptStatement blockStart_;
    bool nodesStarted_ = false;
    Last last_ = Last::None;
    std::weak_ptr<Node> lastNode_;
    Connection lastConnection_;
    std::unordered_set<std::string> unmadeNodes_;
    ImportNames* importNames_;
    MeshPayloadBuffers payloadBuffers_;
    PendingMeshStatements pendingMesh_;
};

// Reads into the current scene in file reading mode; `importNames` is set for an import.
bool readInto(const std::string& path, std::string_view text, SceneReadReport& report, std::string& error,
              ImportNames* importNames) {
    // Restored however reading ends: an exception must not leave commands in file reading mode.
    struct ReadingMode {
        const bool was = fileReadingMode();
        ~ReadingMode() { setFileReadingMode(was); }
    } mode;
    setFileReadingMode(true);
    const bool ok = FileReader(path, report, importNames).run(text, error);
    for (const NodePtr& node : scene().nodes())
        if (node->type().isA("mesh")) adoptColorSets(*node, sceneFileStore().info(*node));
    setCurrentNode(nullptr);
    scene().activeSelection().clear();
    return ok;
}

} // namespace

bool loadSceneText(const std::string& path, std::string& text, std::string& error) {
    if (!readWholeFile(path, text, error)) return false;
    if (text.find('\0') == std::string::npos) return true;
    error = path + " is not a Maya ASCII scene: it holds binary data.";
    return false;
}

bool readSceneText(const std::string& path, std::string_view text, SceneReadReport& report,
                   std::string& error) {
    return readInto(path, text, report, error, nullptr);
}

bool importSceneText(const std::string& path, std::string_view text, SceneReadReport& report,
                     std::string& error) {
    std::string stem = path.substr(path.rfind('/') == std::string::npos ? 0 : path.rfind('/') + 1);
    stem = stem.substr(0, stem.find('.'));
    ImportNames names(stem.empty() ? "import" : stem);
    SceneFileStore& store = sceneFileStore();
    const std::size_t keptBefore = store.kept.size();
    const bool ok = readInto(path, text, report, error, &names);
    // The scene keeps its own requirements and file information: of what the file kept as written,
    // only what sits inside its nodes' blocks comes along.
    store.kept.erase(std::remove_if(store.kept.begin() + static_cast<std::ptrdiff_t>(keptBefore),
                                    store.kept.end(),
                                    [](const KeptStatement& k) { return k.place != KeptPlace::InNode; }),
                     store.kept.end());
    return ok;
}

} // namespace host
