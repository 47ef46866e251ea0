#include "mainwindow/companion.h"

#include <gtest/gtest.h>

namespace nv
{
namespace
{

TEST(Companion, HandsItsShowStateOn)
{
    struct Case {
        const char* arguments;
        int show;
        const char* command;
    };
    const Case cases[] = {
        {"", 3, ""}, // nothing to show
        {" \t ", 3, ""},       {"  a b", 1, "a b"},
        {"\ta", 3, "a /NV+"},  {"a", 2, "a /NV-"},
        {"a", 6, "a /NV-"},    {"a", 7, "a /NV-"}, // how the shell's shortcuts start minimized
        {"a", 0, "a"},         {"a", 5, "a"},
        {"a /nv", 3, "a /nv"}, {"a /NV- C:\\T", 3, "a /NV- C:\\T"},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(CompanionCommand(c.arguments, c.show), c.command) << c.arguments << c.show;
    }
}

TEST(Companion, NamesWhatDidNotStart)
{
    LaunchInfo info;
    const CodePage japanese(932);
    info.plainProgram = "a b.exe";
    EXPECT_TRUE(CannotStartText(info, japanese).starts_with("Cannot start:\n\na b.exe\n\nIt was"));
    info.targetKind = TargetKind::document;
    info.foundProgram = "C:\\np.exe";
    info.workingDirectory = "C:\\T";
    EXPECT_EQ(CannotStartText(info, japanese),
              "Cannot start:\n\na b.exe\n\nThis program did not start:\n\nC:\\np.exe\n\n"
              "in the folder:\n\nC:\\T");

    info = {};
    for (int count = 0; count < 5000; ++count) {
        info.plainProgram += "\x83\x5C";
    }
    const std::string shown = info.plainProgram.substr(0, 600) + "...\n"; // no half character
    EXPECT_NE(CannotStartText(info, japanese).find("\n\n" + shown), std::string::npos);
}

} // namespace
} // namespace nv
