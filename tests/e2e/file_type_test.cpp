// Menu files belong to the program: who opens one in the shell sees it in the program.
#include "e2e/stage.h"

#include <shellapi.h>

namespace nv::e2e
{

// The parameter is the name of the program's folder.
class FileType : public Stage, public testing::WithParamInterface<const char*>
{
protected:
    FileType() : Stage(GetParam()) {}
};

TEST_P(FileType, TheShellOpensAMenuInTheProgram)
{
    const std::string elsewhere = R"("C:\gone\NVMenu.exe" %1)";
    RegSetKeyValueA(HKEY_CLASSES_ROOT, R"(Navrix Menu\shell\open\command)", "", REG_SZ,
                    elsewhere.c_str(), static_cast<DWORD>(elsewhere.size() + 1));
    const std::string start = WriteMenu("Start.nvm", {});
    Open(start);
    EXPECT_EQ(Close(), 0u);
    for (const std::string& menu : {WriteMenu("My own menu.nvm", {}), start}) {
        SCOPED_TRACE(menu);
        const HINSTANCE result =
            ShellExecuteA(nullptr, "open", menu.c_str(), nullptr, nullptr, SW_SHOWNORMAL);
        ASSERT_GT(reinterpret_cast<INT_PTR>(result), 32);
        TakeOver();
        EXPECT_TRUE(WaitUntilLoaded(menu)) << Running().OnScreen();
        EXPECT_EQ(Close(), 0u);

        const Program shell("cmd.exe /c start \"\" \"" + menu + "\"");
        TakeOver();
        EXPECT_TRUE(WaitUntilLoaded(menu)) << Running().OnScreen();
        EXPECT_EQ(Close(), 0u);
    }
}

INSTANTIATE_TEST_SUITE_P(Folders, FileType, testing::Values("the program", "program"));

} // namespace nv::e2e
