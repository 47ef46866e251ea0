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

// Each operation fails once, and once the program dies in it.
TEST(WinSave, LeavesAWholeFileWhateverHappens)
{
    const std::string old = "5>\r\n";
    const struct {
        std::string deed;
        bool existed;
        bool dies;
        int halves; // how often the file may be found half written
    } cases[] = {
        {"save", true, false, 0},       {"save", true, true, 0},       {"create", false, false, 0},
        {"create", false, true, 0},     {"in-place", true, false, 0},  {"in-place", true, true, 1},
        {"unreplaced", true, false, 0}, {"unreplaced", true, true, 1}, {"save", false, false, 0},
    };
    for (const auto& c : cases) {
        int operation = 0;
        int halves = 0;
        for (bool reached = true; reached;) {
            ++operation;
            SCOPED_TRACE(c.deed + (c.dies ? " dies at " : " fails at ") +
                         std::to_string(operation));
            const ScratchFolder folder;
            const bool creates = c.deed == "create";
            const std::string path = folder / (creates ? "Made\\Start.nvm" : "Start.nvm");
            if (c.existed) {
                std::ofstream(path, std::ios::binary) << old;
            }
            FaultyDesk desk;
            bool done = false;
            if (c.dies) {
                const e2e::Program child('"' + FromTests("save_child.exe") + "\" " + c.deed + ' ' +
                                         std::to_string(operation) + " \"" + path + '"');
                const DWORD code = child.ExitCode().value_or(STILL_ACTIVE);
                reached = code == kKilledExitCode;
                done = code == 0;
                EXPECT_TRUE(reached || done) << code;
            } else {
                desk.files.failAt = operation;
                done = Do(desk, c.deed, path);
                reached = desk.files.operations >= operation;
            }
            const std::string contents = Contents(path);
            if (contents != (creates ? "" : kSavedMenu) &&
                (done || contents != (c.existed ? old : ""))) {
                ++halves;
                EXPECT_TRUE(c.deed == "in-place" || Contents(path + ".tmp") == kSavedMenu);
            }
            EXPECT_TRUE(c.dies || desk.files.failed.starts_with("remove ") ||
                        desk.files.List(folder / "*.tmp", 1).empty());
            FakeDesk<WinFiles> next;
            next.prompts.toQuestions = Answer::yes; // makes what is not there
            EXPECT_TRUE(next.document.FOpen(path));
            next.document.Lines().Append("more");
            EXPECT_TRUE(next.document.SavePDM(path));
            EXPECT_TRUE(Contents(path).ends_with("more\r\n"));
        }
        EXPECT_GT(operation, 4) << c.deed << ": nothing was tried";
        EXPECT_EQ(halves, c.halves) << c.deed;
    }
}

} // namespace
} // namespace nv
