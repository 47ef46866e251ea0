// What a user downloads: installed, used and removed again, it leaves nothing behind.
#include "e2e/stage.h"

#include <shlobj.h>

#include <map>

namespace nv::e2e
{

namespace
{

constexpr DWORD kSetupTime = 60000; // milliseconds
constexpr char kUninstall[] = R"(Software\Microsoft\Windows\CurrentVersion\Uninstall)";

// Names and contents, of files or of registry values.
using Contents = std::map<std::string, std::string>;

void AddFiles(const std::string& folder, Contents& contents)
{
    for (const WIN32_FIND_DATAA& found : FilesIn(folder)) {
        const std::string path = folder + "\\" + found.cFileName;
        const bool isFolder = (found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
        contents[path] = isFolder ? "a folder" : std::to_string(found.nFileSizeLow);
        AddFiles(path, contents);
    }
}

void AddKey(HKEY root, const std::string& path, Contents& contents)
{
    HKEY key = nullptr;
    if (RegOpenKeyExA(root, path.c_str(), 0, KEY_READ, &key) != ERROR_SUCCESS) {
        return;
    }
    contents[path] = "a key";
    char name[256] = "";
    for (DWORD index = 0; RegEnumKeyA(key, index, name, sizeof name) == ERROR_SUCCESS; ++index) {
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
    for (const char* path : {"Software\\Belquin", "Software\\Classes", kUninstall}) {
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
    Packages() : Stage("program") {}
};

TEST_F(Packages, InstallRunAndUninstall)
{
    const std::string home = Path("apps\\menu"); // where it is installed
    const std::string mine = WriteMenu("My menu.nvm", {});
    CreateDirectoryA(Path("other").c_str(), nullptr);
    Write("other\\Uninstall.exe", "of another program");
    const Contents registry = Registry();
    const Contents files = Files();
    EXPECT_EQ(InstallIn(Path("other")), 3u);
    EXPECT_EQ(Files(), files);
    for (const bool changed : {false, true}) {
        SCOPED_TRACE(changed ? "with menus of the user's" : "as it was");
        ASSERT_EQ(InstallIn(home), 0u);
        EXPECT_EQ(GetFileAttributesA((home + "\\Samples\\Looks.nvm").c_str()) &
                      FILE_ATTRIBUTE_DIRECTORY,
                  0u);
        OpenInShell(home + "\\NVMenu.exe", home + "\\Start.nvm");
        EXPECT_EQ(InstallIn(home), 2u); // not over a program that runs
        EXPECT_EQ(Close(), 0u);
        OpenInShell(mine, mine);
        EXPECT_EQ(Close(), 0u);

        Contents left = files;
        if (changed) {
            left[Path("apps")] = left[home] = left[home + "\\Samples"] = "a folder";
            for (const char* name : {"\\Mine.nvm", "\\Samples\\Looks.nvm"}) {
                Write("apps\\menu" + std::string(name), "mine");
                left[home + name] = "4";
            }
            ASSERT_EQ(InstallIn(home), 0u); // an update keeps them as well
        } else {
            left[Path("apps")] = "a folder"; // the installer's own
        }
        // It goes on in a copy of itself, which ends with it.
        const Program uninstaller('"' + home + "\\Uninstall.exe\" /S");
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
