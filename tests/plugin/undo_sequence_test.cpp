// Random sequences of undoable commands on random meshes: undoing them all restores the scene as it
// was (saved text, which holds every target delta and weight map), and redoing them all gives the
// end state again. The seed is fixed; TALVEN_UNDO_ROUNDS and TALVEN_UNDO_SEED run longer or other
// sequences (`make soak`).
#include "PluginSession.h"

#include "files/SceneWriter.h"
#include "lang/Interpreter.h"

#include <cstdlib>
#include <random>

namespace {

int fromEnvironment(const char* name, int fallback) {
    const char* text = std::getenv(name);
    return text && *text ? std::atoi(text) : fallback;
}

class UndoSequence : public PluginSession {
protected:
    using Random = std::mt19937;

    // At the top, as a user types it, so that the command enters the undo queue.
    static bool top(const std::string& text) {
        host::CommandResult ignored;
        return host::interpreter().execute(text, ignored);
    }
    static std::string state() {
        std::vector<std::string> problems;
        return host::sceneText("state.ma", problems);
    }
    static int uniform(Random& random, int low, int high) {
        return std::uniform_int_distribution<int>(low, high)(random);
    }
    static std::string number(Random& random) { return std::to_string(uniform(random, -8, 8) * 0.125); }

    // A plane of random size, a blend shape "bs" beside it with two targets holding random deltas
    // and full weight maps, and a few transforms.
    static int makeScene(Random& random) {
        const int sx = uniform(random, 1, 6), sy = uniform(random, 1, 6);
        const int vertices = (sx + 1) * (sy + 1);
        must("polyPlane -n pl -sx " + std::to_string(sx) + " -sy " + std::to_string(sy) +
             "; createNode blendShape -n bs; createNode transform -n a; createNode transform -n b");
        for (int target = 0; target < 2; ++target) {
            const std::string item = "bs.it[0].itg[" + std::to_string(target) + "].iti[6000]";
            must("setAttr bs.w[" + std::to_string(target) + "] 0");
            must("setAttr " + item + ".ict -type componentList 1 vtx[0:" + std::to_string(vertices - 1) +
                 "]");
            std::string points = "setAttr " + item + ".ipt -type pointArray " + std::to_string(vertices);
            for (int v = 0; v < vertices; ++v) points += " " + number(random) + " " + number(random) + " 0 1";
            must(points);
            // Every vertex has a weight: the weight edits leave elements they create on undo.
            for (int v = 0; v < vertices; ++v)
                must("setAttr bs.it[0].itg[" + std::to_string(target) + "].tw[" + std::to_string(v) + "] " +
                     std::to_string(uniform(random, 0, 8) * 0.125));
        }
        return vertices;
    }

    // One command whose undo restores everything it changed.
    static std::string randomCommand(Random& random, int vertices) {
        const std::string target = std::to_string(uniform(random, 0, 1));
        const std::string vertex = std::to_string(uniform(random, 0, vertices - 1));
        switch (uniform(random, 0, 11)) {
        case 0:
            return "setAttr bs.it[0].itg[" + target + "].tw[" + vertex + "] " + number(random);
        case 1:
            return "setAttr bs.it[0].bw[" + vertex + "] " + number(random);
        case 2:
            return "setAttr plShape.vt[" + vertex + "] " + number(random) + " 1 " + number(random);
        case 3:
            return "setAttr a.t " + number(random) + " " + number(random) + " " + number(random);
        case 4:
            return "kv_blendShapeEditWeights -m -dir " + std::to_string(uniform(random, 0, 1)) + " -i " +
                   target + " -om pl bs";
        case 5:
            return "kv_blendShapeEditWeights -del -i " + target + " bs";
        case 6:
            return "kv_blendShapeEditWeights -t -i " + target + " -om pl bs";
        case 7:
            return "createNode transform -n extra# -p " + std::string(uniform(random, 0, 1) ? "a" : "b");
        case 8:
            return uniform(random, 0, 1) ? "parent b a" : "parent -w b";
        case 9:
            return "duplicate -n copy# a";
        case 10:
            return "polyCube -n box#";
        default:
            return "select pl.vtx[" + vertex + "]";
        }
    }

    // Steps through the queue until it reports there is nothing left; the number of steps.
    static int stepAll(const char* command) {
        const std::string none = std::string("There are no more commands to ") + command + ".";
        for (int steps = 0; steps < 1000; ++steps) {
            host::messageLog().clearHistory();
            EXPECT_TRUE(top(command)) << allMessages();
            for (const host::Message& message : messages())
                if (message.text == none) return steps;
        }
        return -1;
    }
};

TEST_F(UndoSequence, UndoRestoresTheStartAndRedoTheEnd) {
    const int rounds = fromEnvironment("TALVEN_UNDO_ROUNDS", 12);
    const int seed = fromEnvironment("TALVEN_UNDO_SEED", 19);
    Random random(static_cast<unsigned>(seed));
    for (int round = 0; round < rounds; ++round) {
        host::resetScene();
        const int vertices = makeScene(random);
        host::scene().undoQueue().clear();
        const std::string start = state();
        std::string commands;
        int succeeded = 0;
        for (int k = uniform(random, 1, 16); k > 0; --k) {
            const std::string command = randomCommand(random, vertices);
            commands += command + ";\n";
            succeeded += top(command) ? 1 : 0;
        }
        const std::string end = state();
        // A command that changed nothing leaves no entry.
        EXPECT_LE(stepAll("undo"), succeeded) << "round " << round << ":\n" << commands;
        EXPECT_EQ(state(), start) << "undo, round " << round << ":\n" << commands;
        EXPECT_LE(stepAll("redo"), succeeded) << "round " << round << ":\n" << commands;
        EXPECT_EQ(state(), end) << "redo, round " << round << ":\n" << commands;
        if (HasFailure()) {
            ADD_FAILURE() << "seed " << seed << ", round " << round;
            break;
        }
    }
}

} // namespace
