#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "../document/LayoutText.h"
#include "TestSupport.h"
#include "document/CAnlage.h"
#include "document/CXmlWriter.h"
#include "document/NodeTree.h"

namespace kavrin::test {

// Loads layout texts through CAnlage (as a file in a temp folder) and saves them again.
class SceneryLayoutFixture : public ::testing::Test {
protected:
    bool Load(const std::string& text) {
        WriteFile(path, text);
        return anlage.Load(path);
    }
    bool LoadInner(const std::string& inner) { return Load(LayoutText(inner)); }
    std::string Save() {
        std::string out = dir.File("out.anl3");
        EXPECT_TRUE(anlage.Save(out));
        return ReadFile(out);
    }
    // Every node of class T in the tree, in document order.
    template <typename T> std::vector<T*> Nodes() const {
        std::vector<T*> found;
        if (anlage.RootNode())
            ForEachNode(*anlage.RootNode(), [&](const INode& node, int) {
                if (auto* typed = dynamic_cast<const T*>(&node))
                    found.push_back(const_cast<T*>(typed));
            });
        return found;
    }
    template <typename T> T& Single() const {
        std::vector<T*> found = Nodes<T>();
        if (found.size() != 1)
            throw std::runtime_error("expected exactly one node, found " + std::to_string(found.size()));
        return *found.front();
    }
    const std::vector<std::string>& Hints() const { return scope.ui.parseLog.Hints(); }

    RecordingScope scope;
    TempDir dir;
    std::string path = dir.File("Anlage.anl3");
    CAnlage anlage;
};

// The element text a node is written as.
inline std::string Written(INode& node) {
    CXmlWriter writer;
    EXPECT_TRUE(WriteNode(writer, node));
    return writer.Result();
}

// A "Dreibein" as the simulator writes it, placed at (x, y, z) and unturned.
inline std::string FrameText(const std::string& x, const std::string& y, const std::string& z = "0") {
    return "<Dreibein><Vektor x=\"" + x + "\" y=\"" + y + "\" z=\"" + z +
           "\">Pos</Vektor><Vektor x=\"1\" y=\"0\" z=\"0\">Dir</Vektor>"
           "<Vektor x=\"0\" y=\"1\" z=\"0\">Nor</Vektor><Vektor x=\"0\" y=\"0\" "
           "z=\"1\">Bin</Vektor></Dreibein>";
}

} // namespace kavrin::test
