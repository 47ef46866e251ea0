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
        {"  prog  ", "prog", "prog", ""},
        {"prog a b", "prog", "prog", " a b"},
        {"prog   a", "prog", "prog", "   a"},
        {"prog\ta", "prog\ta", "prog\ta", ""}, // only blanks part
        {"pr\"og x\" y", "pr\"og", "pr\"og", " x\" y"},
        {"\"C:\\My Files\\p.exe\" -x", "C:\\My Files\\p.exe", "\"C:\\My Files\\p.exe\"", " -x"},
        {" \"a b\" ", "a b", "\"a b\"", ""},
        {"\"a b\"c d", "a b", "\"a b\"", "c d"},
        {"\"a b", "a b", "\"a b", ""},
        {"\"a\"\"b\" c", "a\"b", "\"a\"\"b\"", " c"},
        {"\"a\"\"", "a\"", "\"a\"\"", ""}, // the pair leaves nothing to close with
        {"\"a\"\"\"", "a\"", "\"a\"\"\"", ""},
        {"\"", "", "\"", ""},
        {"\"\"", "", "\"\"", ""},
        {"\"\"\"", "\"", "\"\"\"", ""},
        {"\"\" x", "", "\"\"", " x"},
        {"\" \" x", " ", "\" \"", " x"},
    };
    for (const Case& c : cases) {
        const SplitResult plain = SplitCommand(c.command, false);
        const SplitResult quoted = SplitCommand(c.command, true);
        EXPECT_EQ(plain.program, c.plain) << c.command;
        EXPECT_EQ(quoted.program, c.quoted) << c.command;
        EXPECT_EQ(plain.arguments, c.arguments) << c.command;
        EXPECT_EQ(quoted.arguments, c.arguments) << c.command;
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
        {"p.exe /NV++", " /NV++", "+", Process("\"p.exe\"", "+", "+", 3)},
        // The last one counts; the first is an argument then.
        {"p.exe /NV+ /NV-", " /NV-", "", "shell 7 open [p.exe] [ /NV+] in [\"p.exe\" /NV+] show 2"},
        {"p.exe a/nv.txt /NV+", " /NV+", "",
         "shell 7 open [p.exe] [ a/nv.txt] in [\"p.exe\" a/nv.txt] show 3"},
        {"p.exe x/nv.txt", " /nv.txt", ".txt", Process("\"p.exe\" x", ".txt", ".txt", 1)},
        // A switch and nothing before it does nothing.
        {"/NV+", " /NV+", "", ""},
        {"  /nv- C:\\T ", " /nv- C:\\T", "", ""},
        {"", "", "", ""},
        {"    ", "", "", ""},
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
        const char* file;
        const char* parameters;
        const char* directory;
    };
    const auto document = TargetKind::document;
    const auto program = TargetKind::program;
    const Case cases[] = {
        {"a.txt", "C:\\W\\np.exe", document, "C:\\W\\np.exe", "a.txt", "\"C:\\W\\np.exe\" a.txt"},
        {"a.txt /p x", "C:\\W\\np.exe", document, "C:\\W\\np.exe", "a.txt /p x",
         "\"C:\\W\\np.exe\" a.txt /p x"},
        {"\"a b.txt\" x", "np.exe", document, "np.exe", "\"a b.txt\" x",
         "\"np.exe\" \"a b.txt\" x"},
        {"np.EXE x", "C:\\W\\np.exe", program, "C:\\W\\np.exe", " x", "\"C:\\W\\np.exe\" x"},
        {"\"C:\\W W\\NP.exe\" x", "C:\\W W\\np.exe", program, "C:\\W W\\np.exe", " x",
         "\"C:\\W W\\np.exe\" x"},
        // Of a target in quotes the character before the "." is compared as well.
        {"\"other.exe\"", "np.exe", document, "np.exe", "\"other.exe\"",
         "\"np.exe\" \"other.exe\""},
        {"other.exe", "np.exe", program, "np.exe", "", "\"np.exe\""},
        {"\"ap.exe\"", "np.exe", program, "np.exe", "", "\"np.exe\""},
        {"\"p.\"", "np.", program, "np.", "", "\"np.\""},
        {"\"q.\"", "np.", document, "np.", "\"q.\"", "\"np.\" \"q.\""},
        // No extension, or one of a single character: a program.
        {"np x", "np.exe", program, "np.exe", " x", "\"np.exe\" x"},
        {"a.c", "np.exe", program, "np.exe", "", "\"np.exe\""},
        {"a.", "np.exe", program, "np.exe", "", "\"np.exe\""},
        {".", "np.exe", program, "np.exe", "", "\"np.exe\""},
        {"C:\\a.b\\np", "C:\\a.b\\np.exe", document, "C:\\a.b\\np.exe", "C:\\a.b\\np",
         "\"C:\\a.b\\np.exe\" C:\\a.b\\np"},
        {"a.longer", "x.e", document, "x.e", "a.longer", "\"x.e\" a.longer"},
        // An empty answer of a shell that succeeded.
        {"a.txt", "", document, "", "a.txt", "\"\" a.txt"},
        {"folder x", "", program, "", " x", "\"\" x"},
        // Placeholders behind the program's path.
        {"a.txt", "np.exe \"%1\"", document, "np.exe", "a.txt", "\"np.exe\" a.txt"},
        {"a.txt", "p \"%1\"", document, "p", "a.txt", "\"p\" a.txt"},
        {"a.txt", "np.exe  \"%1\"", document, "np.exe ", "a.txt", "\"np.exe \" a.txt"},
        {"a.txt", "np.exe \"", document, "np.exe", "a.txt", "\"np.exe\" a.txt"},
        {"a.txt", "np.exe \"a\" \"b\"", document, "np.exe \"a\"", "a.txt",
         "\"np.exe \"a\"\" a.txt"},
        {"a.txt", "\"np.exe\"", document, "\"np.exe\"", "a.txt", "\"\"np.exe\"\" a.txt"},
        {"a.txt", "np.exe \"%1\" x", document, "np.exe \"%1\" x", "a.txt",
         "\"np.exe \"%1\" x\" a.txt"},
        {"a.txt", "  np.exe  ", document, "np.exe", "a.txt", "\"np.exe\" a.txt"},
        {"a.txt", "\"", document, "\"", "a.txt", "\"\"\" a.txt"},
    };
    for (const Case& c : cases) {
        FakeShell shell;
        shell.answers[SplitCommand(c.command, false).program] = {33, c.answer};
        const LaunchInfo info = Launch(shell, c.command);
        EXPECT_EQ(info.targetKind, c.kind) << c.command;
        EXPECT_EQ(info.foundProgram, c.file) << c.command;
        ASSERT_EQ(shell.calls.size(), 2u) << c.command;
        EXPECT_EQ(shell.calls[1], "shell 7 open [" + std::string(c.file) + "] [" + c.parameters +
                                      "] in [" + c.directory + "] show 1");
    }
}

TEST(ShellExe, LooksAt255CharactersOfTheAnswer)
{
    const std::string path = "C:\\" + std::string(252, 'x');
    FakeShell shell;
    shell.answers["a.txt"] = {33, path + "yyyy"};
    EXPECT_EQ(Launch(shell, "a.txt").foundProgram, path);
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
        {".exe", {"find [.exe] [0]", "shell 7 open [.exe] [] in [.exe] show 1"}},
        {"a.", {"find [a.] [0]", "shell 7 open [a.] [] in [a.] show 1"}},
        {"a.b", {"find [a.b] [0]", "find [a.b] [0]", "shell 7 open [a.b] [] in [a.b] show 1"}},
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
    const LaunchInfo info = Launch(shell, "\\T\\a.txt x");
    EXPECT_EQ(shell.calls.back(),
              "shell 7 open [np.exe] [D:\\T\\a.txt x] in [\"np.exe\" D:\\T\\a.txt x] show 1");
    EXPECT_EQ(info.plainProgram, "D:\\T\\a.txt");
    EXPECT_EQ(info.targetKind, TargetKind::document);

    FakeShell onNetwork;
    ShellExe(onNetwork, "\\\\host\\menus").LaunchCommand(kOwner, "\\p.exe", "", false);
    EXPECT_EQ(onNetwork.calls, Calls({"find [\\p.exe] [0]", "find [\\p.exe] [0]"}));
}

TEST(ShellExe, ParsesWithoutStarting)
{
    FakeShell shell;
    shell.answers["a.txt"] = {33, "np.exe"};
    const LaunchInfo info =
        ShellExe(shell, kFolder).LaunchCommand(kOwner, "a.txt x /NV+ C:\\T", "Title", false);
    EXPECT_EQ(shell.calls, Calls({"find [a.txt] [0]"}));
    EXPECT_EQ(info.mode, LaunchMode::parseOnly);
    EXPECT_EQ(info.foundProgram, "np.exe");
    EXPECT_EQ(info.arguments, " x");
    EXPECT_EQ(info.switchText, " /NV+ C:\\T");
    EXPECT_EQ(info.workingDirectory, "C:\\T");
    EXPECT_FALSE(info.started);
    ShellExe(shell, kFolder).LaunchCommand(kOwner, "missing", "Title", false);
    EXPECT_EQ(shell.calls.size(), 2u);
}

TEST(ShellExe, ATitleMakesAProcess)
{
    FakeShell shell;
    shell.answers["p.exe"] = {33, "p.exe"};
    Launch(shell, "p.exe x", "Title");
    EXPECT_EQ(shell.calls.back(), Process("\"p.exe\" x", "", "Title", 1));
    Launch(shell, "p.exe /NV-C:\\T", "Title");
    EXPECT_EQ(shell.calls.back(), Process("\"p.exe\"", "C:\\T", "Title", 2));
    Launch(shell, "\"missing\" x", "Title");
    EXPECT_EQ(shell.calls.back(), Process("\"missing\"", "", "Title", 1));
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
        {"p.exe", 0, 1, false},          {"p.exe", -1, 1, false},
        {"p.exe /NV C:\\T", 0, 1, true}, {"p.exe /NV C:\\T", 33, 0, false},
        {"missing", 33, 0, true},        {"missing", 2, 1, false},
        {"missing /NV x", 0, -1, true},  {"missing /NV x", 33, 0, false},
    };
    for (const Case& c : cases) {
        FakeShell shell;
        shell.answers["p.exe"] = {33, "p.exe"};
        shell.shellResult = c.shellResult;
        shell.processResult = c.processResult;
        EXPECT_EQ(Launch(shell, c.command).started, c.started) << c.command;
    }
    FakeShell shell; // 32 is the last failure of a search, too
    shell.answers["p.exe"] = {32, "p.exe"};
    EXPECT_EQ(Launch(shell, "p.exe").targetKind, TargetKind::notFound);
}

TEST(ShellExe, SwallowsFaults)
{
    FakeShell shell;
    shell.failWithException = true;
    shell.answers["p.exe"] = {33, "C:\\p.exe"};
    const LaunchInfo info = Launch(shell, "p.exe x");
    EXPECT_EQ(info.foundProgram, "C:\\p.exe");
    EXPECT_EQ(info.targetKind, TargetKind::program);
    EXPECT_FALSE(info.started);
    EXPECT_FALSE(Launch(shell, "p.exe /NV C:\\T").started);

    // Its ending would begin before its first character.
    FakeShell strange;
    strange.answers[".a\""] = {33, "np.exe"};
    EXPECT_FALSE(Launch(strange, ".a\"").started);
    EXPECT_EQ(strange.calls.size(), 1u);
}

TEST(ShellExe, KeepsLongProgramTextFromTheShell)
{
    const std::string fits(259, 'p');
    FakeShell shell;
    EXPECT_TRUE(Launch(shell, fits).started);
    EXPECT_TRUE(Launch(shell, '"' + fits + "\" x").started);
    EXPECT_EQ(shell.calls.size(), 4u);

    FakeShell spared;
    const std::string text = fits + "p";
    for (const std::string& command : {text, '"' + text + '"', text + ".exe a", text + " x /NV+"}) {
        const LaunchInfo info = Launch(spared, command);
        EXPECT_FALSE(info.started);
        EXPECT_EQ(info.targetKind, TargetKind::notFound);
        EXPECT_EQ(info.plainProgram.substr(0, 260), text);
    }
    EXPECT_EQ(spared.calls, Calls{});
    // Doubled quotes: short as a name, long as written.
    EXPECT_FALSE(Launch(spared, '"' + std::string(300, '"') + '"').started);
    EXPECT_EQ(spared.calls.size(), 1u); // searched, not started
    spared.calls.clear();
    // A process is still tried: only the shell minds.
    EXPECT_TRUE(Launch(spared, '"' + text + "\" x /NV- C:\\T").started);
    EXPECT_EQ(spared.calls, Calls({Process('"' + text + '"', "", "", 2)}));
}

TEST(ShellExe, StartsNothingWithCutArguments)
{
    struct Case {
        std::size_t length; // of the arguments
        const char* ending;
        bool started;
    };
    const Case cases[] = {
        {32758, "", true}, {32759, "", false}, {32759, "/NVC:\\", true}, {32760, "/NVC:\\", false}};
    for (const Case& c : cases) {
        FakeShell shell;
        shell.answers["a.exe"] = {33, "a.exe"};
        const std::string arguments = ' ' + std::string(c.length - 1, 'x');
        EXPECT_EQ(Launch(shell, "a.exe" + arguments + c.ending).started, c.started) << c.length;
        EXPECT_EQ(shell.calls.size(), c.started ? 2u : 1u) << c.length;
    }
}

TEST(ShellExe, SurvivesHostileCommands)
{
    const std::string pieces[] = {
        "\"", " ", "/NV", "/nv+", "-", "\\", ".", "a", ".nv", "\x81", std::string(1, '\0')};
    // Every command of up to three of these, missed by the shell and found.
    std::vector<std::string> commands = {""};
    for (std::size_t at = 0; at < commands.size() && commands.size() < 1400; ++at) {
        for (const std::string& piece : pieces) {
            commands.push_back(commands[at] + piece);
        }
    }
    for (const std::string& command : commands) {
        FakeShell shell;
        const LaunchInfo missed = Launch(shell, command);
        EXPECT_LE(shell.calls.size(), 3u) << command; // two searches, one start
        FakeShell finding;
        finding.answers[missed.plainProgram] = {33, "C:\\np.exe"};
        const LaunchInfo found = Launch(finding, command);
        EXPECT_LE(finding.calls.size(), 3u) << command;
        // Nothing of the program part gets lost on the way to a document's parameters.
        if (found.targetKind == TargetKind::document) {
            EXPECT_NE(finding.calls.back().find(found.quotedProgram + found.arguments + "]"),
                      std::string::npos)
                << command;
        }
    }
    const std::string large(100000, 'x');
    FakeShell shell;
    shell.answers["p.exe"] = {33, "p.exe"};
    EXPECT_EQ(Launch(shell, "p.exe " + large).arguments, " " + large);
    EXPECT_EQ(Launch(shell, "p.exe /NV " + large).workingDirectory, large);
    for (const char* piece : {"\"", " ", "/NV", "\\", ".", "\" "}) {
        std::string repeated;
        while (repeated.size() < 100000) {
            repeated += piece;
        }
        const auto calls = shell.calls.size();
        Launch(shell, repeated);
        EXPECT_EQ(shell.calls.size() - calls, std::string(piece) == "\" " ? 2u : 0u) << piece;
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
        {"NVSUBx a", "\"D:\\Navrix\\NVSUB.exe\" a"},
        {"NVSUB", "\"D:\\Navrix\\NVSUB.exe\""},
        {"\"NVSUB", "\"D:\\Navrix\\NVSUB.exe\""},
        {" NVSUB x", nullptr},
        {"\"\"NVSUB x", nullptr},
        {"NVSU x", nullptr},
        {"C:\\NVSUB x", nullptr},
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
