#include "PluginSession.h"

#include <sstream>

namespace {

const char* const commandNames[] = {"kv_blendShapeEditWeights",
                                    "kv_blendShapeExportData",
                                    "kv_blendShapeExtractTarget",
                                    "kv_blendShapeImportData",
                                    "kv_blendShapeMirrorTarget",
                                    "kv_blendShapeRemoveDeltas",
                                    "kv_blendShapeReplaceTarget",
                                    "kv_blendShapeSetInbetweenPosition",
                                    "kv_blendShapeSplitTarget",
                                    "kv_displayMessage",
                                    "kv_editRegionMap",
                                    "kv_editTweakNode",
                                    "kv_getBlendShapeIndices",
                                    "kv_getComponentList",
                                    "kv_meshEvaluate",
                                    "kv_polyMapVertexOrder",
                                    "kv_polySymmetry",
                                    "kv_reorderRotation",
                                    "kv_sculptExtractDeltaMesh"};

std::vector<std::string> lines(const std::string& text) {
    std::vector<std::string> result;
    std::size_t start = 0;
    for (std::size_t end; (end = text.find('\n', start)) != std::string::npos; start = end + 1)
        result.push_back(text.substr(start, end - start));
    if (start < text.size()) result.push_back(text.substr(start));
    return result;
}

std::vector<std::string> words(const std::string& line) {
    std::istringstream in(line);
    std::vector<std::string> result;
    for (std::string word; in >> word;) result.push_back(word);
    return result;
}

bool startsWith(const std::string& text, const std::string& prefix) {
    return text.rfind(prefix, 0) == 0;
}

// Four columns: short flag, long flag, argument type in angle brackets, description.
bool isFlagLine(const std::string& line) {
    const auto w = words(line);
    return w.size() >= 4 && startsWith(w[0], "-") && startsWith(w[1], "-") && startsWith(w[2], "<") &&
           w[2].back() == '>';
}

class HelpText : public PluginSession {
protected:
    static std::string help(const std::string& command) {
        MString text;
        EXPECT_TRUE(run(command + " -h", text)) << command << "\n" << allMessages();
        return text.asChar();
    }
};

TEST_F(HelpText, EveryCommandFollowsTheLayout) {
    const std::string usage = "Usage: Execute the command with the following arguments:";
    for (const std::string name : commandNames) {
        SCOPED_TRACE(name);
        const auto text = lines(help(name));
        ASSERT_GE(text.size(), 8u);
        EXPECT_EQ(text[0], "");
        EXPECT_TRUE(startsWith(text[1], "Description: ") && text[1].size() > 14) << text[1];
        EXPECT_EQ(text[2], "");
        EXPECT_EQ(text[3], "Flags: " + name);
        EXPECT_EQ(words(text[4]), (std::vector<std::string>{"-h", "-help", "<n/a>", "this", "message"}));

        std::size_t line = 5;
        for (; line < text.size() && text[line] != usage; ++line) {
            const auto w = words(text[line]);
            const bool label = w.size() == 1 && (w[0] == "modes:" || w[0] == "options:");
            EXPECT_TRUE(label || isFlagLine(text[line])) << text[line];
        }
        ASSERT_LT(line + 2, text.size()) << "no usage lines";
        EXPECT_TRUE(startsWith(text[line + 1], "Execute: " + name)) << text[line + 1];
        EXPECT_TRUE(startsWith(text[line + 2], "Return Value: ")) << text[line + 2];
        EXPECT_EQ(text.size(), line + 3) << "text after the return value line";
    }
    EXPECT_TRUE(messages().empty()) << allMessages();
}

TEST_F(HelpText, QueryAndMessageCommandsExactly) {
    const struct {
        const char* command;
        const char* text;
    } cases[] = {
        {"kv_displayMessage", "\n"
                              "Description: Print the given message.\n"
                              "\n"
                              "Flags: kv_displayMessage\n"
                              "    -h      -help               <n/a>      this message\n"
                              "    -e      -error              <string>   error message\n"
                              "    -i      -info               <string>   info message\n"
                              "    -w      -warning            <string>   warning message\n"
                              "Usage: Execute the command with the following arguments:\n"
                              "Execute: kv_displayMessage -i <string>\n"
                              "Return Value: n/a\n"},
        {"kv_getBlendShapeIndices", "\n"
                                    "Description: Get all weight indices of the blend shape deformer.\n"
                                    "\n"
                                    "Flags: kv_getBlendShapeIndices\n"
                                    "    -h      -help               <n/a>      this message\n"
                                    "Usage: Execute the command with the following arguments:\n"
                                    "Execute: kv_getBlendShapeIndices <string>\n"
                                    "Return Value: int[]\n"},
        {"kv_getComponentList",
         "\n"
         "Description: Returns a flat index list for the given component attribute.\n"
         "\n"
         "Flags: kv_getComponentList\n"
         "    -h      -help               <n/a>      this message\n"
         "    -at     -attribute          <string>   the component attribute\n"
         "    -sl     -select             <string>   select the components of the given mesh\n"
         "    -ct     -componentType      <int>      type of component selection (0: vertex, 1: edge, 2: "
         "face)\n"
         "Usage: Execute the command with the following arguments:\n"
         "Execute: kv_getComponentList -at <string>\n"
         "Return Value: <int> array\n"},
        {"kv_reorderRotation", "\n"
                               "Description: Converts the input rotation to match the target rotate order.\n"
                               "\n"
                               "Flags: kv_reorderRotation\n"
                               "    -h      -help               <n/a>      this message\n"
                               "    -io     -inOrder            <int>      source rotate order\n"
                               "    -oo     -outOrder           <int>      target rotate order\n"
                               "    -irx    -inRotationX        <float>    x rotation value to convert\n"
                               "    -iry    -inRotationY        <float>    y rotation value to convert\n"
                               "    -irz    -inRotationZ        <float>    z rotation value to convert\n"
                               "Usage: Execute the command with the following arguments:\n"
                               "Execute: kv_reorderRotation -inRotationX <float> -inRotationY <float> "
                               "-inRotationZ <float> -inOrder "
                               "<int> -outOrder <int>\n"
                               "Return Value: float[]\n"},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(help(c.command), c.text);
        MString longFlag;
        ASSERT_TRUE(run(std::string(c.command) + " -help", longFlag));
        EXPECT_EQ(longFlag, MString(c.text));
    }
}

} // namespace
