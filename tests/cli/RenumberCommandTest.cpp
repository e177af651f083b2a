#include <gtest/gtest.h>

#include <regex>
#include <set>
#include <sstream>

#include "TestSupport.h"
#include "cli/CCommandLine.h"

using namespace kavrin;

namespace {

class RenumberCommand : public ::testing::Test {
protected:
    int Edit(const std::string& sample, std::vector<std::string> options, const std::string& outName) {
        std::vector<std::string> args{"edit", test::SamplePath(sample), dir.File(outName)};
        args.insert(args.end(), options.begin(), options.end());
        out.str("");
        err.str("");
        return CCommandLine(out, err).Run(args);
    }
    std::set<int> KeyIds(const std::string& outName) {
        std::set<int> ids;
        std::string text = test::ReadFile(dir.File(outName));
        std::regex keyId("Key_Id=\"(-?\\d+)\"");
        for (std::sregex_iterator it(text.begin(), text.end(), keyId), end; it != end; ++it)
            ids.insert(std::stoi((*it)[1].str()));
        return ids;
    }

    test::TempDir dir;
    std::ostringstream out;
    std::ostringstream err;
};

// Screenshots numbers its switches and signals 1..6 and 33..56: they become 1..30, with the
// warning and the table printed first; undone, the file is the one an edit without change writes.
TEST_F(RenumberCommand, RenumbersWithoutSelectionPrintsTableAndUndoes) {
    ASSERT_EQ(Edit("Screenshots.anl3", {"--nummerieren"}, "neu.anl3"), 0) << err.str();
    const std::string printed = out.str();
    EXPECT_NE(printed.find("Lua-Skripte"), std::string::npos);
    EXPECT_NE(printed.find("Key-ID alt\tKey-ID neu\n33\t7\n"), std::string::npos);
    EXPECT_NE(printed.find("56\t30\n"), std::string::npos);
    EXPECT_EQ(printed.find("6\t6\n"), std::string::npos); // unchanged ids are not listed
    EXPECT_NE(printed.find("24 Key-IDs neu nummeriert"), std::string::npos);
    std::set<int> expected;
    for (int id = 1; id <= 30; ++id)
        expected.insert(id);
    EXPECT_EQ(KeyIds("neu.anl3"), expected);

    ASSERT_EQ(Edit("Screenshots.anl3", {"--keine"}, "gleich.anl3"), 0);
    ASSERT_EQ(Edit("Screenshots.anl3", {"--nummerieren", "--rueckgaengig"}, "zurueck.anl3"), 0);
    EXPECT_EQ(test::ReadFile(dir.File("zurueck.anl3")), test::ReadFile(dir.File("gleich.anl3")));
}

TEST_F(RenumberCommand, GaplessLayoutIsLeftAsItIs) {
    ASSERT_EQ(Edit("Tutorial-Ampelkreuzung.anl3", {"--nummerieren"}, "neu.anl3"), 0);
    EXPECT_NE(out.str().find("bereits lückenlos"), std::string::npos);
    ASSERT_EQ(Edit("Tutorial-Ampelkreuzung.anl3", {"--keine"}, "gleich.anl3"), 0);
    EXPECT_EQ(test::ReadFile(dir.File("neu.anl3")), test::ReadFile(dir.File("gleich.anl3")));
}

} // namespace
