// What a user downloads: installed, used and removed again, it leaves nothing behind.
#include "e2e/stage.h"

#include <shlobj.h>

#include <map>

namespace nv::e2e
{

namespace
{

constexpr DWORD kSetupTime = 60000; // milliseconds
constexpr char kUninstall[] = R"(Software\Microsoft\Windows\CurrentVersion\Uninstall\Navrix Menu)";

// Names and contents, of files or of registry values.
using Contents = std::map<std::string, std::string>;

void AddFiles(const std::string& folder, Contents& contents)
{
    WIN32_FIND_DATAA found = {};
    const HANDLE search = FindFirstFileA((folder + "\\*").c_str(), &found);
    if (search == INVALID_HANDLE_VALUE) {
        return;
    }
    do {
        const std::string name = found.cFileName;
        const std::string path = folder + "\\" + name;
        if ((found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) == 0) {
            contents[path] = std::to_string(found.nFileSizeLow);
        } else if (name != "." && name != "..") {
            contents[path] = "a folder";
            AddFiles(path, contents);
        }
    } while (FindNextFileA(search, &found));
    FindClose(search);
}

void AddKey(HKEY root, const std::string& path, Contents& contents)
{
    HKEY key = nullptr;
    if (RegOpenKeyExA(root, path.c_str(), 0, KEY_READ, &key) != ERROR_SUCCESS) {
        return;
    }
    contents[path] = "a key";
    char name[256] = "";
    for (DWORD index = 0, size = sizeof name;
         RegEnumKeyExA(key, index, name, &size, nullptr, nullptr, nullptr, nullptr) ==
         ERROR_SUCCESS;
         ++index, size = sizeof name) {
        AddKey(root, path + "\\" + name, contents);
    }
    char data[1024] = "";
    DWORD dataSize = sizeof data;
    for (DWORD index = 0, size = sizeof name;
         RegEnumValueA(key, index, name, &size, nullptr, nullptr, reinterpret_cast<BYTE*>(data),
                       &dataSize) == ERROR_SUCCESS;
         ++index, size = sizeof name, dataSize = sizeof data) {
        contents[path + " : " + name] = std::string(data, dataSize);
    }
    RegCloseKey(key);
}

Contents Registry()
{
    Contents contents;
    for (const char* path : {"Software\\Belquin", "Software\\Classes",
                             "Software\\Microsoft\\Windows\\CurrentVersion\\Uninstall"}) {
        AddKey(HKEY_CURRENT_USER, path, contents);
    }
    AddKey(HKEY_CLASSES_ROOT, ".NVM", contents);
    AddKey(HKEY_CLASSES_ROOT, "Navrix Menu", contents);
    return contents;
}

} // namespace

class Packages : public Stage
{
protected:
    Contents Files() const
    {
        Contents contents;
        AddFiles(Folder(), contents);
        char startMenu[MAX_PATH] = "";
        SHGetFolderPathA(nullptr, CSIDL_PROGRAMS, nullptr, 0, startMenu);
        AddFiles(startMenu, contents);
        return contents;
    }
    // The setup program, without questions. Its option takes no blanks under Wine.
    static std::optional<DWORD> InstallIn(const std::string& folder)
    {
        return Program('"' + FromTests(SETUP_FROM_TESTS) + "\" /S /D=" + folder)
            .ExitCode(kSetupTime);
    }
    std::optional<DWORD> Install() const { return InstallIn(home_); }
    Packages() : Stage("program") {}
    void SetUp() override
    {
        Stage::SetUp();
        home_ = Path("apps\\menu");
    }

    std::string home_; // where it is installed
};

TEST_F(Packages, InstallRunAndUninstall)
{
    const std::string mine = WriteMenu("My menu.nvm", {});
    CreateDirectoryA(Path("other").c_str(), nullptr);
    Write("other\\Uninstall.exe", "of another program");
    const Contents registry = Registry();
    const Contents files = Files();
    EXPECT_EQ(InstallIn(Path("other")), 3u);
    EXPECT_EQ(Files(), files);
    for (const bool changed : {false, true}) {
        SCOPED_TRACE(changed ? "with menus of the user's" : "as it was");
        ASSERT_EQ(Install(), 0u);
        EXPECT_EQ(GetFileAttributesA((home_ + "\\Samples\\Looks.nvm").c_str()) &
                      FILE_ATTRIBUTE_DIRECTORY,
                  0u);
        OpenInShell(home_ + "\\NVMenu.exe", home_ + "\\Start.nvm");
        EXPECT_EQ(Install(), 2u); // not over a program that runs
        EXPECT_EQ(Close(), 0u);
        OpenInShell(mine, mine);
        EXPECT_EQ(Close(), 0u);

        Contents left = files;
        if (changed) {
            left[Path("apps")] = left[home_] = left[home_ + "\\Samples"] = "a folder";
            for (const char* name : {"\\Mine.nvm", "\\Samples\\Looks.nvm"}) {
                Write("apps\\menu" + std::string(name), "mine");
                left[home_ + name] = "4";
            }
            ASSERT_EQ(Install(), 0u); // an update keeps them as well
        } else {
            left[Path("apps")] = "a folder"; // the installer's own
        }
        // It goes on in a copy of itself, which ends with it.
        const Program uninstaller('"' + home_ + "\\Uninstall.exe\" /S");
        EXPECT_EQ(uninstaller.ExitCode(kSetupTime), 0u);
        EXPECT_TRUE(Until([&] { return Registry() == registry && Files() == left; }, kSetupTime));
        EXPECT_EQ(Registry(), registry);
        EXPECT_EQ(Files(), left);
    }
}

TEST_F(Packages, CleanUpRemovesSettingsAndFileType)
{
    const std::string script = Path("Clean up.cmd");
    ASSERT_TRUE(CopyFileA(FromTests(CLEAN_UP_FROM_TESTS).c_str(), script.c_str(), TRUE));
    // Of another program.
    RegSetKeyValueA(HKEY_CLASSES_ROOT, ".NVM\\OpenWithProgids", "other", REG_SZ, "", 1);
    const Contents registry = Registry();
    Open(WriteMenu("Start.nvm", {}));
    EXPECT_EQ(Close(), 0u);
    EXPECT_NE(Registry(), registry);
    EXPECT_EQ(Program("cmd.exe /c \"\"" + script + "\" /y\"").ExitCode(), 0u);
    EXPECT_EQ(Registry(), registry);
}

} // namespace nv::e2e
