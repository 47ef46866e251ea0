#include "fakes/fake_shell.h"
#include "mainwindow/link_click.h"

#include <gtest/gtest.h>

namespace nv
{
namespace
{

TEST(LinkClick, OpensMenusInPlace)
{
    struct Case {
        const char* command;
        std::optional<std::string> menu;
    };
    const Case cases[] = {
        {"C:\\Menus\\Sub.nvm", "C:\\Menus\\Sub.nvm"},
        {"C:\\My Menus\\Sub.NVM", "C:\\My Menus\\Sub.NVM"}, // the whole command, blanks and all
        {"\"C:\\My Menus\\Sub.nvm\"", "C:\\My Menus\\Sub.nvm"},
        {"\"Sub.nvm\" /NV+ C:\\Work", "Sub.nvm"},
        {"notepad.exe Sub.nvm", "notepad.exe Sub.nvm"}, // its last extension says menu
        {"notepad.exe \"Sub.nvm\"", std::nullopt},
        {"Sub.nvmx", std::nullopt},
        {"", std::nullopt},
        {"/NV+", std::nullopt},
    };
    for (const Case& c : cases) {
        FakeShell shell;
        ShellExe shellExe(shell, "C:\\Menus");
        EXPECT_EQ(MenuToOpen(shellExe, 0, c.command), c.menu) << c.command;
        for (const std::string& call : shell.calls) {
            EXPECT_EQ(call.rfind("find", 0), 0u) << call; // asked, never started
        }
    }
}

} // namespace
} // namespace nv
