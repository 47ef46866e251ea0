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

// Line ends, stored breaks and long lines across the end of a block, of which the first is small.
TEST(MenuFile, IsReadOverTheEndsOfBlocks)
{
    constexpr std::size_t kFirst = std::size_t{16} * 1024;
    constexpr std::size_t kBlock = std::size_t{256} * 1024;
    const std::string before(kFirst - 2, 'b'); // with its line end it fills the first block
    const Texts ends = {"\r\n", "\r", "\n", "\x01\r\n"};
    for (const std::string& end : ends) {
        const std::string tail = end.front() == '\x01' ? "\r\n" : "";
        for (std::size_t left = 0; left <= 3; ++left) {
            const std::string first(kFirst - left, 'x');
            EXPECT_EQ(ReadTexts(first + end + "next"), (Texts{first + tail, "next"})) << left;
            const std::string second(kBlock - left, 'x');
            EXPECT_EQ(ReadTexts(before + "\r\n" + second + end + "next"),
                      (Texts{before, second + tail, "next"}))
                << left;
        }
    }
    const std::string huge(5 * kBlock + 77, 'y');
    EXPECT_EQ(ReadTexts("a\r\n" + huge + "\r\nb\r\n" + huge), (Texts{"a", huge, "b", huge}));
}

} // namespace
} // namespace nv
