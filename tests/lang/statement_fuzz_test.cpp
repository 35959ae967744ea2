// Random and truncated statements through the real command table: nothing may crash, every failure
// must say why, and the scene must stay usable afterwards.
#include "engine/Scene.h"
#include "lang/Interpreter.h"
#include "session/Session.h"

#include <gtest/gtest.h>

#include <random>

namespace {

const char* const kStatements[] = {
    "polyCube -n box -sx 2 -sy 2 -sz 2",
    "createNode blendShape -n bs",
    "setAttr bs.w[0] 0.5",
    "setAttr bs.it[0].itg[0].iti[6000].ict -type componentList 3 vtx[0] vtx[2:4] vtx[*]",
    "setAttr bs.it[0].itg[0].iti[6000].ipt -type pointArray 2 1 2 3 1 4 5 6 1",
    "setAttr -s 4000000000 bs.w",
    "setAttr box.t -type double3 1 2 3",
    "getAttr bs.it[0].itg[0].iti[6000].ict",
    "getAttr -s bs.w",
    "addAttr -ln extra -at double bs",
    "aliasAttr smile bs.w[0]",
    "aliasAttr -rm bs.smile",
    "connectAttr -f bs.og[0] boxShape.inMesh",
    "disconnectAttr bs.og[0] boxShape.inMesh",
    "removeMultiInstance -b true bs.w[0]",
    "select -r box.vtx[0:3] box.f[1]",
    "ls -sl -fl",
    "sets -e -forceElement initialShadingGroup box",
    "polySelect -noSelection -extendToShell 0 box",
    "rename box crate",
    "parent -w crateShape",
    "optionVar -iv fuzzVar 3",
    "currentTime 12",
    "undo",
    "redo",
    "delete bs",
    "delete crate",
    "kv_getBlendShapeIndices bs",
    "kv_displayMessage -w \"careful\"",
};

std::string mutate(std::string text, std::mt19937& rng) {
    static const char alphabet[] = " -[]:.\";{}/*0123456789abcdefgvtxipw\\\n";
    switch (rng() % 5) {
    case 0: // truncate
        text.resize(rng() % (text.size() + 1));
        break;
    case 1: // replace a character
        if (!text.empty()) text[rng() % text.size()] = alphabet[rng() % (sizeof alphabet - 1)];
        break;
    case 2: // insert noise
        text.insert(rng() % (text.size() + 1), 1, alphabet[rng() % (sizeof alphabet - 1)]);
        break;
    case 3: // duplicate a piece
        if (!text.empty()) {
            std::size_t a = rng() % text.size();
            text.insert(a, text.substr(a, rng() % 12));
        }
        break;
    default: // huge numbers
        text += " 99999999999999999999 -1e308 4294967295";
    }
    return text;
}

TEST(StatementFuzz, RandomAndTruncatedStatementsNeverCrash) {
    host::startSession(host::commandTable(), host::messageLog());
    std::mt19937 rng(20261122);
    for (int round = 0; round < 40; ++round) {
        host::resetScene();
        host::messageLog().clearHistory();
        for (int i = 0; i < 150; ++i) {
            std::string text = kStatements[rng() % std::size(kStatements)];
            const int mutations = static_cast<int>(rng() % 3);
            for (int m = 0; m < mutations; ++m) text = mutate(text, rng);
            host::CommandResult result;
            const std::size_t before = host::messageLog().history().size();
            const bool ok = host::interpreter().execute(text, result);
            if (!ok) {
                EXPECT_GT(host::messageLog().history().size(), before) << "silent failure: " << text;
            }
        }
        // The scene still answers ordinary commands.
        host::CommandResult result;
        EXPECT_TRUE(host::interpreter().execute("createNode transform -n afterFuzz", result));
        EXPECT_TRUE(host::scene().findNode("afterFuzz"));
    }
    host::resetScene();
}

} // namespace
