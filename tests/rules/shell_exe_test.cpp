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
        {"p.exe /NV+ /NV-",
         {"find [p.exe] [0]", "shell 7 open [p.exe] [ /NV+] in [\"p.exe\" /NV+] show 2"}},
        {"p.exe  /NV+ D:\\A b ",
         {"find [p.exe] [0]", Process("\"p.exe\"", "D:\\A b", "D:\\A b", 3)}},
        {"  /nv- C:\\T ", {}}, // a switch and nothing before it
        // What is not found is tried on the program's drive; the folder is not passed on.
        {"\"\\T t\\p.exe\" x /NV C:\\T",
         {"find [\\T t\\p.exe] [0]", "find [D:\\T t\\p.exe] [0]",
          Process("\"D:\\T t\\p.exe\"", "", "", 1)}},
        {"\\p", {"find [\\p] [0]", "shell 7 open [\\p] [] in [\\p] show 1"}}, // two characters only
        // 255 characters of an answer count.
        {"long",
         {"find [long] [0]", "shell 7 open [" + longAnswer.substr(0, 255) + "] [] in [\"" +
                                 longAnswer.substr(0, 255) + "\"] show 1"}},
    };
    for (const auto& [command, calls] : cases) {
        FakeShell shell;
        shell.answers = {{"p.exe", {33, "p.exe"}}, {"long", {33, longAnswer}}};
        EXPECT_EQ(Launch(shell, command).started, !calls.empty()) << command;
        EXPECT_EQ(shell.calls, calls) << command;
    }
}

TEST(ShellExe, ReportsStarts)
{
    struct Case {
        const char* command;
        std::int32_t shellResult;
        std::int32_t processResult;
        bool started;
    };
    const Case cases[] = {
        {"p.exe", 33, 0, true},
        {"p.exe", 32, 1, false},
        {"p.exe /NV C:\\T", 0, -1, true},
        {"p.exe /NV C", 33, 0, false},
    };
    for (const Case& c : cases) {
        FakeShell shell;
        shell.answers["p.exe"] = {33, "p.exe"};
        shell.shellResult = c.shellResult;
        shell.processResult = c.processResult;
        EXPECT_EQ(Launch(shell, c.command).started, c.started) << c.command;
        shell.failWithException = true; // a fault within the call is no start either
        EXPECT_FALSE(Launch(shell, c.command).started) << c.command;
    }
    FakeShell shell; // 32 is the last failure of a search, too
    shell.answers["p.exe"] = {32, "p.exe"};
    EXPECT_EQ(Launch(shell, "p.exe").targetKind, TargetKind::notFound);
    FakeShell onNetwork; // where the program has no drive
    ShellExe(onNetwork, "\\\\host\\menus").LaunchCommand(kOwner, "\\p.exe", "", false);
    EXPECT_EQ(onNetwork.calls, Calls({"find [\\p.exe] [0]", "find [\\p.exe] [0]"}));
}

TEST(ShellExe, KeepsLongTextFromTheShell)
{
    const std::string fits(259, 'p');
    const std::string text = fits + "p";
    const std::string longest = "a.exe " + std::string(32757, 'x');
    struct Case {
        std::string command;
        std::size_t calls;
        bool started;
    };
    const Case cases[] = {
        {fits, 2, true},
        {'"' + fits + "\" x", 2, true},
        {text, 0, false},
        {'"' + text + '"', 0, false},
        {text + ".exe a", 0, false},
        {text + " x /NV+", 0, false},
        // Doubled quotes: short as a name, long as written; searched, not started.
        {'"' + std::string(300, '"') + '"', 1, false},
        // A process is still tried: only the shell minds.
        {'"' + text + "\" x /NV- C:\\T", 1, true},
        // Arguments that would be cut.
        {longest, 2, true},
        {longest + "x", 1, false},
        {longest + "x/NVC:\\", 2, true},
        {longest + "xx/NVC:\\", 1, false},
    };
    for (const Case& c : cases) {
        FakeShell shell;
        shell.answers["a.exe"] = {33, "a.exe"};
        EXPECT_EQ(Launch(shell, c.command).started, c.started) << c.command;
        EXPECT_EQ(shell.calls.size(), c.calls) << c.command;
    }
}

TEST(ShellExe, ExpandsLauncherCommands)
{
    struct Case {
        const char* command;
        const char* expanded; // nullptr: stays
    };
    const Case cases[] = {
        {"NVSUB p.exe a", "\"D:\\Navrix\\NVSUB.exe\" p.exe a"},
        {"nvsub p.exe  /nv+ C:\\T", "\"D:\\Navrix\\NVSUB.exe\" p.exe /nv+ C:\\T"},
        {"\"NVSub\" \"a b\" c", "\"D:\\Navrix\\NVSUB.exe\" \"a b\" c"},
        {"NVSUB", "\"D:\\Navrix\\NVSUB.exe\""},
        {"\"NVSUB", "\"D:\\Navrix\\NVSUB.exe\""},
        {" NVSUB x", nullptr},
        {"NVSU x", nullptr},
        {"", nullptr},
        {"\"", nullptr},
    };
    for (const Case& c : cases) {
        FakeShell shell;
        EXPECT_EQ(IsLauncherCommand(c.command), c.expanded != nullptr) << c.command;
        EXPECT_EQ(ShellExe(shell, kFolder).ExpandLauncher(kOwner, c.command),
                  c.expanded ? c.expanded : c.command);
        for (const std::string& call : shell.calls) {
            EXPECT_TRUE(call.starts_with("find")) << call;
        }
    }
}

} // namespace
} // namespace nv
