#include "fakes/fake_shell.h"
#include "mainwindow/shell_exe.h"

#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace nv
{
namespace
{

using Calls = std::vector<std::string>;

constexpr WindowHandle kOwner = 7;
const char* const kFolder = "D:\\Navrix";

// What every process start of a link carries beside its text and show mode.
std::string Process(const std::string& commandLine, const std::string& directory,
                    const std::string& title, int show)
{
    return "process [" + commandLine + "] in [" + directory + "] title [" + title +
           "] size 65 flags 1 fill 16 show " + std::to_string(show) + " inherit creation 544";
}

LaunchInfo Launch(FakeShell& shell, const std::string& command)
{
    return ShellExe(shell, kFolder).LaunchCommand(kOwner, command, "", true);
}

TEST(ShellExe, StartsALinkByShellOrAsAProcess)
{
    const std::string longAnswer = "C:\\" + std::string(256, 'x');
    const std::pair<const char*, Calls> cases[] = {
        {"p.exe  /NV+ D:\\A b ",
         {"find [p.exe] [0]", Process("\"p.exe\"", "D:\\A b", "D:\\A b", 3)}},
        // 255 characters of an answer count.
        {"long",
         {"find [long] [0]", "shell 7 open [" + longAnswer.substr(0, 255) + "] [] in [\"" +
                                 longAnswer.substr(0, 255) + "\"] show 1"}},
    };
    for (const auto& [command, calls] : cases) {
        FakeShell shell;
        shell.answers = {{"p.exe", "p.exe"}, {"long", longAnswer}};
        EXPECT_TRUE(Launch(shell, command).started) << command;
        EXPECT_EQ(shell.calls, calls) << command;
    }
}

TEST(ShellExe, KeepsLongTextFromTheShell)
{
    const std::string fits(259, 'p');
    const std::string text = fits + "p";
    const std::string address = "h323+a-b:" + std::string(2038, '.');
    const std::string longest = "a.exe " + std::string(32757, 'x');
    const struct {
        std::string command;
        std::size_t calls;
        bool started;
    } cases[] = {
        {fits, 2, true},
        {'"' + fits + "\" x", 2, true},
        {'"' + text + '"', 0, false},
        {text + " x /NV+", 0, false},
        // Doubled quotes: short as a name, long as written; searched, not started.
        {'"' + std::string(300, '"') + '"', 1, false},
        // A process is still tried: only the shell minds.
        {'"' + text + "\" x /NV- C:\\T", 1, true},
        {address, 1, true},
        {'"' + address + "\" x", 1, true},
        {address + "x", 0, false},
        {"3" + text.substr(0, 257) + ":/", 0, false},
        // Arguments that would be cut.
        {longest, 2, true},
        {longest + "x", 1, false},
        {longest + "x/NVC:\\", 2, true},
        {longest + "xx/NVC:\\", 1, false},
    };
    for (const auto& c : cases) {
        FakeShell shell;
        shell.answers["a.exe"] = "a.exe";
        EXPECT_EQ(Launch(shell, c.command).started, c.started) << c.command;
        EXPECT_EQ(shell.calls.size(), c.calls) << c.command;
    }
}

} // namespace
} // namespace nv
