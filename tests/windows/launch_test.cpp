// Links that start real programs, with and without the companion launcher.
#include "e2e/driver.h"
#include "mainwindow/shell_exe.h"
#include "scratch_folder.h"
#include "win32/process.h"
#include "win32/win_shell.h"

#include <windows.h>

#include <objbase.h>

#include <fstream>
#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace nv
{
namespace
{

using e2e::Until;

std::string Quoted(const std::string& text)
{
    return '"' + text + '"';
}

// A folder of its own with recorders and the companion, a folder whose name has a blank, a
// document, and a type of document that the recorder opens.
class LinkLaunch : public testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(SUCCEEDED(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED)));
        CreateDirectoryA(blanks_.c_str(), nullptr);
        for (const std::string& copy : {recorder_, spacedRecorder_}) {
            ASSERT_TRUE(CopyFileA(FromTests("recorder.exe").c_str(), copy.c_str(), TRUE));
        }
        ASSERT_TRUE(CopyFileA(FromTests(COMPANION_FROM_TESTS).c_str(), companion_.c_str(), TRUE));
        RegSetValueA(HKEY_CLASSES_ROOT, extension_.c_str(), REG_SZ, type_.c_str(), 0);
        RegSetValueA(HKEY_CLASSES_ROOT, (type_ + "\\shell\\open\\command").c_str(), REG_SZ,
                     (Quoted(recorder_) + " \"%1\"").c_str(), 0);
        RegSetKeyValueA(HKEY_CLASSES_ROOT, type_.c_str(), "URL Protocol", REG_SZ, "", 1);
        std::ofstream(spacedDocument_) << "x";
        SetCurrentDirectoryA(folder_.c_str());
        SetEnvironmentVariableA("NAVRIX_RECORD", record_.c_str());
        SetEnvironmentVariableA("NAVRIX_FOLDER", blanks_.c_str());
        SetEnvironmentVariableA("NAVRIX_WORD", "some words");
    }

    void TearDown() override
    {
        SetCurrentDirectoryA("C:\\");
        RegDeleteTreeA(HKEY_CLASSES_ROOT, extension_.c_str());
        RegDeleteTreeA(HKEY_CLASSES_ROOT, type_.c_str());
        for (const std::string& program : {recorder_, spacedRecorder_, companion_}) {
            // One that has just ended may still be open for a moment.
            EXPECT_TRUE(Until([&] { return DeleteFileA(program.c_str()) != 0; })) << program;
        }
        CoUninitialize();
    }

    // Follows a link as the menu does.
    bool Start(const std::string& command, const std::string& title = "")
    {
        ShellExe shellExe(shell_, folder_);
        return shellExe.LaunchCommand(0, shellExe.ExpandLauncher(0, command), title, true).started;
    }

    // How a program was started last, as the recorder wrote it down: command line, folder, title,
    // show mode, flags, and the fill attribute, by which the two start calls differ.
    std::vector<std::string> LastStart()
    {
        std::vector<std::string> record = TakeRecord(record_);
        EXPECT_EQ(record.size(), 6u) << "nothing was started";
        record.resize(6);
        return record;
    }

    WinShell shell_;
    ScratchFolder scratch_;
    const std::string folder_ = scratch_.Path();
    const std::string blanks_ = scratch_ / "with blank";
    const std::string recorder_ = scratch_ / "rec.exe";
    const std::string spacedRecorder_ = blanks_ + "\\rec order.exe";
    const std::string companion_ = scratch_ / "NVSub.exe";
    const std::string type_ = "recorded" + std::to_string(GetCurrentProcessId());
    const std::string extension_ = ".rq" + std::to_string(GetCurrentProcessId());
    const std::string spacedDocument_ = blanks_ + "\\b c" + extension_;
    const std::string record_ = scratch_ / "record";
};

TEST_F(LinkLaunch, StartsProgramsAndDocuments)
{
    const std::string program = Quoted(recorder_);
    const std::string spaced = Quoted(spacedRecorder_);
    const std::string spacedDocument = Quoted(spacedDocument_);
    std::string numbers = " ";
    while (numbers.size() + recorder_.size() < 5000) {
        numbers += std::to_string(numbers.size()) + " ";
    }
    numbers += "end";
    const std::string address = type_ + ":" + std::string(900, 'a');
    struct Case {
        std::string command;
        std::string commandLine;
        const char* by;
        std::string folder;
        const char* show;
    };
    // The shell puts a blank of its own between a program and its parameters.
    const Case cases[] = {
        {recorder_ + " a \"b c\"", program + "  a \"b c\"", "shell", folder_, "1"},
        {"rec.exe a /NV+", program + "  a", "shell", folder_, "3"},
        {spaced + " a b /NV- " + blanks_, spaced + " a b", "process", blanks_, "2"},
        {recorder_ + numbers, program + " " + numbers, "shell", folder_, "1"},
        {recorder_ + numbers + " /NV+" + blanks_, program + numbers, "process", blanks_, "3"},
        {spacedDocument + " x", program + " " + spacedDocument + " x", "shell", folder_, "1"},
        {spacedDocument + " /NV-" + blanks_, program + " " + spacedDocument, "process", blanks_,
         "2"},
        {address + " x", program + " " + Quoted(address), "shell", folder_, "1"},
        {"nvsub \"%NAVRIX_FOLDER%\\rec order.exe\" %navrix_word% %NO_SUCH% 100%",
         spaced + "  some words %NO_SUCH% 100%", "shell", folder_, "1"},
        // The menu takes the switch off; the companion's own show state hands it on.
        {"NVSUB " + recorder_ + " a /NV+", program + "  a", "shell", folder_, "3"},
        {"\"NVSUB\" " + spaced + " a /NV- " + blanks_, spaced + "  a", "shell", blanks_, "2"},
        {"NVSUB " + spacedDocument + " x", program + " " + spacedDocument + " x", "shell", folder_,
         "1"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.command);
        ASSERT_TRUE(Start(c.command));
        const auto record = LastStart();
        EXPECT_EQ(record[0], c.commandLine);
        EXPECT_EQ(record[1], c.folder);
        EXPECT_EQ(record[3] + " " + record[4], c.show + std::string(" 1"));
        const bool asProcess = c.by == std::string("process");
        EXPECT_EQ(record[5] == "16", asProcess);
        EXPECT_TRUE(!asProcess || record[2] == c.folder) << record[2];
    }
    EXPECT_TRUE(Start(recorder_ + " x /NV-" + blanks_, "My title"));
    EXPECT_EQ(LastStart()[2], "My title");
    EXPECT_EQ(Start(type_ + ":" + std::string(1500, 'a')), !UnderWine()); // and no crash there
}

TEST_F(LinkLaunch, TheCompanionTellsByItsExitCode)
{
    const e2e::Program useless(Quoted(companion_) + " /NV+");
    const auto box = useless.WaitForBox();
    ASSERT_TRUE(box);
    EXPECT_EQ(box->title, "Navrix Menu");
    EXPECT_TRUE(box->text.starts_with("NVSUB starts the program")) << box->text;
    EXPECT_TRUE(useless.Answer(*box, "OK"));
    EXPECT_EQ(useless.ExitCode(), 1u);
    const e2e::Program companion(Quoted(companion_) + " " + Quoted(spacedRecorder_) + " a b");
    EXPECT_EQ(companion.ExitCode(), 0u); // what it started goes on for as long as this is kept
    EXPECT_EQ(LastStart()[0], Quoted(spacedRecorder_) + "  a b");
}

} // namespace
} // namespace nv
