// Links that start real programs, with and without the companion launcher.
#include "mainwindow/shell_exe.h"
#include "win32/handles.h"
#include "win32/win_shell.h"

#include <windows.h>

#include <objbase.h>

#include <cstdio>
#include <fstream>
#include <functional>
#include <gtest/gtest.h>
#include <optional>
#include <string>

namespace nv
{
namespace
{

constexpr DWORD kDeadline = 30000;

bool WaitUntil(const std::function<bool()>& holds)
{
    const ULONGLONG end = GetTickCount64() + kDeadline;
    while (!holds()) {
        if (GetTickCount64() > end) {
            return false;
        }
        Sleep(2);
    }
    return true;
}

// How a program was started, as the recorder wrote it down.
struct Record {
    std::string commandLine;
    std::string folder;
    std::string title;
    std::string show;
    std::string flags;
    std::string fill;

    // The two start calls leave different traces.
    const char* StartedBy() const { return fill == "16" ? "process" : "shell"; }
};

std::string FolderOfTests()
{
    char path[MAX_PATH] = "";
    GetModuleFileNameA(nullptr, path, sizeof path);
    const std::string own = path;
    return own.substr(0, own.rfind('\\'));
}

std::string Quoted(const std::string& text)
{
    return '"' + text + '"';
}

void SetDefault(const std::string& key, const std::string& value)
{
    ASSERT_EQ(RegSetValueA(HKEY_CLASSES_ROOT, key.c_str(), REG_SZ, value.c_str(), 0), 0) << key;
}

// A folder of its own with recorders, a folder whose name has a blank, a document, and a type of
// document that the recorder opens.
class LinkLaunch : public testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(SUCCEEDED(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED)));
        char temp[MAX_PATH] = "";
        GetTempPathA(sizeof temp, temp);
        const std::string number = std::to_string(GetCurrentProcessId());
        folder_ = std::string(temp) + "nvlaunch" + number;
        blanks_ = folder_ + "\\with blank";
        extension_ = ".rq" + number;
        CreateDirectoryA(folder_.c_str(), nullptr);
        CreateDirectoryA(blanks_.c_str(), nullptr);
        recorder_ = folder_ + "\\rec.exe";
        spacedRecorder_ = blanks_ + "\\rec order.exe";
        const std::string built = FolderOfTests() + "\\recorder.exe";
        ASSERT_TRUE(CopyFileA(built.c_str(), recorder_.c_str(), FALSE)) << built;
        ASSERT_TRUE(CopyFileA(built.c_str(), spacedRecorder_.c_str(), FALSE));
        SetDefault(extension_, "recorded" + number);
        SetDefault("recorded" + number + "\\shell\\open\\command", Quoted(recorder_) + " \"%1\"");
        document_ = folder_ + "\\a" + extension_;
        spacedDocument_ = blanks_ + "\\b c" + extension_;
        std::ofstream(document_) << "x";
        std::ofstream(spacedDocument_) << "x";
        SetCurrentDirectoryA(folder_.c_str());
        record_ = folder_ + "\\record";
        SetEnvironmentVariableA("NAVRIX_RECORD", record_.c_str());
    }

    void TearDown() override
    {
        SetCurrentDirectoryA("C:\\");
        RegDeleteTreeA(HKEY_CLASSES_ROOT, extension_.c_str());
        RegDeleteTreeA(HKEY_CLASSES_ROOT, ("recorded" + extension_.substr(3)).c_str());
        for (const std::string& path :
             {recorder_, spacedRecorder_, document_, spacedDocument_, folder_ + "\\NVSub.exe"}) {
            // A program that has just ended may still be open for a moment.
            WaitUntil([&] {
                return DeleteFileA(path.c_str()) ||
                       GetFileAttributesA(path.c_str()) == INVALID_FILE_ATTRIBUTES;
            });
        }
        RemoveDirectoryA(blanks_.c_str());
        RemoveDirectoryA(folder_.c_str());
        CoUninitialize();
    }

    LaunchInfo Start(const std::string& command, const std::string& title = "")
    {
        return shellExe().LaunchCommand(0, command, title, true);
    }

    ShellExe shellExe() { return ShellExe(shell_, folder_); }

    // The record of what was started last; taken once.
    std::optional<Record> TakeRecord()
    {
        // It cannot be opened in the very moment in which it gets its name.
        std::ifstream file;
        if (!WaitUntil([&] {
                file.open(record_, std::ios::binary);
                return file.is_open();
            })) {
            ADD_FAILURE() << "nothing was started";
            return std::nullopt;
        }
        Record record;
        for (std::string* field : {&record.commandLine, &record.folder, &record.title, &record.show,
                                   &record.flags, &record.fill}) {
            std::getline(file, *field);
        }
        file.close();
        EXPECT_TRUE(WaitUntil([this] { return DeleteFileA(record_.c_str()) != 0; }));
        return record;
    }

    // What command starts, and how.
    void ExpectStart(const std::string& command, const std::string& commandLine, const char* by,
                     const std::string& folder, const char* show)
    {
        EXPECT_TRUE(Start(command).started) << command;
        const auto record = TakeRecord();
        ASSERT_TRUE(record) << command;
        EXPECT_EQ(record->commandLine, commandLine) << command;
        EXPECT_STREQ(record->StartedBy(), by) << command;
        EXPECT_EQ(record->folder, folder) << command;
        EXPECT_EQ(record->show, show) << command;
        EXPECT_EQ(record->flags, "1") << command;
        if (std::string(by) == "process") {
            EXPECT_EQ(record->title, folder) << command;
        }
    }

    void InstallCompanion()
    {
        const std::string built = FolderOfTests() + "\\" COMPANION_FROM_TESTS;
        const std::string here = folder_ + "\\NVSub.exe";
        ASSERT_TRUE(CopyFileA(built.c_str(), here.c_str(), FALSE)) << built;
    }

    WinShell shell_;
    std::string folder_;
    std::string blanks_;
    std::string recorder_;
    std::string spacedRecorder_;
    std::string extension_;
    std::string document_;
    std::string spacedDocument_;
    std::string record_;
};

TEST_F(LinkLaunch, StartsProgramsAndDocuments)
{
    const std::string program = Quoted(recorder_);
    const std::string spaced = Quoted(spacedRecorder_);
    struct Case {
        std::string command;
        std::string commandLine;
        const char* by;
        std::string folder;
        const char* show;
    };
    // The shell puts a blank of its own between a program and its parameters.
    const Case cases[] = {
        {recorder_, program, "shell", folder_, "1"},
        {recorder_ + " a \"b c\"", program + "  a \"b c\"", "shell", folder_, "1"},
        {spaced + " -x", spaced + "  -x", "shell", folder_, "1"},
        {"rec.exe a", program + "  a", "shell", folder_, "1"},
        {recorder_ + " a /NV", program + "  a", "shell", folder_, "1"},
        {recorder_ + " a /NV+", program + "  a", "shell", folder_, "3"},
        {spaced + " a /nv-", spaced + "  a", "shell", folder_, "2"},
        {recorder_ + " a /NV " + blanks_, program + " a", "process", blanks_, "1"},
        {recorder_ + " a /NV+" + blanks_, program + " a", "process", blanks_, "3"},
        {spaced + " a b /NV- " + blanks_, spaced + " a b", "process", blanks_, "2"},
        {document_, program + " " + document_, "shell", folder_, "1"},
        {document_ + " x /NV+", program + " " + document_ + " x", "shell", folder_, "3"},
        {Quoted(spacedDocument_) + " x", program + " " + Quoted(spacedDocument_) + " x", "shell",
         folder_, "1"},
        {Quoted(spacedDocument_) + " /NV-" + blanks_, program + " " + Quoted(spacedDocument_),
         "process", blanks_, "2"},
    };
    for (const Case& c : cases) {
        ExpectStart(c.command, c.commandLine, c.by, c.folder, c.show);
    }
}

TEST_F(LinkLaunch, GivesAProcessItsTitle)
{
    EXPECT_TRUE(Start(recorder_ + " x /NV-" + blanks_, "My title").started);
    const auto record = TakeRecord();
    ASSERT_TRUE(record);
    EXPECT_EQ(record->title, "My title");
    EXPECT_EQ(record->folder, blanks_);
}

TEST_F(LinkLaunch, TriesAgainOnTheProgramsDrive)
{
    if (!SetCurrentDirectoryA("Z:\\")) {
        GTEST_SKIP() << "needs a second drive";
    }
    const std::string path = spacedRecorder_.substr(2); // begins with a backslash
    ExpectStart(Quoted(path) + " x", Quoted(spacedRecorder_) + "  x", "shell", "Z:\\", "1");
    ExpectStart(recorder_.substr(2), Quoted(recorder_), "shell", "Z:\\", "1");
}

TEST_F(LinkLaunch, StartsNothing)
{
    const std::string unknown = folder_ + "\\a.unknown" + extension_.substr(3);
    std::ofstream(unknown) << "x";
    const std::string commands[] = {
        "",
        "   ",
        "/NV+",
        " /nv- C:\\ ",
        folder_ + "\\missing.exe",
        folder_ + "\\missing.exe /NV+ " + blanks_,
        folder_ + "\\missing" + extension_,
        unknown + " x",
        unknown + " x /NV- " + blanks_,
        recorder_ + " /NV+ " + folder_ + "\\missing",
        std::string(5000, 'x'),
        Quoted(std::string(5000, 'x')) + " a",
        std::string(5000, 'x') + " /NV+ " + blanks_,
    };
    for (const std::string& command : commands) {
        EXPECT_FALSE(Start(command).started) << command;
    }
    DeleteFileA(unknown.c_str());
    // What had been started would have left its record in place of this one's.
    EXPECT_TRUE(Start(recorder_ + " last").started);
    const auto record = TakeRecord();
    ASSERT_TRUE(record);
    EXPECT_EQ(record->commandLine, Quoted(recorder_) + "  last");
}

TEST_F(LinkLaunch, PassesLongArgumentsWhole)
{
    std::string arguments = " ";
    while (arguments.size() + recorder_.size() < 5000) {
        arguments += std::to_string(arguments.size()) + " ";
    }
    arguments += "end";
    ExpectStart(recorder_ + arguments, Quoted(recorder_) + " " + arguments, "shell", folder_, "1");
    ExpectStart(recorder_ + arguments + " /NV+ " + blanks_, Quoted(recorder_) + arguments,
                "process", blanks_, "3");
}

TEST_F(LinkLaunch, RunsTheCompanion)
{
    InstallCompanion();
    SetEnvironmentVariableA("NAVRIX_FOLDER", blanks_.c_str());
    SetEnvironmentVariableA("NAVRIX_WORD", "some words");
    const std::string spaced = Quoted(spacedRecorder_);
    struct Case {
        std::string command;
        std::string commandLine;
        const char* by;
        std::string folder;
        const char* show;
    };
    const Case cases[] = {
        {"NVSUB " + recorder_ + " a", Quoted(recorder_) + "  a", "shell", folder_, "1"},
        {"nvsub \"%NAVRIX_FOLDER%\\rec order.exe\" %navrix_word% %NO_SUCH% 100%",
         spaced + "  some words %NO_SUCH% 100%", "shell", folder_, "1"},
        // The menu takes the switch off; the companion's own show state hands it on.
        {"NVSUB " + recorder_ + " a /NV+", Quoted(recorder_) + "  a", "shell", folder_, "3"},
        {"\"NVSUB\" " + spaced + " a /NV-", spaced + "  a", "shell", folder_, "2"},
        {"NVSUB " + recorder_ + " a /NV- " + blanks_, Quoted(recorder_) + "  a", "shell", blanks_,
         "2"},
        {"NVSUB " + document_ + " x", Quoted(recorder_) + " " + document_ + " x", "shell", folder_,
         "1"},
    };
    for (const Case& c : cases) {
        ExpectStart(shellExe().ExpandLauncher(0, c.command), c.commandLine, c.by, c.folder, c.show);
    }
}

// NVSub.exe as another program would start it.
class CompanionProcess
{
public:
    CompanionProcess(const std::string& program, const std::string& arguments)
    {
        std::string commandLine = Quoted(program) + arguments;
        STARTUPINFOA startup = {};
        startup.cb = sizeof startup;
        PROCESS_INFORMATION process = {};
        if (CreateProcessA(nullptr, commandLine.data(), nullptr, nullptr, FALSE, 0, nullptr,
                           nullptr, &startup, &process)) {
            CloseHandle(process.hThread);
            process_.Reset(process.hProcess);
            id_ = process.dwProcessId;
        }
    }
    // One that waits for an answer would keep the test run waiting.
    ~CompanionProcess() { TerminateProcess(process_.Get(), 99); }

    // The message box it shows.
    HWND Box()
    {
        WaitUntil([this] { return FindBox() != nullptr; });
        return FindBox();
    }

    DWORD ExitCode()
    {
        DWORD code = 0;
        WaitForSingleObject(process_.Get(), kDeadline);
        GetExitCodeProcess(process_.Get(), &code);
        return code;
    }

private:
    HWND FindBox()
    {
        HWND box = nullptr;
        while ((box = FindWindowExA(nullptr, box, "#32770", nullptr)) != nullptr) {
            DWORD owner = 0;
            GetWindowThreadProcessId(box, &owner);
            if (owner == id_ && IsWindowVisible(box)) {
                return box;
            }
        }
        return nullptr;
    }

    KernelHandle process_;
    DWORD id_ = 0;
};

std::string TextOf(HWND window)
{
    char text[2000] = "";
    DWORD_PTR length = 0;
    SendMessageTimeoutA(window, WM_GETTEXT, sizeof text, reinterpret_cast<LPARAM>(text),
                        SMTO_ABORTIFHUNG, kDeadline, &length);
    return text;
}

TEST_F(LinkLaunch, TheCompanionSaysWhatItCouldNotStart)
{
    InstallCompanion();
    const std::string companion = folder_ + "\\NVSub.exe";
    const std::string long5000(5000, 'x');
    struct Case {
        std::string arguments;
        std::string textBegins;
    };
    const Case cases[] = {
        {" \"C:\\no such\\thing.exe\" a", "Cannot start:\n\nC:\\no such\\thing.exe\n\n"},
        {" " + long5000, "Cannot start:\n\n" + long5000.substr(0, 300) + "...\n\n"},
        {" " + recorder_ + " /NV+ C:\\missing", "Cannot start:\n\n" + recorder_ + "\n\n"},
        {"", "NVSUB starts the program"},
        {" /NV+", "NVSUB starts the program"},
    };
    for (const Case& c : cases) {
        CompanionProcess process(companion, c.arguments);
        const HWND box = process.Box();
        ASSERT_NE(box, nullptr) << c.arguments;
        EXPECT_EQ(TextOf(box), "Navrix Menu");
        EXPECT_EQ(TextOf(GetDlgItem(box, 0xFFFF)).substr(0, c.textBegins.size()), c.textBegins);
        PostMessageA(box, WM_COMMAND, IDOK, 0);
        EXPECT_EQ(process.ExitCode(), 1u) << c.arguments;
    }
}

TEST_F(LinkLaunch, TheCompanionEndsWellWhenItStarted)
{
    InstallCompanion();
    CompanionProcess process(folder_ + "\\NVSub.exe", " \"" + spacedRecorder_ + "\" a b");
    EXPECT_EQ(process.ExitCode(), 0u);
    const auto record = TakeRecord();
    ASSERT_TRUE(record);
    EXPECT_EQ(record->commandLine, Quoted(spacedRecorder_) + "  a b");
    EXPECT_EQ(record->show, "1");
}

} // namespace
} // namespace nv
