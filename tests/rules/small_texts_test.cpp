// Texts that come in and go out, each by a few rules.
#include "mainwindow/browse.h"
#include "mainwindow/command_line.h"
#include "mainwindow/companion.h"
#include "support/trouble_ticket.h"

#include <algorithm>
#include <gtest/gtest.h>

namespace nv
{
namespace
{

TEST(CommandLine, FindsTheArguments)
{
    const std::pair<const char*, const char*> cases[] = {
        {"NVMenu", ""},           {"NVMenu.exe  a \"b c\"", "a \"b c\""},
        {"NVMenu.exe\ta ", "a "}, {"\"C:\\My Menus\\NVMenu.exe\"  a /l", "a /l"},
        {"\"C:\\My Menus", ""},   {"\"\"a", "a"}};
    for (const auto& [whole, arguments] : cases) {
        EXPECT_EQ(ArgumentsOf(whole), arguments) << whole;
    }
}

TEST(Browse, PutsThePathBetweenExactlyTwoQuotes)
{
    const struct {
        std::string before;
        std::string after;
        std::string expected;
        bool balanced = true;
    } cases[] = {
        {"", " /x", "\"P\""},         // before arguments
        {"\"", "\"", "P"},            // between two quotes
        {"\"", "", "P\""},            // after the one that opens
        {"", "\"", "\"P"},            // before the one that closes
        {"", "\" \"x\"", "\"P"},      // ... with a quoted part behind it
        {"\"", " \"x\"", "P\""},      // the quotes behind belong together
        {"\"a\" ", "", "\"P\""},      // behind a quoted part
        {"\"a\" \"", "\" b", "P"},    // in the second one
        {"", " x\"", "\"P\"", false}, // a stray quote stays one
    };
    for (const auto& c : cases) {
        const std::string put = QuotedForBox("P", c.before, c.after);
        EXPECT_EQ(put, c.expected) << c.before << '|' << c.after;
        const std::string text = c.before + put + c.after;
        EXPECT_EQ(std::count(text.begin(), text.end(), '"') % 2 == 0, c.balanced) << text;
    }
}

TEST(Browse, ShowsTheFilterOfTheCommandsExtension)
{
    const std::pair<const char*, int> cases[] = {
        {"a.nvm", 1},    {"\"C:\\a b.NVM\"", 1}, {"a.Nvf", 2}, {"\"a.b.exe\"", 3},
        {"a.exe /x", 4}, {"a.nvm\"\"", 4},       {"nvm", 4},   {".\"", 4}};
    for (const auto& [command, filter] : cases) {
        EXPECT_EQ(BrowseFilterIndex(command), filter) << command;
    }
    const std::string filter = BrowseFilter();
    EXPECT_EQ(std::count(filter.begin(), filter.end(), '\0'), 9);
    EXPECT_TRUE(filter.ends_with(std::string("\0*.*\0\0", 6)));
}

TEST(Companion, NamesWhatDidNotStart)
{
    const CodePage japanese(932);
    LaunchInfo info;
    info.targetKind = TargetKind::document;
    info.plainProgram = "a b.exe";
    info.foundProgram = "C:\\np.exe";
    info.workingDirectory = "C:\\T";
    EXPECT_EQ(CannotStartText(info, japanese),
              "Cannot start:\n\na b.exe\n\nThis program did not start:\n\nC:\\np.exe\n\n"
              "in the folder:\n\nC:\\T");
    info = {};
    for (int count = 0; count < 5000; ++count) {
        info.plainProgram += "\x83\x5C";
    }
    // Whole characters, 300 of them.
    const std::string shown = info.plainProgram.substr(0, 2 * 149) + "..." +
                              info.plainProgram.substr(0, 2 * 148) + "\n\nIt was";
    EXPECT_TRUE(CannotStartText(info, japanese).starts_with("Cannot start:\n\n" + shown));
}

TEST(TroubleTicket, NamesTheSystems)
{
    TicketFields fields;
    fields.counts[existingWorkstations] = "007";
    fields.workstations.fill(true);
    fields.problem = "Not";
    const std::string hardware =
        "\r\nServers: 0, 0, \r\nWorkstations: 007, 0, 98-Me-2000-NT 4.0-XP-Other\r\nNot\r\n";
    EXPECT_NE(BuildTicket(fields, "", "").find(hardware), std::string::npos);
}

} // namespace
} // namespace nv
