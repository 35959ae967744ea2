#pragma once
// Fixture for plug-in tests: a session with the plug-in loaded, a fresh scene and an empty message
// log per test, and shortcuts to run command text and read what it reported.
#include "engine/MessageLog.h"
#include "engine/Scene.h"
#include "session/Session.h"

#include <maya/MGlobal.h>
#include <maya/MObject.h>
#include <maya/MSelectionList.h>
#include <maya/MString.h>

#include <gtest/gtest.h>

#include <string>
#include <vector>

class PluginSession : public ::testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(host::startSession(host::commandTable(), host::messageLog()));
        host::resetScene();
        host::messageLog().clearHistory();
    }

    // Runs command text, failing the test when it does not succeed.
    static void must(const std::string& text) {
        ASSERT_TRUE(MGlobal::executeCommand(MString(text.c_str()))) << text << "\n" << allMessages();
    }

    template <class Result> static bool run(const std::string& text, Result& result) {
        return MGlobal::executeCommand(MString(text.c_str()), result);
    }
    static bool run(const std::string& text) { return MGlobal::executeCommand(MString(text.c_str())); }

    static MObject node(const char* name) {
        MSelectionList list;
        MObject object;
        if (list.add(name)) list.getDependNode(0, object);
        return object;
    }

    static std::vector<host::Message> messages() { return host::messageLog().history(); }

    static std::string allMessages() {
        std::string text;
        for (const host::Message& message : messages()) text += message.text + "\n";
        return text;
    }

    // A cube "box" (8 vertices, 12 edges) and a blend shape "bs" with weight channels 0, 1 and 5.
    // Target 0 holds deltas for vertices 0, 1, 2 and 7 in its full item.
    static void makeBlendShape() {
        must("polyCube -n box");
        must("createNode blendShape -n bs");
        must("setAttr bs.w[0] 0; setAttr bs.w[1] 0; setAttr bs.w[5] 0");
        must("setAttr bs.it[0].itg[0].iti[6000].ict -type componentList 2 vtx[0:2] vtx[7]");
        must("setAttr bs.it[0].itg[0].iti[6000].ipt -type pointArray 4 0 1 0 1 0 2 0 1 0 3 0 1 0 4 0 1");
    }
};
