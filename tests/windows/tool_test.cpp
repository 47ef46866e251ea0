// The built nvmtool.exe, as a command prompt or another program runs it.
#include "scratch_folder.h"

#include <windows.h>

#include <fstream>
#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace nv
{
namespace
{

std::string ToolPath()
{
    char path[MAX_PATH] = "";
    GetModuleFileNameA(nullptr, path, sizeof path);
    const std::string own = path;
    return own.substr(0, own.rfind('\\') + 1) + TOOL_FROM_TESTS;
}

std::string ProgramPath(const std::string& name)
{
    const std::string tool = ToolPath();
    return tool.substr(0, tool.rfind('/') + 1) + name;
}

class Pipe
{
public:
    Pipe()
    {
        SECURITY_ATTRIBUTES inherited = {sizeof inherited, nullptr, TRUE};
        EXPECT_TRUE(CreatePipe(&read_, &write, &inherited, 0));
        SetHandleInformation(read_, HANDLE_FLAG_INHERIT, 0);
    }
    ~Pipe() { CloseHandle(read_); }
    Pipe(const Pipe&) = delete;
    Pipe& operator=(const Pipe&) = delete;

    // All that comes until the other end is closed.
    std::string ReadAll()
    {
        CloseHandle(write);
        std::string text;
        char buffer[4096];
        for (DWORD got = 0; ReadFile(read_, buffer, sizeof buffer, &got, nullptr) && got > 0;) {
            text.append(buffer, got);
        }
        return text;
    }

    HANDLE write = nullptr;

private:
    HANDLE read_ = nullptr;
};

class NvmTool : public testing::Test
{
protected:
    void SetUp() override { CreateDirectoryA((scratch_ / "My menus").c_str(), nullptr); }

    // Starts the tool in the scratch folder; its exit code.
    DWORD Start(const std::string& arguments, HANDLE output, HANDLE error)
    {
        std::string commandLine = '"' + ToolPath() + "\" " + arguments;
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
    // What it writes (little) stands in output_ and error_ then.
    DWORD Run(const std::string& arguments)
    {
        Pipe output;
        Pipe error;
        const DWORD code = Start(arguments, output.write, error.write);
        output_ = output.ReadAll();
        error_ = error.ReadAll();
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
    EXPECT_EQ(Run("check --no-links \"" + ProgramPath("Start.nvm") + "\" \"" +
                  ProgramPath("Samples\\*.nvm") + '"'),
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
    const std::string hidden = Write("My menus\\hidden.txt", "");
    SetFileAttributesA(hidden.c_str(), FILE_ATTRIBUTE_HIDDEN);
    const std::string system = Write("My menus\\system.txt", "");
    SetFileAttributesA(system.c_str(), FILE_ATTRIBUTE_SYSTEM);
    Write("My menus\\read me.exe", "MZ");
    Write("My menus\\Caf\xE9.nvm", "");
    EXPECT_EQ(Run("import \"My menus\\\" -o all.nvm"), 0u) << error_;
    EXPECT_EQ(Run("import \"My menus\\\" -o all.nvm"), 2u);
    EXPECT_EQ(Run("check all.nvm"), 0u) << output_ << error_;
    EXPECT_EQ(Run("list all.nvm"), 0u);
    std::string cells; // type, caption and command
    for (std::size_t at = 0; at < output_.size(); at = output_.find('\n', at) + 1) {
        const auto from = output_.find("\tv", at);
        cells += from == std::string::npos || from > output_.find('\n', at)
                     ? ""
                     : output_.substr(from, output_.find("\tTahoma", from) - from) + '\n';
    }
    EXPECT_EQ(cells, "\tvTitle\tMy menus\t\n"
                     "\tvLink\tCaf\xE9\t\"" +
                         (scratch_ / "My menus\\Caf\xE9.nvm") +
                         "\"\n"
                         "\tvLink\tread me\t\"" +
                         (scratch_ / "My menus\\read me.exe") + "\"\n");

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
