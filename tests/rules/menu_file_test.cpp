// The lines of a Menu file: how they are found in it and kept.
#include "docs/line_reader.h"
#include "fakes/fake_files.h"
#include "fakes/fake_pump.h"

#include <gtest/gtest.h>

namespace nv
{
namespace
{

const char kPath[] = "C:\\Start.nvm";
using Texts = std::vector<std::string>;

Texts TextsOf(const MenuLines& lines)
{
    Texts texts;
    for (std::size_t index = 0; index < lines.size(); ++index) {
        texts.emplace_back(lines[index]);
    }
    return texts;
}

Texts ReadTexts(const std::string& contents, std::size_t piece = SIZE_MAX)
{
    FakeFiles files;
    files.readPiece = piece;
    files.Put(kPath, contents);
    SystemError error = 0;
    const auto file = files.Open(kPath, OpenMode::read, error);
    MenuLines lines;
    FakePump pump;
    EXPECT_EQ(ReadMenuLines(*file, lines, pump, error), ReadOutcome::whole);
    EXPECT_EQ(pump.calls, static_cast<int>(lines.size()));
    return TextsOf(lines);
}

TEST(MenuFile, IsReadLineByLine)
{
    using std::string_literals::operator""s;
    const std::pair<std::string, Texts> cases[] = {
        {"", {}},
        {"one\r\n", {"one"}},
        {"one\r\ntwo\r\n", {"one", "two"}},
        {"one\rtwo\r", {"one", "two"}},
        {"one\ntwo", {"one", "two"}},
        {"\r\r\n\n", {"", "", ""}},
        {"one\n\rtwo", {"one", "", "two"}},
        {"a line\x01of\x01\x01three breaks\r\nnone\r\n",
         {"a line\r\nof\r\n\r\nthree breaks", "none"}},
        {"stays \x1A\t\x1F\x02 as it is\r\n\x1A", {"stays \x1A\t\x1F\x02 as it is", "\x1A"}},
        {"N\0L\r\n\0"s, {"N\0L"s, "\0"s}},
        {"\xFF\x80\xE9 high bytes \x7F\r\n\xA0", {"\xFF\x80\xE9 high bytes \x7F", "\xA0"}},
    };
    for (const auto& [contents, texts] : cases) {
        for (const std::size_t piece : {std::size_t{1}, std::size_t{2}, std::size_t{7}, SIZE_MAX}) {
            EXPECT_EQ(ReadTexts(contents, piece), texts) << contents << " by " << piece;
        }
    }
}

// Blocks are a quarter of a megabyte: line ends, stored breaks and long lines across the end of
// one.
TEST(MenuFile, IsReadOverTheEndsOfBlocks)
{
    constexpr std::size_t kBlock = std::size_t{256} * 1024;
    const Texts ends = {"\r\n", "\r", "\n", "\x01\r\n"};
    for (const std::string& end : ends) {
        const std::string tail = end.front() == '\x01' ? "\r\n" : "";
        for (std::size_t length = kBlock - 3; length <= kBlock; ++length) {
            const std::string line(length, 'x');
            EXPECT_EQ(ReadTexts(line + end + "next"), (Texts{line + tail, "next"})) << length;
        }
    }
    const std::string huge(5 * kBlock + 77, 'y');
    EXPECT_EQ(ReadTexts("a\r\n" + huge + "\r\nb\r\n" + huge), (Texts{"a", huge, "b", huge}));
}

TEST(MenuFile, EndsWhereReadingFailsOrIsNoLongerWanted)
{
    struct Case {
        int endAt;  // line
        int failAt; // operation: opening, the first reading, the second
        ReadOutcome outcome;
        std::size_t lines;
    };
    const Case cases[] = {{1, 0, ReadOutcome::ended, 1},
                          {3, 0, ReadOutcome::ended, 3},
                          {0, 2, ReadOutcome::failed, 0},
                          {0, 3, ReadOutcome::failed, 2}};
    for (const Case& c : cases) {
        FakeFiles files;
        files.Put(kPath, "one\r\ntwo\r\nlast");
        files.failAt = c.failAt;
        SystemError error = 0;
        const auto file = files.Open(kPath, OpenMode::read, error);
        MenuLines lines;
        FakePump pump;
        pump.endAt = c.endAt;
        EXPECT_EQ(ReadMenuLines(*file, lines, pump, error), c.outcome);
        EXPECT_EQ(lines.size(), c.lines);
        EXPECT_EQ(error, c.outcome == ReadOutcome::failed ? files.failure : 0);
    }
}

TEST(MenuLines, KeepEveryTextUntilTheyAreCleared)
{
    MenuLines lines;
    Texts expected;
    for (std::size_t length = 0; length < 40000; length += 997) {
        expected.emplace_back(length, static_cast<char>('a' + length % 26));
        lines.Append(expected.back());
    }
    EXPECT_EQ(TextsOf(lines), expected);
    const std::string_view before = lines[7];
    lines.Set(7, std::string(before) + "!");
    EXPECT_EQ(lines[7], expected[7] + "!");
    EXPECT_EQ(before, expected[7]); // what a view of the old text still shows
    lines.Clear();
    lines.Append("new");
    EXPECT_EQ(TextsOf(lines), Texts{"new"});
}

} // namespace
} // namespace nv
