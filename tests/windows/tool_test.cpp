// The built nvmtool.exe, as a command prompt or another program runs it.
#include "e2e/driver.h"
#include "scratch_folder.h"

#include <gtest/gtest.h>

namespace nv
{
namespace
{

class NvmTool : public testing::Test
{
protected:
    void SetUp() override
    {
        CreateDirectoryA((scratch_ / "My menus").c_str(), nullptr);
        SetCurrentDirectoryA(scratch_.Path().c_str());
    }
    void TearDown() override { SetCurrentDirectoryA("C:\\"); }

    // The exit code; what the tool writes stands in output_ and error_ then.
    DWORD Run(const std::string& arguments)
    {
        const e2e::Program prompt("cmd.exe /c \"\"" + tool_ + "\" " + arguments +
                                  " >output 2>error\"");
        const DWORD code = prompt.ExitCode().value_or(99);
        output_ = Contents(scratch_ / "output");
        error_ = Contents(scratch_ / "error");
        return code;
    }
    void Write(const std::string& name, const std::string& content)
    {
        std::ofstream(scratch_ / name, std::ios::binary) << content;
    }

    const std::string tool_ = FromTests(TOOL_FROM_TESTS);
    ScratchFolder scratch_;
    std::string output_;
    std::string error_;
};

TEST_F(NvmTool, TellsByItsExitCode)
{
    // Menus that ship are as the program writes them; the programs they start differ by machine.
    EXPECT_EQ(Run("check --no-links \"" + FromTests("../program/Start.nvm") + "\" \"" +
                  FromTests("../program/Samples\\*.nvm") + '"'),
              0u);
    EXPECT_EQ(output_ + error_, "");
    EXPECT_EQ(Run("check gone.nvm"), 2u);
    EXPECT_EQ(output_, "");
    EXPECT_TRUE(error_.starts_with("nvmtool: cannot read gone.nvm: ")) << error_;
    EXPECT_EQ(Run("--version"), 0u);
    EXPECT_EQ(output_, "nvmtool 1.0.0\r\n");

    Write("My menus\\b.nvm", "");
    Write("My menus\\a.nvm", "4>\xE9\r\n");
    EXPECT_EQ(Run("check \"My menus\"\\*.nvm"), 1u);
    EXPECT_EQ(output_, "My menus\\a.nvm:1: no entry can be read from \"4>\xE9\"\r\n");
}

TEST_F(NvmTool, ImportsAMenuWhoseLinksAreFound)
{
    Write("My menus\\read me.exe", "MZ");
    Write("My menus\\Caf\xE9.nvm", "");
    EXPECT_EQ(Run("import \"My menus\\\" -o all.nvm"), 0u) << error_;
    EXPECT_EQ(Run("check all.nvm"), 0u) << output_ << error_;
    EXPECT_EQ(Run("list all.nvm"), 0u);
    for (const char* name : {"Caf\xE9.nvm", "read me.exe"}) {
        EXPECT_NE(output_.find("\t\"" + (scratch_ / "My menus\\") + name + "\"\t"),
                  std::string::npos)
            << output_;
    }
}

// The code page of a console is another one than that of menus.
TEST_F(NvmTool, IsRightOnAConsole)
{
    FreeConsole(); // what a test run has for one may have no screen
    ASSERT_TRUE(AllocConsole());
    Write("a.nvm", "\xE9\xDF\r\n");
    EXPECT_EQ(e2e::Program('"' + tool_ + "\" check a.nvm").ExitCode(), 1u);
    const HANDLE screen = GetStdHandle(STD_OUTPUT_HANDLE);
    std::wstring row(60, L'\0');
    DWORD got = 0;
    EXPECT_TRUE(ReadConsoleOutputCharacterW(screen, row.data(), 60, {0, 0}, &got));
    EXPECT_TRUE(row.starts_with(L"a.nvm:1: no entry can be read from \"\u00E9\u00DF\""));
    FreeConsole();
}

} // namespace
} // namespace nv
