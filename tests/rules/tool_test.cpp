#include "docs/menu_line.h"
#include "fakes/fake_files.h"
#include "fakes/fake_shell.h"
#include "platform/system_colors.h"
#include "tool/tool.h"
#include "tool/tool_text.h"

#include <gtest/gtest.h>

namespace nv
{
namespace
{

using Strings = std::vector<std::string>;

// A line as the program writes it, but for one piece.
std::string Line(const std::string& old = "", const std::string& piece = "")
{
    MenuItem item;
    item.type = ItemType::vLabel;
    item.caption = "cap";
    std::string line = EncodeLine(item);
    const auto at = line.find(old);
    EXPECT_NE(at, std::string::npos) << old;
    return line.replace(at, old.size(), piece);
}

std::string LinkLine(const std::string& command)
{
    MenuItem item;
    item.type = ItemType::vLink;
    item.link = command;
    return EncodeLine(item);
}

class ToolTest : public testing::Test, protected ToolOutput
{
protected:
    // Runs the tool; its exit code.
    int Run(const Strings& arguments, CodePage codePage = CodePage())
    {
        written_.clear();
        complaints_.clear();
        const auto expand = [](const std::string& text) {
            const auto name = text.find("%C%");
            return name == std::string::npos ? text : std::string(text).replace(name, 3, "C:");
        };
        return RunTool(ReadArguments(arguments, files_, codePage),
                       {files_, shell_, *this, codePage, Font(), "C:\\Menus", "1.2.3", expand});
    }
    SystemError Write(std::string_view text) override
    {
        written_ += text;
        return outputError_;
    }
    void Complain(std::string_view text) override { complaints_ += text; }

    FakeFiles files_;
    FakeShell shell_;
    SystemError outputError_ = 0;
    std::string written_;
    std::string complaints_;
};

TEST_F(ToolTest, RefusesWhatMakesNoSense)
{
    const struct {
        Strings arguments;
        std::string complaint;
    } cases[] = {
        {{}, "no command is given"},
        {{"chek", "a.nvm"}, "there is no command \"chek\""},
        {{"check"}, "no file is given"},
        {{"check", ""}, "the name of a file is empty"},
        {{"list", "--no-links", "a.nvm"}, "the option \"--no-links\" does not belong here"},
        {{"list", "-x\n"}, "the option \"-x^x0A\" does not belong here"},
        {{"import"}, "no folder is given"},
        {{"import", "C:\\a", "C:\\b"}, "more than one folder is given"},
        {{"import", "C:\\a", "-o"}, "no file is given to write to"},
        {{"import", "C:\\a", "--force"}, "no file is given to write to"},
    };
    for (const auto& each : cases) {
        EXPECT_EQ(Run(each.arguments), 2) << each.complaint;
        EXPECT_EQ(complaints_, "nvmtool: " + each.complaint + "; see nvmtool --help\r\n");
        EXPECT_EQ(written_, "");
    }
    for (const char* help : {"--help", "-h", "/?"}) {
        EXPECT_EQ(Run({"import", help}), 0);
        EXPECT_NE(written_.find("nvmtool import FOLDER"), std::string::npos);
    }
    EXPECT_EQ(Run({"--version"}), 0);
    EXPECT_EQ(written_, "nvmtool 1.2.3\r\n");
    outputError_ = 112;
    files_.Put("C:\\a.nvm", Line());
    EXPECT_EQ(Run({"list", "C:\\a.nvm"}), 2); // writes twice, and tells it once
    EXPECT_EQ(complaints_, "nvmtool: cannot write the output: <112>\r\n");
}

TEST_F(ToolTest, FindsWhatALineLoses)
{
    const std::string whole = Line() + "\r\n";
    const struct {
        std::string content;
        Strings findings; // "LINE: text"
    } cases[] = {
        {"", {}},
        {Line("cap", "a < b <i>") + "\r\n", {}},
        {Line() + "\n" + Line() + "\r" + whole,
         {"1: the line ends with LF alone, without CR",
          "2: the line ends with CR alone, without LF"}},
        // A stored line break takes one byte of the file, and two of the line.
        {Line("cap", "\x01\x01") + "\n" + whole, {"1: the line ends with LF alone, without CR"}},
        {"\xEF\xBB\xBF" + Line() + "\n",
         {"1: the file begins with a byte-order mark, which is not read and not saved",
          "1: the line ends with LF alone, without CR"}},
        {"\r\n" + whole, {"1: the line is empty: an entry that is not shown"}},
        {std::string("\0<x>\r\n", 6), {"1: no entry can be read from \"^x00<x>\""}},
        {Line("2>", "12>") + "\r\n", {"1: \"12>\" is read as type 1"}},
        {Line("2>", "7>") + "\r\n", {"1: there is no type 7: the entry is not shown"}},
        {Line("<LINK></LINK>", "<link>x</link>") + "\r\n",
         {"1: missing: LINK", "1: not read: \"<link>x</link>\""}},
        {Line("cap<", "cap</CAPTION>B<") + "\r\n", {"1: not read: \"B</CAPTION>\""}},
        {Line("<LINK>", "<CAPTION>B</CAPTION> <LINK>") + "\r\n",
         {"1: not read: \"<CAPTION>B</CAPTION>\""}},
        {Line("<LINK></LINK>", "<LINK>x") + "\r\n",
         {"1: LINK has no </LINK>: all the rest of the line is its value"}},
        {Line("cap", "see <LINK>") + "\r\n", {"1: LINK is read from within CAPTION"}},
        // Reads and writes the same; only a change of the font shows that a tag is lost.
        {Line("cap", "<FONTBOLD>False</FONTBOLD>") + "\r\n",
         {"1: FONTBOLD is read from within CAPTION",
          "1: not read: \"<FONTBOLD>False</FONTBOLD>\""}},
        {Line(">8<", ">8.5<") + "\r\n", {"1: FONTSIZE \"8.5\" is read as \"8\""}},
        {Line("D>False", "D>false") + "\r\n", {"1: FONTBOLD \"false\" is read as \"False\""}},
        {Line("Tahoma", "") + "\r\n", {"1: FONTNAME \"\" is read as \"Tahoma\""}},
        {Line("cap", "a\x1A") + "\r\n",
         {"1: the character with code 26 will be saved as a line break"}},
        {Line("> <L", "><L") + "\r\n",
         {"1: the tags do not stand in their order, or not one blank apart"}},
        {Line() + " " + std::string(200, 'x') + "\r\n",
         {"1: not read: \"" + std::string(100, 'x') + "...\""}},
    };
    for (const auto& each : cases) {
        SCOPED_TRACE(each.content);
        files_.Put("C:\\Here\\my menu.nvm", each.content);
        std::string expected;
        for (const std::string& finding : each.findings) {
            expected += "my menu.nvm:" + finding + "\r\n";
        }
        EXPECT_EQ(Run({"check", "my menu.nvm"}), each.findings.empty() ? 0 : 1);
        EXPECT_EQ(written_, expected);
        EXPECT_EQ(complaints_, "");
    }
}

TEST_F(ToolTest, LooksForTheTargetsOfLinks)
{
    shell_.answers = {{"C:\\tool.exe", "C:\\tool.exe"}, {"C:\\a.txt", "C:\\edit.exe"}};
    files_.Put("C:\\Sub menu.nvm", "");
    files_.Put("C:\\a.unknown", "");
    files_.Put("C:\\a.lnk", "");
    files_.MakeFolder("C:\\Work");
    const struct {
        std::string command;
        std::string finding;
    } cases[] = {
        {"\"C:\\tool.exe\" /NV+ C:\\Work", ""},
        {"C:\\tool.exe /NV C:\\Gone", "the folder to start in is not found: \"C:\\Gone\""},
        {"C:\\a.txt", ""},
        {"C:\\gone.exe -x", "the target is not found: \"C:\\gone.exe\""},
        {"\\gone.exe", "the target is not found: \"C:\\gone.exe\""},
        {"C:\\My Files\\a.txt", "the target is not found: \"C:\\My\""},
        {"C:\\a.unknown", "no program opens files of this kind: \"C:\\a.unknown\""},
        {"C:\\a.lnk", ""},
        {"C:\\Work", ""},
        {"https://example.com/a", ""},
        {"C:\\Sub menu.nvm", ""},
        {"\"C:\\Sub menu.nvm\"", ""},
        {"C:\\Gone menu.nvm", "the menu is not found: \"C:\\Gone menu.nvm\""},
        {"\"Sub.nvm\" /NV+ C:\\Work", "the menu is not found: \"Sub.nvm\""},
        {"tool.exe Sub.NVM", "the menu is not found: \"tool.exe Sub.NVM\""},
        {"C:\\tool.exe \"Sub.nvm\"", ""},
        {"C:\\Sub.nvmx", "the target is not found: \"C:\\Sub.nvmx\""},
        {"h323+a-b:c", ""},
        {"x1:" + std::string(2044, 'a'), ""},
        {"x1:" + std::string(2045, 'a'),
         "the address is too long: \"x1:" + std::string(97, 'a') + "...\""},
        {"NVSUB %C%\\tool.exe x", ""},
        {"NVSUB C:\\a.lnk /NV C:\\Work", ""},
        {"NVSUB C:\\tool.exe /NV %C%\\Work", "the folder to start in is not found: \"%C%\\Work\""},
        {"\"NVSub\" C:\\gone.exe", "the target is not found: \"C:\\gone.exe\""},
        {"NVSUB", "the link names nothing to run"},
        {" ", "the link names nothing to run"},
        {"/NV+", "the link names nothing to run"},
        {std::string("a\0\tb", 4), "the target is not found: \"a^x00^tb\""},
    };
    for (const auto& each : cases) {
        SCOPED_TRACE(each.command);
        files_.Put("C:\\a.nvm", LinkLine(each.command) + "\r\n");
        EXPECT_EQ(Run({"check", "C:\\a.nvm"}), each.finding.empty() ? 0 : 1);
        EXPECT_EQ(written_, each.finding.empty() ? "" : "C:\\a.nvm:1: " + each.finding + "\r\n");
        EXPECT_EQ(Run({"check", "--no-links", "C:\\a.nvm"}), 0);
    }
    for (const std::string& call : shell_.calls) {
        EXPECT_TRUE(call.starts_with("find ")) << call; // asked, never started
    }
    shell_.calls.clear();
    const std::string twice = LinkLine("C:\\tool.exe -x") + "\r\n";
    files_.Put("C:\\a.nvm", twice + LinkLine("C:\\tool.exe /NV+") + "\r\n" + twice);
    EXPECT_EQ(Run({"check", "C:\\a.nvm"}), 0);
    EXPECT_EQ(shell_.calls.size(), 1u); // a question takes a millisecond, a menu has thousands
}

TEST_F(ToolTest, TakesWildcardsAndGoesOnAfterFailures)
{
    files_.Put("C:\\m\\b.nvm", Line());
    files_.Put("C:\\m\\A.nvm", Line());
    files_.Put("C:\\m\\c.nvm", "");
    files_.Put("C:\\m\\d.nvm~", Line());
    files_.Put("C:\\m\\sub\\e.nvm", Line());
    files_.Find("C:\\m\\c.nvm")->refused = kSharingViolation;
    const std::string tail = ".nvm:1: the line ends without CR LF\r\n";
    files_.MakeFolder("C:\\m");
    EXPECT_EQ(
        Run({"check", "C:\\m", "C:\\m\\none.nvm", "C:\\m\\*.nvm", "C:\\x\\*.nvm", "C:\\m\\b.nvm"}),
        2);
    EXPECT_EQ(written_, "C:\\m\\A" + tail + "C:\\m\\b" + tail + "C:\\m\\b" + tail);
    EXPECT_EQ(complaints_, "nvmtool: cannot read C:\\m: it is a folder\r\n"
                           "nvmtool: cannot read C:\\m\\none.nvm: <2>\r\n"
                           "nvmtool: cannot read C:\\m\\c.nvm: <32>\r\n"
                           "nvmtool: no file matches C:\\x\\*.nvm\r\n");
}

TEST_F(ToolTest, ListsEntries)
{
    MenuItem item;
    item.type = ItemType::vLink;
    item.caption = "Two\x01lines\tand ^ \x7F";
    item.link = "\"C:\\new\\tool.exe\" -x";
    item.font = {"Arial", 10, true, false, true, false, 238};
    item.fontColor = -5;
    files_.Put("C:\\Here\\a.nvm", Line("cap", "one\x01two") + "\r\n" + EncodeLine(item) + "\r\n9>");
    EXPECT_EQ(Run({"list", "a.nvm"}), 0);
    EXPECT_EQ(written_,
              "File\tLine\tType\tCaption\tCommand\tFont\tSize\tBold\tItalic\tStrikethrough\t"
              "Underline\tColor\tCharset\r\n"
              "a.nvm\t1\tvLabel\tone^ntwo\t\tTahoma\t8\tFalse\tFalse\tFalse\tFalse\t0\t0\r\n"
              "a.nvm\t2\tvLink\tTwo^nlines^tand ^^ ^x7F\t\"C:\\new\\tool.exe\" -x\tArial\t10\tTrue"
              "\tFalse\tTrue\tFalse\t-5\t238\r\n"
              "a.nvm\t3\t9\t\t\tTahoma\t8\tFalse\tFalse\tFalse\tFalse\t0\t0\r\n");
}

TEST_F(ToolTest, MakesAMenuOfAFolder)
{
    files_.MakeFolder("C:\\My Tools");
    files_.MakeFolder("C:\\My Tools\\");
    files_.Put("C:\\My Tools\\desktop.ini", "");
    files_.Find("C:\\My Tools\\desktop.ini")->hidden = true;
    std::string links;
    for (const auto& [caption, name] : {std::pair(".profile", ".profile"),
                                        {"Alpha", "Alpha.lnk"},
                                        {"beta two.tar", "beta two.tar.gz"},
                                        {"Sub", "Sub.NVM"},
                                        {"zip", "zip.exe"}}) {
        const std::string path = std::string("C:\\My Tools\\") + name;
        files_.Put(path, "");
        links += EncodeLine({ItemType::vLink, caption, '"' + path + '"', Font(), SystemColor(8)}) +
                 "\r\n";
    }
    EXPECT_EQ(Run({"import", "C:\\My Tools\\"}), 0);
    const auto titleEnd = written_.find("\r\n") + 2;
    EXPECT_TRUE(written_.starts_with("1><CAPTION>My Tools</CAPTION> <LINK></LINK> "));
    EXPECT_EQ(written_.substr(titleEnd), links);

    // Into the folder itself, twice: the menu does not list itself.
    const std::string menu = written_;
    const Strings import = {"import", "C:\\My Tools", "-o", "C:\\My Tools\\all.nvm"};
    EXPECT_EQ(Run(import), 0);
    EXPECT_EQ(written_, "");
    EXPECT_EQ(files_.Contents("C:\\My Tools\\all.nvm"), menu);
    files_.Put("C:\\My Tools\\all.nvm", "precious");
    EXPECT_EQ(Run(import), 2);
    EXPECT_EQ(files_.Contents("C:\\My Tools\\all.nvm"), "precious");
    EXPECT_EQ(complaints_,
              "nvmtool: C:\\My Tools\\all.nvm is there already; --force replaces it\r\n");
    Strings forced = import;
    forced.push_back("--force");
    EXPECT_EQ(Run(forced), 0);
    EXPECT_EQ(files_.Contents("C:\\My Tools\\all.nvm"), menu);

    // What the program itself would have written, and every link but the unknown is found.
    EXPECT_EQ(Run({"check", "--no-links", "C:\\My Tools\\all.nvm"}), 0);
}

TEST_F(ToolTest, ImportsOrSaysWhyNot)
{
    files_.MakeFolder("C:\\Tools");
    files_.Put("C:\\Tools\\a.exe", "");
    EXPECT_EQ(Run({"import", "C:\\Tools\\a.exe"}), 2);
    EXPECT_EQ(complaints_, "nvmtool: there is no folder C:\\Tools\\a.exe\r\n");
    EXPECT_EQ(Run({"import", "C:\\Tools"}), 0);
    EXPECT_NE(written_.find("<LINK>C:\\Tools\\a.exe</LINK>"), std::string::npos);
    // The disk is full: nothing is left of the new file, and the old one stays.
    files_.room = 10;
    EXPECT_EQ(Run({"import", "C:\\Tools", "-o", "new.nvm"}), 2);
    EXPECT_EQ(complaints_, "nvmtool: cannot write C:\\Here\\new.nvm: <112>\r\n");
    EXPECT_EQ(files_.Contents("C:\\Here\\new.nvm"), "(none)");
    files_.Put("C:\\Here\\old.nvm", "old");
    EXPECT_EQ(Run({"import", "C:\\Tools", "-o", "old.nvm", "--force"}), 2);
    EXPECT_EQ(files_.Contents("C:\\Here\\old.nvm"), "old");
    // The listing gives "?" for what the code page has not.
    files_.room = SIZE_MAX;
    files_.Put("C:\\Tools\\b.exe", "");
    files_.Find("C:\\Tools\\b.exe")->name = "?.exe";
    EXPECT_EQ(Run({"import", "C:\\Tools"}), 1);
    EXPECT_EQ(complaints_, "nvmtool: left out, as no menu can name it: ?.exe\r\n");
    EXPECT_EQ(written_.find("?.exe"), std::string::npos);
}

} // namespace
} // namespace nv
