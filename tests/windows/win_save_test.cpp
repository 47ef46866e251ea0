// Saves against real files: what refuses to be written, and a program that dies while it saves.
#include "docs/menu_document.h"
#include "docs/safe_save.h"
#include "fakes/fake_document_events.h"
#include "fakes/fake_prompts.h"
#include "fakes/fake_pump.h"
#include "fakes/fake_settings.h"
#include "save_child.h"
#include "scratch_folder.h"
#include "win32/handles.h"
#include "win32/win_files.h"

#include <fstream>
#include <functional>
#include <gtest/gtest.h>

namespace nv
{
namespace
{

std::string Contents(const std::string& path)
{
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

struct Desk {
    WinFiles files;
    FakePrompts prompts;
    FakeSettings settings;
    FakePump pump;
    FakeDocumentEvents events;
    MenuDocument document{files, prompts, settings, pump, events, CodePage(), Font()};
};

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
    Desk desk;
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

// The program that saves, next to this one.
KernelHandle StartChild(const std::string& path)
{
    char self[MAX_PATH] = {};
    GetModuleFileNameA(nullptr, self, MAX_PATH);
    const std::string own = self;
    std::string command =
        "\"" + own.substr(0, own.rfind('\\')) + "\\save_child.exe\" \"" + path + "\"";
    STARTUPINFOA startup = {};
    startup.cb = sizeof startup;
    PROCESS_INFORMATION process = {};
    if (!CreateProcessA(nullptr, command.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr,
                        &startup, &process)) {
        ADD_FAILURE() << command << ": " << GetLastError();
        return KernelHandle();
    }
    CloseHandle(process.hThread);
    return KernelHandle(process.hProcess);
}

TEST(WinSave, LeavesAWholeFileWhenTheProgramIsKilled)
{
    const ScratchFolder folder;
    const std::string path = folder / "Start.nvm";
    WinFiles files;
    SafeSave first(files, path);
    ASSERT_TRUE(first.Begin() == 0 && first.Finish(SavedMenu(false)) == 0);
    int halfWritten = 0;
    for (int round = 0; round < 8; ++round) {
        const KernelHandle child = StartChild(path);
        ASSERT_TRUE(child);
        // Killed the moment its temporary is seen for the n-th time.
        const ULONGLONG deadline = GetTickCount64() + 20000;
        for (int seen = 0; seen <= round * 2 && GetTickCount64() < deadline;) {
            seen += files.List(folder / "*.tmp", 1).empty() ? 0 : 1;
        }
        ASSERT_EQ(WaitForSingleObject(child.Get(), 0), DWORD{WAIT_TIMEOUT}) << "it ended by itself";
        ASSERT_TRUE(TerminateProcess(child.Get(), 9));
        ASSERT_EQ(WaitForSingleObject(child.Get(), 20000), DWORD{WAIT_OBJECT_0});
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
