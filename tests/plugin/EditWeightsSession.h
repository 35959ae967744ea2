#pragma once
// Fixture for the edit-weights command: runs command text as a user does (recorded for undo, the
// result kept with its type), reads and writes weight maps through their plugs, collects messages
// by kind, and keeps weight files in a folder of the test's own.
#include "PluginSession.h"

#include "engine/CommandResult.h"
#include "lang/Interpreter.h"
#include "plugin/common.h"

#include <maya/MIntArray.h>
#include <maya/MPlug.h>
#include <maya/MPointArray.h>

#include <array>
#include <filesystem>
#include <fstream>
#include <map>
#include <sstream>
#include <unistd.h>

class EditWeightsSession : public PluginSession {
public:
    // Weight maps are stored in single precision: tests use values a float holds exactly.
    using Map = std::map<int, double>;
    using Lines = std::vector<std::string>;
    using Deltas = std::vector<std::array<double, 3>>;

protected:
    void SetUp() override {
        PluginSession::SetUp();
        must("optionVar -remove \"TALVENUseMayaSculptTool\"");
        folder_ = std::filesystem::temp_directory_path() /
                  ("talven_edit_weights_" + std::to_string(::getpid()) + "_" +
                   ::testing::UnitTest::GetInstance()->current_test_info()->name());
        std::filesystem::create_directories(folder_);
    }
    void TearDown() override {
        must("optionVar -remove \"TALVENUseMayaSculptTool\"");
        std::error_code ignored;
        std::filesystem::remove_all(folder_, ignored);
    }

    static host::CommandResult exec(const std::string& text, bool expectOk = true) {
        host::CommandResult result;
        EXPECT_EQ(host::interpreter().execute(text, result), expectOk) << text << "\n" << allMessages();
        return result;
    }
    static host::CommandResult edit(const std::string& arguments, bool expectOk = true) {
        return exec("kv_blendShapeEditWeights " + arguments, expectOk);
    }

    // The elements of weight map `index` (-1: base weights) of a blend shape node.
    static Map stored(int index = 0, const char* blendShape = "bs") {
        MPlug plug = common::weightsPlug(node(blendShape), index);
        MIntArray indices;
        plug.getExistingArrayAttributeIndices(indices);
        Map map;
        for (unsigned int k = 0; k < indices.length(); ++k)
            map[indices[k]] = plug.elementByPhysicalIndex(k).asDouble();
        return map;
    }
    // Replaces the map by exactly these elements.
    static void store(const Map& map, int index = 0, const char* blendShape = "bs") {
        MPlug plug = common::weightsPlug(node(blendShape), index);
        common::deleteWeights(plug);
        for (const auto& [v, w] : map) plug.elementByLogicalIndex(static_cast<unsigned int>(v)).setDouble(w);
    }
    static Map everyVertex(double w, Map except = {}, int count = 9) {
        for (int v = 0; v < count; ++v) except.emplace(v, w);
        return except;
    }

    // The component list and the deltas of a target item of "bs".
    static std::vector<int> components(unsigned int target, unsigned int item = 6000) {
        return common::getTargetComponents(node("bs"), target, item).vec();
    }
    static Deltas deltas(unsigned int target, unsigned int item = 6000) {
        const MPointArray points = common::getTargetPoints(node("bs"), target, item);
        Deltas result;
        for (unsigned int k = 0; k < points.length(); ++k)
            result.push_back({points[k].x, points[k].y, points[k].z});
        return result;
    }

    static Lines texts(host::MessageKind kind) {
        Lines lines;
        for (const host::Message& message : messages())
            if (message.kind == kind) lines.push_back(message.text);
        return lines;
    }
    static Lines errors() { return texts(host::MessageKind::Error); }
    static Lines warnings() { return texts(host::MessageKind::Warning); }
    static Lines infos() { return texts(host::MessageKind::Info); }
    static void clearMessages() { host::messageLog().clearHistory(); }

    std::string file(const std::string& name) const { return (folder_ / name).string(); }
    std::string writeFile(const std::string& name, const std::string& text) const {
        std::ofstream(file(name), std::ios::binary) << text;
        return file(name);
    }
    static std::string readFile(const std::string& path) {
        std::ostringstream text;
        text << std::ifstream(path, std::ios::binary).rdbuf();
        return text.str();
    }

    // A plane "pl" of 2 x 2 faces in the XZ plane: vertex v lies at x = v % 3 - 1 and z = 1 - v / 3,
    // so 0-2, 3-5 and 6-8 are mirror pairs across x and 1, 4, 7 lie on x = 0. "bs" is a blend
    // shape node of its own; the commands name the mesh with -om.
    static void makePlane() {
        must("polyPlane -n pl -w 2 -h 2 -sx 2 -sy 2; createNode blendShape -n bs; select -cl");
    }

private:
    std::filesystem::path folder_;
};
