// Saves against real files: what refuses to be written, and a program that dies while it saves.
#include "docs/safe_save.h"
#include "e2e/driver.h"
#include "fakes/fake_desk.h"
#include "save_child.h"
#include "scratch_folder.h"
#include "win32/handles.h"
#include "win32/win_files.h"

#include <functional>
#include <gtest/gtest.h>
#include <memory>

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

TEST(WinSave, LeavesAWholeFileWhenTheProgramIsKilled)
{
    const ScratchFolder folder;
    const std::string path = folder / "Start.nvm";
    WinFiles files;
    SafeSave first(files, path);
    ASSERT_TRUE(first.Begin() == 0 && first.Finish(SavedMenu(false)) == 0);
    const std::string command = '"' + FromTests("save_child.exe") + "\" \"" + path + '"';
    int halfWritten = 0;
    for (int round = 0; round < 8; ++round) {
        auto child = std::make_unique<e2e::Program>(command);
        // Killed the moment its temporary is seen for the n-th time.
        const ULONGLONG deadline = GetTickCount64() + 20000;
        for (int seen = 0; seen <= round * 2 && GetTickCount64() < deadline;) {
            seen += files.List(folder / "*.tmp", 1).empty() ? 0 : 1;
        }
        ASSERT_TRUE(child->Running()) << "it ended by itself";
        child.reset();
        const std::string contents = Contents(path);
        EXPECT_TRUE(contents == SavedMenu(true) || contents == SavedMenu(false))
            << round << ": " << contents.size() << " bytes";
        for (const std::string& left : files.List(folder / "*.tmp", 99)) {
            ++halfWritten;
            EXPECT_EQ(files.Remove(folder / left), 0u);
        }
    }
    EXPECT_GT(halfWritten, 0) << "no save was interrupted";
}

} // namespace
} // namespace nv
