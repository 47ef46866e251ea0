// Saves against real files: what refuses to be written, and a program that dies while it saves.
#include "e2e/driver.h"
#include "save_child.h"
#include "scratch_folder.h"
#include "win32/handles.h"
#include "win32/win_files.h"

#include <functional>
#include <gtest/gtest.h>

namespace nv
{
namespace
{

TEST(WinSave, ReportsWhatCannotBeWrittenAndLeavesIt)
{
    const ScratchFolder folder;
    const std::string path = folder / "Start.nvm";
    FileHandle held;
    struct Case {
        std::string path;
        std::function<void()> prepare;
        DWORD error;
    };
    const Case cases[] = {
        {path, [&] { SetFileAttributesA(path.c_str(), FILE_ATTRIBUTE_READONLY); },
         ERROR_ACCESS_DENIED},
        {path,
         [&] {
             SetFileAttributesA(path.c_str(), FILE_ATTRIBUTE_NORMAL);
             held.Reset(
                 CreateFileA(path.c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr));
         },
         ERROR_SHARING_VIOLATION},
        {folder / "Folder.nvm", [&] { CreateDirectoryA((folder / "Folder.nvm").c_str(), nullptr); },
         ERROR_ACCESS_DENIED},
        {"Q:\\Menus\\Start.nvm", [] {}, ERROR_PATH_NOT_FOUND},
        {folder / "a?b.nvm", [] {}, ERROR_INVALID_NAME},
    };
    FakeDesk<WinFiles> desk;
    desk.document.Lines().Append("5>");
    ASSERT_TRUE(desk.document.SavePDM(path));
    desk.document.SetMCh(true);
    for (const Case& c : cases) {
        c.prepare();
        desk.prompts.Expect(Answer::ok);
        EXPECT_FALSE(desk.document.SavePDM(c.path)) << c.path;
        const std::string why = desk.files.Describe(c.error);
        EXPECT_EQ(desk.prompts.Take().text, "Cannot save:\n\n" + c.path + "\n\n" + why);
        EXPECT_TRUE(desk.document.MCh() && desk.document.UnsavedChanges());
    }
    held.Reset();
    EXPECT_EQ(Contents(path), "5>\r\n");
    // Another program that only reads the file is no hindrance.
    held.Reset(CreateFileA(path.c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                           OPEN_EXISTING, 0, nullptr));
    desk.document.Lines().Append("4>");
    EXPECT_TRUE(desk.document.SavePDM(path));
    EXPECT_EQ(Contents(path), "5>\r\n4>\r\n");
    EXPECT_EQ(desk.files.List(folder / "*", 9), (std::vector<std::string>{"Start.nvm"}));
}

// Wine makes no symbolic links itself.
void MakeSymbolicLink(const ScratchFolder& folder, const std::string& to, const std::string& name)
{
    STARTUPINFOA startup = {};
    startup.cb = sizeof startup;
    PROCESS_INFORMATION process = {};
    std::string line = "Z:\\bin\\ln -s " + to + ' ' + name;
    ASSERT_TRUE(CreateProcessA("Z:\\bin\\ln", line.data(), nullptr, nullptr, FALSE, 0, nullptr,
                               folder.Path().c_str(), &startup, &process));
    EXPECT_TRUE(e2e::Until(
        [&] { return GetFileAttributesA((folder / name).c_str()) != INVALID_FILE_ATTRIBUTES; }));
    CloseHandle(process.hThread);
    CloseHandle(process.hProcess);
}

TEST(WinSave, LeavesNamesAndLinksWhatTheyAre)
{
    const ScratchFolder folder;
    std::ofstream(folder / "Start.nvm").put('5');
    MakeSymbolicLink(folder, "Start.nvm", "Symbolic.nvm");
    FakeDesk<WinFiles> desk;
    const std::vector<std::string> names = {"Hard.nvm", "Start.nvm", "Symbolic.nvm"};
    const auto save = [&](const std::string& name) {
        desk.document.Lines().Append(name);
        EXPECT_TRUE(desk.document.SavePDM(folder / name));
        EXPECT_TRUE(Contents(folder / "Start.nvm").ends_with(name + "\r\n")) << name;
    };
    save("Symbolic.nvm");
    save("START.NVM");
    ASSERT_TRUE(
        CreateHardLinkA((folder / "Hard.nvm").c_str(), (folder / "Start.nvm").c_str(), nullptr));
    for (const std::string& name : names) {
        save(name);
        EXPECT_EQ(desk.files.State(folder / name).names, 2u);
    }
    EXPECT_EQ(desk.files.List(folder / "*", 9), names); // and nothing beside them
}

// The program dies once in each operation. Failures in it are the same with any files: see the
// tests of the rules.
TEST(WinSave, LeavesAWholeFileWhereverTheProgramDies)
{
    const std::string old = "5>\r\n";
    const std::pair<std::string, int> cases[] = {
        {"save", 0}, {"create", 0}, {"unreplaced", 1}}; // how often it may be found half written
    for (const auto& [deed, mostHalves] : cases) {
        const bool creates = deed == "create";
        int operation = 0;
        int halves = 0;
        for (DWORD code = kKilledExitCode; code == kKilledExitCode;) {
            SCOPED_TRACE(deed + " dies at " + std::to_string(++operation));
            const ScratchFolder folder;
            const std::string path = folder / (creates ? "Made\\Start.nvm" : "Start.nvm");
            if (!creates) {
                std::ofstream(path, std::ios::binary) << old;
            }
            code = e2e::Program('"' + FromTests("save_child.exe") + "\" " + deed + ' ' +
                                std::to_string(operation) + " \"" + path + '"')
                       .ExitCode()
                       .value_or(STILL_ACTIVE);
            EXPECT_TRUE(code == kKilledExitCode || code == 0) << code;
            const std::string contents = Contents(path);
            if (contents != (creates ? "" : kSavedMenu) && (code == 0 || contents != old)) {
                ++halves;
                EXPECT_EQ(Contents(path + ".tmp"), kSavedMenu);
            }
            FakeDesk<WinFiles> next;
            next.prompts.toQuestions = Answer::yes; // makes what is not there
            EXPECT_TRUE(next.document.FOpen(path));
            next.document.Lines().Append("more");
            EXPECT_TRUE(next.document.SavePDM(path));
            EXPECT_TRUE(Contents(path).ends_with("more\r\n"));
        }
        EXPECT_GT(operation, 4) << deed << ": nothing was tried";
        EXPECT_EQ(halves, mostHalves) << deed;
    }
}

} // namespace
} // namespace nv
