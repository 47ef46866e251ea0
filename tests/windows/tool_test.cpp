// The built nvmtool.exe, as a command prompt or another program runs it.
#include "scratch_folder.h"
#include "win32/handles.h"

#include <windows.h>

#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace nv
{
namespace
{

class NvmTool : public testing::Test
{
protected:
    void SetUp() override { CreateDirectoryA((scratch_ / "My menus").c_str(), nullptr); }

    // Starts the tool in the scratch folder; its exit code.
    DWORD Start(const std::string& arguments, HANDLE output, HANDLE error)
    {
        std::string commandLine = '"' + FromTests(TOOL_FROM_TESTS) + "\" " + arguments;
        STARTUPINFOA startup = {};
        startup.cb = sizeof startup;
        startup.dwFlags = STARTF_USESTDHANDLES;
        startup.hStdOutput = output;
        startup.hStdError = error;
        PROCESS_INFORMATION process = {};
        EXPECT_TRUE(CreateProcessA(nullptr, commandLine.data(), nullptr, nullptr, TRUE, 0, nullptr,
                                   scratch_.Path().c_str(), &startup, &process))
            << commandLine;
        EXPECT_EQ(WaitForSingleObject(process.hProcess, 60000), WAIT_OBJECT_0);
        DWORD code = 99;
        GetExitCodeProcess(process.hProcess, &code);
        CloseHandle(process.hThread);
        CloseHandle(process.hProcess);
        return code;
    }
    // A file that the tool can write to.
    HANDLE Made(const std::string& name) const
    {
        SECURITY_ATTRIBUTES inherited = {sizeof inherited, nullptr, TRUE};
        return CreateFileA((scratch_ / name).c_str(), GENERIC_WRITE,
                           FILE_SHARE_READ | FILE_SHARE_WRITE, &inherited, CREATE_ALWAYS, 0,
                           nullptr);
    }
    // What it writes stands in output_ and error_ then.
    DWORD Run(const std::string& arguments)
    {
        const FileHandle output(Made("output"));
        const FileHandle error(Made("error"));
        const DWORD code = Start(arguments, output.Get(), error.Get());
        output_ = Contents(scratch_ / "output");
        error_ = Contents(scratch_ / "error");
        return code;
    }
    std::string Write(const std::string& name, const std::string& content)
    {
        std::ofstream(scratch_ / name, std::ios::binary) << content;
        return scratch_ / name;
    }

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

    // The program would look for it in its own folder, not in the current one.
    Write("here.nvm", "3><CAPTION></CAPTION> <LINK>all.nvm</LINK>\r\n");
    EXPECT_EQ(Run("check here.nvm"), 1u);
    EXPECT_NE(output_.find("here.nvm:1: the menu is not found: \"all.nvm\"\r\n"), std::string::npos)
        << output_;
}

// The code page of a console is another one than that of menus.
TEST_F(NvmTool, IsRightOnAConsole)
{
    FreeConsole(); // what a test run has for one may have no screen
    ASSERT_TRUE(AllocConsole());
    SECURITY_ATTRIBUTES inherited = {sizeof inherited, nullptr, TRUE};
    const HANDLE screen =
        CreateConsoleScreenBuffer(GENERIC_READ | GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE,
                                  &inherited, CONSOLE_TEXTMODE_BUFFER, nullptr);
    ASSERT_NE(screen, INVALID_HANDLE_VALUE);
    Write("a.nvm", "\xE9\xDF\r\n");
    EXPECT_EQ(Start("check a.nvm", screen, screen), 1u);
    std::wstring row(60, L'\0');
    DWORD got = 0;
    EXPECT_TRUE(ReadConsoleOutputCharacterW(screen, row.data(), 60, {0, 0}, &got));
    EXPECT_TRUE(row.starts_with(L"a.nvm:1: no entry can be read from \"\u00E9\u00DF\""));
    CloseHandle(screen);
    FreeConsole();
}

} // namespace
} // namespace nv
