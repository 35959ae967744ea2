// The talven program runs a scene script and then a plug-in command given with -c, printing the
// result the way the script editor does.
#include <gtest/gtest.h>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <string>

namespace {

std::string runProgram(const std::string& commandLine, int& exitCode) {
    std::string output;
    FILE* pipe = popen(commandLine.c_str(), "r");
    if (!pipe) return output;
    char buffer[4096];
    for (std::size_t n; (n = fread(buffer, 1, sizeof buffer, pipe)) > 0;) output.append(buffer, n);
    const int status = pclose(pipe);
    exitCode = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    return output;
}

TEST(TalvenProgram, PrintsBlendShapeIndicesAfterASceneScript) {
    const auto dir = std::filesystem::temp_directory_path() / ("talven_cli_" + std::to_string(::getpid()));
    std::filesystem::create_directories(dir);
    const auto scene = dir / "scene.mel";
    std::ofstream(scene) << "polyCube -n box;\n"
                            "createNode blendShape -n blendShape1;\n"
                            "setAttr blendShape1.w[0] 0;\n"
                            "setAttr blendShape1.w[1] 0;\n"
                            "setAttr blendShape1.w[5] 0.5;\n";
    int exitCode = -1;
    const std::string output = runProgram(std::string("'") + TALVEN_BINARY + "' '" + scene.string() +
                                              "' -c \"kv_getBlendShapeIndices blendShape1\" 2>&1",
                                          exitCode);
    std::filesystem::remove_all(dir);
    EXPECT_EQ(exitCode, 0) << output;
    EXPECT_NE(output.find("// Result: 0 1 5 //\n"), std::string::npos) << output;
}

} // namespace
