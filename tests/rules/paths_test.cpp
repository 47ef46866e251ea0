#include "docs/paths.h"
#include "fakes/fake_files.h"

#include <gtest/gtest.h>

namespace nv
{
namespace
{

TEST(Paths, AreSplitAtTheLastBackslash)
{
    struct Case {
        const char* path;
        const char* fileName;
        const char* folder;
    };
    const Case cases[] = {
        {"C:\\Menus\\Start.nvm", "Start.nvm", "C:\\Menus"},
        {"C:\\Start.nvm", "Start.nvm", "C:\\"},
        {"Start.nvm", "Start.nvm", ""},
        {"ab\\Start.nvm", "Start.nvm", "ab\\"},
        {"abc\\Start.nvm", "Start.nvm", "abc"},
        {"C:\\Menus\\", "", "C:\\Menus"},
        {"", "", ""},
    };
    for (const Case& c : cases) {
        const PathParts parts = SplitPath(c.path, CodePage());
        EXPECT_EQ(parts.fileName, c.fileName) << c.path;
        EXPECT_EQ(parts.folder, c.folder) << c.path;
    }
    // 0x83 0x5C is one character of code page 932 whose second byte equals the backslash.
    const PathParts parts = SplitPath("C:\\A\\\x83\x5C.nvm", CodePage(932));
    EXPECT_EQ(parts.fileName, "\x83\x5C.nvm");
    EXPECT_EQ(parts.folder, "C:\\A");
}

TEST(Paths, AreMadeLevelByLevel)
{
    const auto made = [](const std::string& folder, const CodePage& page = CodePage()) {
        FakeFiles files;
        files.MakeFolder("C:\\A"); // a level that cannot be made does not stop those below
        files.madeFolders.clear();
        MakeFolders(files, folder, page);
        return files.madeFolders;
    };
    using Levels = std::vector<std::string>;
    EXPECT_EQ(made("C:\\A\\B\\C"), (Levels{"C:\\A", "C:\\A\\B", "C:\\A\\B\\C"}));
    EXPECT_EQ(made("C:\\A\\"), (Levels{"C:\\A"}));
    EXPECT_EQ(made("C:\\"), Levels());
    EXPECT_EQ(made(""), Levels());
    EXPECT_EQ(made("C:\\\x83\x5C", CodePage(932)), (Levels{"C:\\\x83\x5C"}));

    std::string deep = "C:";
    for (int level = 1; level <= 25; ++level) {
        deep += "\\" + std::to_string(level);
    }
    const Levels levels = made(deep);
    ASSERT_EQ(levels.size(), 21u);
    EXPECT_EQ(levels.back(), deep.substr(0, deep.find("\\22")));
}

} // namespace
} // namespace nv
