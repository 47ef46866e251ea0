#include "mainwindow/browse.h"

#include <algorithm>
#include <gtest/gtest.h>

namespace nv
{
namespace
{

TEST(Browse, PutsThePathBetweenExactlyTwoQuotes)
{
    struct Case {
        std::string before;
        std::string after;
        std::string expected;
        bool balanced = true;
    };
    const Case cases[] = {
        {"", "", "\"P\""},            // an empty box
        {"", " /x", "\"P\""},         // before arguments
        {"\"", "\"", "P"},            // between two quotes
        {"\"", "", "P\""},            // after the one that opens
        {"", "\"", "\"P"},            // before the one that closes
        {"", "\" \"x\"", "\"P"},      // ... with a quoted part behind it
        {"\"", " \"x\"", "P\""},      // the quotes behind belong together
        {"\"a\" ", "", "\"P\""},      // behind a quoted part
        {"\"a\" \"", "\" b", "P"},    // in the second one
        {"", "\"x\"", "\"P\""},       // before a quoted part
        {"", " x\"", "\"P\"", false}, // a stray quote stays one
    };
    for (const Case& c : cases) {
        const std::string put = QuotedForBox("P", c.before, c.after);
        EXPECT_EQ(put, c.expected) << c.before << '|' << c.after;
        const std::string text = c.before + put + c.after;
        const auto path = std::find(text.begin(), text.end(), 'P');
        EXPECT_EQ(std::count(text.begin(), path, '"') % 2, 1) << text;
        EXPECT_NE(std::find(path, text.end(), '"'), text.end()) << text;
        EXPECT_EQ(std::count(text.begin(), text.end(), '"') % 2 == 0, c.balanced) << text;
    }
}

TEST(Browse, ShowsTheFilterOfTheCommandsExtension)
{
    const std::pair<const char*, int> cases[] = {{"a.nvm", 1},    {"\"C:\\a b.NVM\"", 1},
                                                 {"a.Nvf", 2},    {"\"a.nvf\"", 2},
                                                 {"a.exe", 3},    {"\"a.b.exe\"", 3},
                                                 {"a.exe /x", 4}, {"a.nvm\"\"", 4},
                                                 {"a.txt", 4},    {"nvm", 4},
                                                 {"", 4},         {".\"", 4}};
    for (const auto& [command, filter] : cases) {
        EXPECT_EQ(BrowseFilterIndex(command), filter) << command;
    }
    const std::string filter = BrowseFilter();
    EXPECT_EQ(std::count(filter.begin(), filter.end(), '\0'), 9);
    EXPECT_EQ(filter.substr(filter.size() - 6), std::string("\0*.*\0\0", 6));
}

} // namespace
} // namespace nv
