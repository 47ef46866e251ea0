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

LaunchInfo Launch(FakeShell& shell, const std::string& command, const std::string& title = "")
{
    return ShellExe(shell, kFolder).LaunchCommand(kOwner, command, title, true);
}

TEST(ShellExe, SplitsCommands)
{
    struct Case {
        const char* command;
        const char* plain;
        const char* quoted;
        const char* arguments;
    };
    const Case cases[] = {
        {"", "", "", ""},
        {"   ", "", "", ""},
        {"prog", "prog", "prog", ""},
        {"prog a b", "prog", "prog", " a b"},
        {"prog\ta", "prog\ta", "prog\ta", ""}, // only blanks part
        {"pr\"og x\" y", "pr\"og", "pr\"og", " x\" y"},
        {"\"C:\\My Files\\p.exe\" -x", "C:\\My Files\\p.exe", "\"C:\\My Files\\p.exe\"", " -x"},
        {"\"a b\"c d", "a b", "\"a b\"", "c d"},
        {"\"a b", "a b", "\"a b", ""},
        {"\"a\"\"b\" c", "a\"b", "\"a\"\"b\"", " c"},
        {"\"a\"\"", "a\"", "\"a\"\"", ""}, // the pair leaves nothing to close with
        {"\"", "", "\"", ""},
        {"\"\"", "", "\"\"", ""},
        {"\"\" x", "", "\"\"", " x"},
    };
    for (const Case& c : cases) {
        for (const bool quoted : {false, true}) {
            const SplitResult split = SplitCommand(c.command, quoted);
            EXPECT_EQ(split.program, quoted ? c.quoted : c.plain) << c.command;
            EXPECT_EQ(split.arguments, c.arguments) << c.command;
        }
    }
}

TEST(ShellExe, UnderstandsTheSwitch)
{
    const std::string shell3 = "shell 7 open [p.exe] [] in [\"p.exe\"] show 3";
    struct Case {
        const char* command;
        const char* switchText;
        const char* folder;
        std::string start; // the last call; empty: nothing is started
    };
    const Case cases[] = {
        {"p.exe", "", "", "shell 7 open [p.exe] [] in [\"p.exe\"] show 1"},
        {"p.exe /NV", " /NV", "", "shell 7 open [p.exe] [] in [\"p.exe\"] show 1"},
        {"p.exe /nV-", " /nV-", "", "shell 7 open [p.exe] [] in [\"p.exe\"] show 2"},
        {"p.exe /NV+", " /NV+", "", shell3},
        {"  p.exe/nv+   ", " /nv+", "", shell3},
        {"p.exe  /NV+ D:\\A b ", " /NV+ D:\\A b", "D:\\A b",
         Process("\"p.exe\"", "D:\\A b", "D:\\A b", 3)},
        {"p.exe /NV-C:\\T", " /NV-C:\\T", "C:\\T", Process("\"p.exe\"", "C:\\T", "C:\\T", 2)},
        {"p.exe /NV C:\\T", " /NV C:\\T", "C:\\T", Process("\"p.exe\"", "C:\\T", "C:\\T", 1)},
        {"p.exe /NVx", " /NVx", "x", Process("\"p.exe\"", "x", "x", 1)},
        // The last one counts; the first is an argument then.
        {"p.exe /NV+ /NV-", " /NV-", "", "shell 7 open [p.exe] [ /NV+] in [\"p.exe\" /NV+] show 2"},
        {"p.exe a/nv.txt /NV+", " /NV+", "",
         "shell 7 open [p.exe] [ a/nv.txt] in [\"p.exe\" a/nv.txt] show 3"},
        {"p.exe x/nv.txt", " /nv.txt", ".txt", Process("\"p.exe\" x", ".txt", ".txt", 1)},
        // A switch and nothing before it does nothing.
        {"/NV+", " /NV+", "", ""},
        {"  /nv- C:\\T ", " /nv- C:\\T", "", ""},
        {"", "", "", ""},
    };
    for (const Case& c : cases) {
        FakeShell shell;
        shell.answers["p.exe"] = {33, "p.exe"};
        const LaunchInfo info = Launch(shell, c.command);
        EXPECT_EQ(info.switchText, c.switchText) << c.command;
        EXPECT_EQ(info.workingDirectory, c.folder) << c.command;
        EXPECT_EQ(info.started, !c.start.empty()) << c.command;
        EXPECT_EQ(shell.calls, c.start.empty() ? Calls{} : Calls({"find [p.exe] [0]", c.start}))
            << c.command;
        EXPECT_EQ(info.mode == LaunchMode::processStart, c.start.starts_with("process"))
            << c.command;
    }
}

TEST(ShellExe, TellsDocumentsFromPrograms)
{
    struct Case {
        const char* command;
        const char* answer;
        TargetKind kind;
        std::string file;
        std::string parameters;
    };
    const std::string longAnswer = "C:\\" + std::string(256, 'x');
    const auto document = TargetKind::document;
    const auto program = TargetKind::program;
    const Case cases[] = {
        {"a.txt /p x", "C:\\W\\np.exe", document, "C:\\W\\np.exe", "a.txt /p x"},
        {"\"a b.txt\" x", "np.exe", document, "np.exe", "\"a b.txt\" x"},
        {"np.EXE x", "C:\\W\\np.exe", program, "C:\\W\\np.exe", " x"},
        {"\"C:\\W W\\NP.exe\" x", "C:\\W W\\np.exe", program, "C:\\W W\\np.exe", " x"},
        // Of a target in quotes the character before the "." is compared as well.
        {"\"other.exe\"", "np.exe", document, "np.exe", "\"other.exe\""},
        {"other.exe", "np.exe", program, "np.exe", ""},
        {"\"ap.exe\"", "np.exe", program, "np.exe", ""},
        {"\"p.\"", "np.", program, "np.", ""},
        {"\"q.\"", "np.", document, "np.", "\"q.\""},
        // No extension, or one of a single character: a program.
        {"np x", "np.exe", program, "np.exe", " x"},
        {"a.c", "np.exe", program, "np.exe", ""},
        {".", "np.exe", program, "np.exe", ""},
        {"C:\\a.b\\np", "C:\\a.b\\np.exe", document, "C:\\a.b\\np.exe", "C:\\a.b\\np"},
        {"a.longer", "x.e", document, "x.e", "a.longer"},
        // An empty answer of a shell that succeeded.
        {"a.txt", "", document, "", "a.txt"},
        {"folder x", "", program, "", " x"},
        // Placeholders behind the program's path.
        {"a.txt", "np.exe \"%1\"", document, "np.exe", "a.txt"},
        {"a.txt", "np.exe  \"%1\"", document, "np.exe ", "a.txt"},
        {"a.txt", "np.exe \"", document, "np.exe", "a.txt"},
        {"a.txt", "np.exe \"a\" \"b\"", document, "np.exe \"a\"", "a.txt"},
        {"a.txt", "\"np.exe\"", document, "\"np.exe\"", "a.txt"},
        {"a.txt", "np.exe \"%1\" x", document, "np.exe \"%1\" x", "a.txt"},
        {"a.txt", "  np.exe  ", document, "np.exe", "a.txt"},
        {"a.txt", "\"", document, "\"", "a.txt"},
        // 255 characters of an answer count.
        {"a.txt", longAnswer.c_str(), document, std::string(longAnswer, 0, 255), "a.txt"},
    };
    for (const Case& c : cases) {
        FakeShell shell;
        shell.answers[SplitCommand(c.command, false).program] = {33, c.answer};
        const LaunchInfo info = Launch(shell, c.command);
        EXPECT_EQ(info.targetKind, c.kind) << c.command;
        EXPECT_EQ(info.foundProgram, c.file) << c.command;
        const std::string line = '"' + c.file + (c.kind == document ? "\" " : "\"") + c.parameters;
        EXPECT_EQ(shell.calls.back(),
                  "shell 7 open [" + c.file + "] [" + c.parameters + "] in [" + line + "] show 1");
    }
}

TEST(ShellExe, TriesAgainOnTheProgramsDrive)
{
    struct Case {
        const char* command;
        Calls calls;
    };
    const Case cases[] = {
        {"\\T\\p.exe x",
         {"find [\\T\\p.exe] [0]", "find [D:\\T\\p.exe] [0]",
          "shell 7 open [D:\\T\\p.exe] [] in [D:\\T\\p.exe x] show 1"}},
        {"\"\\T t\\p.exe\" x /NV- ",
         {"find [\\T t\\p.exe] [0]", "find [D:\\T t\\p.exe] [0]",
          "shell 7 open [\"D:\\T t\\p.exe\"] [] in [\"D:\\T t\\p.exe\" x ] show 2"}},
        // A second try is made of what needs no drive, too.
        {"p.exe",
         {"find [p.exe] [0]", "find [p.exe] [0]", "shell 7 open [p.exe] [] in [p.exe] show 1"}},
        // No second try of menus, of what has no "." after its first character, of two characters.
        {"\\M.nV", {"find [\\M.nV] [0]", "shell 7 open [\\M.nV] [] in [D:\\M.nV] show 1"}},
        {"\\p a.nvx", {"find [\\p] [0]", "shell 7 open [\\p] [] in [D:\\p a.nvx] show 1"}},
        {"\\p", {"find [\\p] [0]", "shell 7 open [\\p] [] in [\\p] show 1"}},
        {"\\T\\p", {"find [\\T\\p] [0]", "shell 7 open [\\T\\p] [] in [D:\\T\\p] show 1"}},
        {"a.", {"find [a.] [0]", "shell 7 open [a.] [] in [a.] show 1"}},
        // The folder after the switch is not passed on.
        {"p x /NV+ C:\\T", {"find [p] [0]", Process("p", "", "", 3)}},
    };
    for (const Case& c : cases) {
        FakeShell shell;
        const LaunchInfo info = Launch(shell, c.command);
        EXPECT_EQ(shell.calls, c.calls) << c.command;
        EXPECT_EQ(info.targetKind, TargetKind::notFound) << c.command;
        EXPECT_EQ(info.foundProgram, "") << c.command;
        EXPECT_TRUE(info.started) << c.command;
    }
}

TEST(ShellExe, StartsWhatTheSecondTryFinds)
{
    FakeShell shell;
    shell.answers["D:\\T\\a.txt"] = {33, "np.exe"};
    EXPECT_EQ(Launch(shell, "\\T\\a.txt x").plainProgram, "D:\\T\\a.txt");
    EXPECT_EQ(shell.calls.back(),
              "shell 7 open [np.exe] [D:\\T\\a.txt x] in [\"np.exe\" D:\\T\\a.txt x] show 1");
    Launch(shell, "\\T\\a.txt /NV-C:\\T", "Title"); // one of its own makes a process
    EXPECT_EQ(shell.calls.back(), Process("\"np.exe\" D:\\T\\a.txt", "C:\\T", "Title", 2));
    Launch(shell, "\"missing\" x", "Title");
    EXPECT_EQ(shell.calls.back(), Process("\"missing\"", "", "Title", 1));
    FakeShell onNetwork; // where the program has no drive
    ShellExe(onNetwork, "\\\\host\\menus").LaunchCommand(kOwner, "\\p.exe", "", false);
    EXPECT_EQ(onNetwork.calls, Calls({"find [\\p.exe] [0]", "find [\\p.exe] [0]"}));
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
        {"p.exe", 33, 0, true},          {"p.exe", 32, 1, false},
        {"p.exe", -1, 1, false},         {"p.exe /NV C:\\T", 0, -1, true},
        {"p.exe /NV C", 33, 0, false},   {"missing", 33, 0, true},
        {"missing", 2, 1, false},        {"missing /NV x", 0, 1, true},
        {"missing /NV x", 33, 0, false},
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
    // Its ending would begin before its first character.
    shell.calls.clear();
    shell.answers[".a\""] = {33, "np.exe"};
    EXPECT_FALSE(Launch(shell, ".a\"").started);
    EXPECT_EQ(shell.calls.size(), 1u);
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

TEST(ShellExe, SurvivesHostileCommands)
{
    const std::string pieces[] = {
        "\"", " ", "/NV", "/nv+", "-", "\\", ".", "a", ".nv", "\x81", std::string(1, '\0')};
    // Every command of up to three of these, and long ones of a single piece.
    std::vector<std::string> commands = {""};
    for (std::size_t at = 0; at < commands.size() && commands.size() < 1400; ++at) {
        for (const std::string& piece : pieces) {
            commands.push_back(commands[at] + piece);
        }
    }
    for (const std::string& piece : pieces) {
        commands.push_back("p.exe /NV ");
        while (commands.back().size() < 100000) {
            commands.back() += piece;
        }
        commands.push_back(commands.back().substr(10));
    }
    for (const std::string& command : commands) {
        FakeShell shell; // that finds nothing first, and then what is asked
        shell.answers[Launch(shell, command).plainProgram] = {33, "C:\\np.exe"};
        const LaunchInfo found = Launch(shell, command);
        EXPECT_LE(shell.calls.size(), 6u) << command; // two searches and one start each
        // Nothing of the program part gets lost on the way to a document's parameters.
        EXPECT_TRUE(found.targetKind != TargetKind::document ||
                    shell.calls.back().find(found.quotedProgram + found.arguments + "]") !=
                        std::string::npos)
            << command;
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
