#include "scratch_folder.h"
#include "win32/win_files.h"

#include <gtest/gtest.h>

namespace nv
{
namespace
{

SystemError WriteFile(const std::string& path, OpenMode mode, const std::string& text)
{
    WinFiles files;
    SystemError error = 0;
    const auto file = files.Open(path, mode, error);
    if (file == nullptr) {
        return error;
    }
    EXPECT_EQ(file->Write(text.data(), text.size()), 0u);
    EXPECT_EQ(file->Flush(), 0u);
    return file->Close();
}

TEST(WinFiles, OpenAsTheModeSays)
{
    const ScratchFolder folder;
    const std::string path = folder / "a.nvm";
    EXPECT_EQ(WriteFile(path, OpenMode::change, "x"), DWORD{ERROR_FILE_NOT_FOUND});
    EXPECT_EQ(WriteFile(path, OpenMode::createNew, "first text"), 0u);
    EXPECT_EQ(WriteFile(path, OpenMode::createNew, "x"), DWORD{ERROR_FILE_EXISTS});
    EXPECT_EQ(WriteFile(path, OpenMode::change, "FIRST"), 0u);
    EXPECT_EQ(Contents(path), "FIRST text");
    SetFileAttributesA(path.c_str(), FILE_ATTRIBUTE_HIDDEN);
    EXPECT_EQ(WriteFile(path, OpenMode::overwrite, "cut"), 0u);
    EXPECT_EQ(Contents(path), "cut");
    EXPECT_EQ(WriteFile(folder / "b.nvm", OpenMode::overwrite, ""), 0u);
    EXPECT_EQ(Contents(folder / "b.nvm"), "");

    WinFiles files;
    SetFileAttributesA(path.c_str(), FILE_ATTRIBUTE_READONLY);
    const FileAttributes file = files.Attributes(path);
    EXPECT_TRUE(file.exists && file.readOnly && !file.folder && !file.hidden);
    for (const DWORD notSeen : {DWORD{FILE_ATTRIBUTE_HIDDEN}, DWORD{FILE_ATTRIBUTE_SYSTEM}}) {
        SetFileAttributesA(path.c_str(), notSeen);
        EXPECT_TRUE(files.Attributes(path).hidden) << notSeen;
    }
    EXPECT_TRUE(files.Attributes(folder.Path()).folder);
    EXPECT_FALSE(files.Attributes(folder / "c.nvm").exists);
    EXPECT_EQ(files.Describe(0x12345678), "Error 305419896"); // the system knows no such error
}

TEST(WinFiles, AreRewrittenAndCutInPlace)
{
    const ScratchFolder folder;
    const std::string path = folder / "a.nvm";
    WriteFile(path, OpenMode::createNew, "a long text");
    WinFiles files;
    SystemError error = 0;
    const auto file = files.Open(path, OpenMode::change, error);
    ASSERT_NE(file, nullptr);
    char buffer[6] = {};
    for (const std::size_t expected : {6u, 5u, 0u}) {
        std::size_t got = 0;
        EXPECT_EQ(file->Read(buffer, 6, got), 0u);
        EXPECT_EQ(got, expected);
    }
    EXPECT_EQ(file->Rewind(), 0u);
    EXPECT_EQ(file->Write("new", 3), 0u);
    EXPECT_EQ(file->Truncate(), 0u);
    EXPECT_EQ(file->Close(), 0u);
    EXPECT_EQ(file->Close(), 0u); // closed already: nothing is closed twice
    EXPECT_NE(file->Write("x", 1), 0u);
    EXPECT_EQ(Contents(path), "new");
}

TEST(WinFiles, AreListedWithoutFolders)
{
    const ScratchFolder folder;
    WinFiles files;
    EXPECT_EQ(files.MakeFolder(folder / "folder.nvm"), 0u);
    EXPECT_NE(files.MakeFolder(folder / "folder.nvm"), 0u);
    for (const char* name : {"b.nvm", "a.nvm", "a.nvm.tmp", "a.nvm.2.tmp"}) {
        WriteFile(folder / name, OpenMode::createNew, "");
    }
    SetFileAttributesA((folder / "b.nvm").c_str(),
                       FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM | FILE_ATTRIBUTE_READONLY);
    EXPECT_EQ(files.List(folder / "*.nvm", 9), (std::vector<std::string>{"a.nvm", "b.nvm"}));
    EXPECT_EQ(files.List(folder / "*.nvm", 1), (std::vector<std::string>{"a.nvm"}));
    EXPECT_EQ(files.List(folder / "B.NVM", 1).size(), 1u);
    EXPECT_TRUE(files.List(folder / "folder.nvm", 1).empty());
    EXPECT_TRUE(files.List(folder / "none.nvm", 1).empty());
}

TEST(WinFiles, TakeTheNameAndAttributesOfAnother)
{
    const ScratchFolder folder;
    const std::string from = folder / "new";
    const std::string to = folder / "old";
    WriteFile(from, OpenMode::createNew, "new");
    WriteFile(to, OpenMode::createNew, "old");
    SetFileAttributesA(to.c_str(), FILE_ATTRIBUTE_HIDDEN);
    WinFiles files;
    EXPECT_EQ(files.Replace(from, to), 0u);
    EXPECT_EQ(Contents(to), "new");
    EXPECT_NE(GetFileAttributesA(to.c_str()) & FILE_ATTRIBUTE_HIDDEN, 0u);
    EXPECT_FALSE(files.Attributes(from).exists);
    EXPECT_EQ(files.Replace(to, from), 0u); // where no file of that name is
    EXPECT_EQ(files.Replace(to, from), DWORD{ERROR_FILE_NOT_FOUND});
    EXPECT_EQ(files.Remove(from), 0u);
    EXPECT_EQ(files.Remove(from), DWORD{ERROR_FILE_NOT_FOUND});
}

} // namespace
} // namespace nv
