// Damaged copies of real scenes and of a real OBJ head (cut short, lines dropped, repeated or
// swapped, characters changed, numbers out of range, words for numbers, very long words) are opened
// or imported the way a user does it, their meshes evaluated, and the result exported, saved and
// read back. Whatever a copy holds, nothing crashes, every failure says why, no message is empty and
// no exception reaches the interpreter. The variants come from a fixed seed, so a failure repeats.
#include "FileTestSupport.h"

#include "eval/Evaluator.h"

#include <algorithm>
#include <cstdlib>
#include <random>

namespace {

enum class Format { Scene, Obj };

struct DamagedInput {
    const char* file; // under the data folder
    Format format;
    int variants;
};

void PrintTo(const DamagedInput& input, std::ostream* out) {
    *out << input.file;
}

const std::vector<DamagedInput> kInputs = {
    {"maya-ascii/UsdExportSkeletonWithIdentityBindPose.ma", Format::Scene, 300},
    {"maya-ascii/bindTransformsExport.ma", Format::Scene, 200},
    {"maya-ascii/blendShapesExport.ma", Format::Scene, 200},
    {"ict-facekit/generic_neutral_mesh.obj", Format::Obj, 300},
};

// The OBJ head is cut down to this many vertices, so that each variant reads fast.
constexpr long kHeadVertices = 600;

// Whether every corner of an "f …" line names one of the first `vertices` vertices.
bool cornersBelow(const std::string& faceLine, long vertices) {
    for (const char* p = faceLine.c_str() + 1; *p;) {
        char* end = nullptr;
        const long v = std::strtol(p, &end, 10);
        if (end == p) return true;
        if (v < 1 || v > vertices) return false;
        p = end;
        while (*p && *p != ' ') ++p;
    }
    return true;
}

// The head cut down to its first vertices and the faces on them, keeping its other records.
std::string smallHead(const std::string& text, long vertices) {
    std::istringstream in(text);
    std::string out;
    long v = 0, vt = 0;
    for (std::string line; std::getline(in, line);) {
        if (line.rfind("v ", 0) == 0 && v++ >= vertices) continue;
        if (line.rfind("vt ", 0) == 0 && vt++ >= vertices) continue;
        if (line.rfind("f ", 0) == 0 && !cornersBelow(line, vertices)) continue;
        out += line + '\n';
    }
    return out;
}

// Damages a text in one of seven ways, chosen by the round; numbers are changed twice as often.
class Damager {
public:
    explicit Damager(unsigned seed) : random_(seed) {}

    std::string damage(std::string text, int round, std::string& how) {
        switch (round % 8) {
        case 0:
            how = "cut";
            text.resize(pick(text.size()));
            return text;
        case 1:
            how = "lines dropped";
            return editLines(text, [&](std::vector<std::string>& lines) {
                const std::size_t at = pick(lines.size());
                lines.erase(lines.begin() + at, lines.begin() + std::min(lines.size(), at + 1 + pick(3)));
            });
        case 2:
            how = "line repeated";
            return editLines(text, [&](std::vector<std::string>& lines) {
                const std::string line = lines[pick(lines.size())];
                lines.insert(lines.begin() + pick(lines.size()), line);
            });
        case 3:
            how = "lines swapped";
            return editLines(text, [&](std::vector<std::string>& lines) {
                std::swap(lines[pick(lines.size())], lines[pick(lines.size())]);
            });
        case 4: {
            how = "characters changed";
            static const std::string kInto = "0123456789\";{}-";
            for (std::size_t k = 1 + pick(4); k > 0 && !text.empty(); --k)
                text[pick(text.size())] = kInto[pick(kInto.size())];
            return text;
        }
        case 5:
        case 6: {
            // Out of range, not numbers, and in range but naming what is not there.
            static const std::vector<std::string> kNumbers = {
                "1e400",      "-1e400",     "1e-400",     "1e300", "-3.5e38", "99999999999", "-2147483649",
                "2147483648", "2147483647", "4294967295", "nan",   "NaN",     "-nan",        "inf",
                "-inf",       "Infinity",   "1.#INF",     "-1",    "0",       "7",           "65535"};
            const std::string number = kNumbers[pick(kNumbers.size())];
            how = "a number made " + number;
            return replaceNumber(text, number);
        }
        default: {
            static const std::vector<std::string> kLong = {
                std::string(100000, '9'), std::string(100000, 'x'), "\"" + std::string(100000, 'q') + "\"",
                std::string(20000, '['), "-" + std::string(99999, '1')};
            const std::size_t which = pick(kLong.size());
            how = "a long word (" + kLong[which].substr(0, 2) + "...)";
            std::size_t at = pick(text.size());
            while (at < text.size() && text[at] != ' ' && text[at] != '\n') ++at;
            text.insert(at, " " + kLong[which] + " ");
            return text;
        }
        }
    }

private:
    std::size_t pick(std::size_t count) { return count == 0 ? 0 : random_() % count; }

    template <class Edit> static std::string editLines(const std::string& text, Edit edit) {
        std::vector<std::string> lines;
        for (std::size_t pos = 0; pos < text.size();) {
            const std::size_t end = std::min(text.find('\n', pos), text.size() - 1) + 1;
            lines.push_back(text.substr(pos, end - pos));
            pos = end;
        }
        if (lines.empty()) return text;
        edit(lines);
        std::string out;
        for (const std::string& line : lines) out += line;
        return out;
    }

    // The next run of digits at or after a random place, whole, is replaced by `number`.
    std::string replaceNumber(std::string text, const std::string& number) {
        const std::size_t digit = text.find_first_of("0123456789", pick(text.size()));
        if (digit == std::string::npos) return text;
        std::size_t begin = digit;
        while (begin > 0 && (text[begin - 1] == '-' || text[begin - 1] == '.')) --begin;
        const std::size_t end = text.find_first_not_of("0123456789.e-+", digit);
        text.replace(begin, (end == std::string::npos ? text.size() : end) - begin, number);
        return text;
    }

    std::mt19937 random_;
};

class DamagedFileTest : public FileTest {
protected:
    // Runs a command as a user types it: a failure says why, and no error is empty or an escaped
    // exception.
    void attempt(const std::string& command) {
        host::messageLog().clearHistory();
        const bool ok = run(command);
        const std::vector<std::string> errors = messagesOf(host::MessageKind::Error);
        EXPECT_TRUE(ok || !errors.empty()) << command << " failed without saying why";
        for (const std::string& error : errors) {
            EXPECT_FALSE(error.empty()) << command;
            EXPECT_EQ(error.find("Internal error"), std::string::npos) << command << "\n" << error;
        }
    }

    // Every mesh as its deformers leave it, with its topology: each face corner names a point.
    static void evaluateMeshes() {
        const std::vector<host::NodePtr> nodes = host::scene().nodes();
        for (const host::NodePtr& node : nodes) {
            if (!node->type().isA("mesh")) continue;
            const host::MeshPtr mesh = host::evaluatedMesh(node);
            if (!mesh || !mesh->topologyError().empty()) continue;
            for (int v : mesh->faceConnects)
                ASSERT_TRUE(v >= 0 && static_cast<std::size_t>(v) < mesh->points.size())
                    << node->name() << " names point " << v << " of " << mesh->points.size();
        }
    }

    void useScene(const std::string& tag) {
        evaluateMeshes();
        attempt("file -ea -f -type \"OBJexport\" \"" + path(tag + ".obj") + "\"");
        attempt("file -rn \"" + path(tag + ".ma") + "\"; file -s");
        attempt("file -f -o \"" + path(tag + ".ma") + "\"");
        evaluateMeshes();
        if (std::filesystem::exists(path(tag + ".obj")))
            attempt("file -i -type \"OBJ\" \"" + path(tag + ".obj") + "\"");
        evaluateMeshes();
    }
};

class DamagedInputTest : public DamagedFileTest, public ::testing::WithParamInterface<DamagedInput> {};

TEST_P(DamagedInputTest, OpensSavesAndReadsBackWithoutCrashing) {
    const DamagedInput& input = GetParam();
    const std::string original = std::string(TALVEN_DATA_DIR) + "/" + input.file;
    if (!std::ifstream(original)) GTEST_SKIP() << original << " is not there";
    const std::string text =
        input.format == Format::Scene ? readText(original) : smallHead(readText(original), kHeadVertices);
    const std::string variant = path(input.format == Format::Scene ? "variant.ma" : "variant.obj");
    Damager damager(20240611);
    for (int round = 0; round < input.variants; ++round) {
        std::string how;
        writeText(variant, damager.damage(text, round, how));
        SCOPED_TRACE("variant " + std::to_string(round) + ": " + how);
        attempt("file -f -new");
        if (input.format == Format::Scene)
            attempt("file -f -o \"" + variant + "\"");
        else
            attempt("file -i -type \"OBJ\" \"" + variant + "\"");
        useScene("saved");
    }
}

// A colour far out in a set's list is looked up where it is: the list is not spread out that long.
TEST_F(DamagedFileTest, AColourAtAFarIndex) {
    writeText(path("far.ma"), "createNode transform -n \"box\";\ncreateNode mesh -n \"m\" -p \"box\";\n"
                              "\tsetAttr -s 3 \".vt[0:2]\" 0 0 0 1 0 0 0 1 0;\n"
                              "\tsetAttr -s 3 \".ed[0:2]\" 0 1 0 1 2 0 2 0 0;\n"
                              "\tsetAttr \".fc[0]\" -type \"polyFaces\" f 3 0 1 2 mc 0 3 2000000000 -1 -1;\n"
                              "\tsetAttr \".clst[0].clsn\" -type \"string\" \"c\";\n"
                              "\tsetAttr \".clst[0].clsp[2000000000]\" 1 0.5 0 1;\n");
    attempt("file -f -o \"" + path("far.ma") + "\"");
    const std::string saved = save("saved.ma");
    EXPECT_NE(saved.find(".clsp[0]\" 1 0.5 0 1;"), std::string::npos) << saved;
    EXPECT_NE(saved.find("mc 0 3 0 -1 -1"), std::string::npos) << saved;
}

INSTANTIATE_TEST_SUITE_P(RealFiles, DamagedInputTest, ::testing::ValuesIn(kInputs), [](const auto& info) {
    std::string name = info.param.file;
    name = name.substr(name.find('/') + 1);
    return name.substr(0, name.find('.'));
});

} // namespace
