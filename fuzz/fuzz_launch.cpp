// Commands of links. Input, parted by code 30: the command, what the shell answers to the first and
// to the second question ("!" before an answer: nothing is found), a console title.
//
// What comes of a command is held against a second writing of the same steps: slow, plain, and with
// positions from 1, as the steps were first put down.
#include "docs/paths.h"
#include "fuzz_input.h"
#include "mainwindow/companion.h"
#include "mainwindow/link_click.h"
#include "mainwindow/shell_exe.h"
#include "platform/shell.h"

#include <algorithm>
#include <array>
#include <string>

namespace nv
{
namespace
{

constexpr WindowHandle kOwner = 7;
const std::string kFolder = "D:\\Navrix";
// Longer command lines have a limit of their own, which the second writing has not.
constexpr std::size_t kLongestCompared = 30000;

class ScriptedShell final : public Shell
{
public:
    ScriptedShell(std::string_view first, std::string_view second) : answers_{first, second} {}

    std::int32_t FindProgram(const std::string& file, const std::string& directory,
                             std::span<char> answer) override
    {
        CHECK(file.size() <= 259 && answer.size() >= 260);
        log.append("find ").append(file).append("|").append(directory).append("\n");
        std::string_view given = answers_[asked_++ % 2];
        const bool found = !given.starts_with('!');
        given = given.substr(found ? 0 : 1, 259);
        std::copy(given.begin(), given.end(), answer.begin());
        answer[given.size()] = '\0'; // what stood behind it stays, as with the real shell
        return found ? 33 : 32;
    }

    std::int32_t StartByShell(const ShellStartRequest& request) override
    {
        log += "shell " + std::to_string(request.owner) + request.verb + "|" + request.file + "|" +
               request.parameters + "|" + request.directory + "|" +
               std::to_string(static_cast<int>(request.show)) + "\n";
        ++starts;
        return request.file.size() % 2 == 0 ? 33 : 32;
    }

    std::int32_t StartProcess(const ProcessStartRequest& request) override
    {
        log += "process " + request.commandLine + "|" + request.directory + "|" + request.title +
               "|" + std::to_string(static_cast<int>(request.show)) + "\n";
        ++starts;
        return static_cast<std::int32_t>(request.commandLine.size() % 3) - 1;
    }

    std::string log;
    int starts = 0;

private:
    std::array<std::string_view, 2> answers_;
    std::size_t asked_ = 0;
};

// A position that there is none of: the step ends there, and the whole of them with it.
struct Fault {
};

using Text = std::string;

long Len(const Text& text)
{
    return static_cast<long>(text.size());
}

// length characters from position on, positions from 1; fewer where the text ends.
Text Mid(const Text& text, long position, long length = 1000000)
{
    if (position < 1 || length < 0) {
        throw Fault();
    }
    return position > Len(text) ? Text()
                                : text.substr(static_cast<std::size_t>(position - 1),
                                              static_cast<std::size_t>(length));
}

Text Right(const Text& text, long length)
{
    return length >= Len(text) ? text : Mid(text, Len(text) - length + 1, length);
}

// Where part stands at or after position; 0: nowhere.
long InStr(long position, const Text& text, const Text& part)
{
    for (long at = position; at + Len(part) - 1 <= Len(text); ++at) {
        if (Mid(text, at, Len(part)) == part) {
            return at;
        }
    }
    return 0;
}

long InStrLast(const Text& text, const Text& part)
{
    for (long at = Len(text) - Len(part) + 1; at >= 1; --at) {
        if (Mid(text, at, Len(part)) == part) {
            return at;
        }
    }
    return 0;
}

Text Trimmed(Text text)
{
    while (Mid(text, 1, 1) == " ") {
        text = Mid(text, 2);
    }
    while (Right(text, 1) == " ") {
        text.pop_back();
    }
    return text;
}

SplitResult PlainSplit(Text text, bool keepQuotes)
{
    text = Trimmed(text);
    if (Mid(text, 1, 1) != "\"") {
        const long blank = InStr(1, text, " ");
        return blank <= 1 ? SplitResult{text, ""}
                          : SplitResult{Mid(text, 1, blank - 1), Mid(text, blank)};
    }
    const Text quote = keepQuotes ? "\"" : "";
    SplitResult split{quote, ""};
    long at = 2;
    while (at <= Len(text)) {
        if (Mid(text, at, 1) != "\"") {
            split.program += Mid(text, at, 1);
            at += 1;
        } else if (Mid(text, at + 1, 1) == "\"") {
            split.program += "\"" + quote;
            at += 2;
        } else {
            return {split.program + quote, Mid(text, at + 1)};
        }
    }
    return split;
}

// Of a name of two characters or more, and a colon: "x:" is a drive.
bool HasScheme(const Text& target)
{
    const Text letters = "ABCDEFGHIJKLMNOPQRSTUVWXYZ";
    const long colon = InStr(1, target, ":");
    if (colon < 3 || InStr(1, letters, UpperCase(Mid(target, 1, 1))) == 0) {
        return false;
    }
    for (long at = 1; at < colon; ++at) {
        if (InStr(1, letters + "0123456789+-", UpperCase(Mid(target, at, 1))) == 0) {
            return false;
        }
    }
    return true;
}

class PlainLaunch
{
public:
    PlainLaunch(ScriptedShell& shell, Text title, LaunchInfo& info)
        : shell_(shell), title_(std::move(title)), info_(info)
    {
    }

    void Run(const Text& given);

private:
    bool TakeSwitch(const Text& command);
    bool Find();
    bool IsProgram() const;
    void ShellStart(const Text& file, const Text& parameters);
    void ProcessStart(const Text& commandLine, const Text& directory);

    ScriptedShell& shell_;
    Text title_;
    LaunchInfo& info_;
    Text commandLine_;
    Text found_;
    int show_ = 1;
};

void PlainLaunch::Run(const Text& given)
{
    const Text command = Trimmed(given);
    if (command.empty() || !TakeSwitch(command)) {
        return;
    }
    bool found = Find();
    if (!found && Len(commandLine_) >= 3) {
        if (Mid(commandLine_, 1, 2) == "\"\\") {
            commandLine_ = "\"D:" + Mid(commandLine_, 2);
        } else if (Mid(commandLine_, 1, 1) == "\\") {
            commandLine_ = "D:" + commandLine_;
        }
        if (InStr(1, UpperCase(commandLine_), ".NV") == 0 && InStr(2, commandLine_, ".") != 0) {
            found = Find();
        }
    }
    if (!found) {
        if (info_.mode == LaunchMode::shellStart) {
            const long longest = HasScheme(info_.plainProgram) ? 2047 : 259;
            if (Len(info_.plainProgram) <= longest && Len(info_.quotedProgram) <= longest + 2) {
                ShellStart(info_.quotedProgram, "");
            }
        } else if (info_.mode == LaunchMode::processStart) {
            ProcessStart(info_.quotedProgram, "");
        }
        return;
    }
    const bool program = IsProgram();
    const Text target = program ? "" : info_.quotedProgram;
    commandLine_ = "\"" + found_ + "\"" + (program ? "" : " ") + target + info_.arguments;
    info_.targetKind = program ? TargetKind::program : TargetKind::document;
    info_.foundProgram = found_;
    if (info_.mode == LaunchMode::shellStart) {
        ShellStart(found_, target + info_.arguments);
    } else if (info_.mode == LaunchMode::processStart) {
        ProcessStart(commandLine_, info_.workingDirectory);
    }
}

bool PlainLaunch::TakeSwitch(const Text& command)
{
    long p = InStrLast(UpperCase(command), "/NV");
    if (p == 0) {
        commandLine_ = command;
        return true;
    }
    info_.switchText = " " + Mid(command, p);
    if (p < 2) {
        return false;
    }
    commandLine_ = Mid(command, 1, p - 1);
    p += 3;
    const Text sign = Mid(command, p, 1);
    show_ = sign == "+" ? 3 : sign == "-" ? 2 : 1;
    p += show_ == 1 ? 0 : 1;
    if (p <= Len(command)) {
        if (info_.mode != LaunchMode::parseOnly) {
            info_.mode = LaunchMode::processStart;
        }
        info_.workingDirectory = Trimmed(Mid(command, p));
    }
    return true;
}

bool PlainLaunch::Find()
{
    info_.plainProgram = PlainSplit(commandLine_, false).program;
    info_.quotedProgram = PlainSplit(commandLine_, true).program;
    info_.arguments = PlainSplit(commandLine_, true).arguments;
    if (Len(info_.plainProgram) > 259) {
        return false;
    }
    Text buffer(300, ' ');
    const auto result = shell_.FindProgram(info_.plainProgram, "0", buffer);
    buffer = Mid(buffer, 1, 255);
    for (char& ch : buffer) {
        ch = ch == '\0' ? ' ' : ch;
    }
    found_ = Trimmed(buffer);
    if (Right(found_, 1) == "\"") {
        long at = Len(found_) - 1;
        while (at > 1 && Mid(found_, at, 2) != " \"") {
            --at;
        }
        if (at > 1) {
            found_ = Mid(found_, 1, at - 1);
        }
    }
    return result > 32;
}

bool PlainLaunch::IsProgram() const
{
    const Text& target = info_.quotedProgram;
    const long p = InStrLast(target, ".");
    if (p == 0) {
        return true;
    }
    const long length = Len(target);
    const bool quoted = Right(target, 1) == "\"";
    const long n = quoted ? length - p + 1 : length - p;
    const long adjust = quoted ? 0 : 1;
    if (n < 2) {
        return true;
    }
    return UpperCase(Right(found_, n)) == UpperCase(Mid(target, length - n + adjust, n));
}

void PlainLaunch::ShellStart(const Text& file, const Text& parameters)
{
    info_.started = shell_.StartByShell({kOwner, "open", file, parameters, commandLine_,
                                         static_cast<ShowMode>(show_)}) > 32;
}

void PlainLaunch::ProcessStart(const Text& commandLine, const Text& directory)
{
    if (commandLine.empty()) {
        return;
    }
    ProcessStartRequest request;
    request.commandLine = commandLine;
    request.directory = directory;
    request.title = title_.empty() ? directory : title_;
    request.show = static_cast<ShowMode>(show_);
    info_.started = shell_.StartProcess(request) != 0;
}

struct Script {
    std::string command;
    std::string_view first;
    std::string_view second;
    std::string title;
};

void CheckLaunch(const Script& script, bool run)
{
    ScriptedShell shell(script.first, script.second);
    const LaunchInfo info =
        ShellExe(shell, kFolder).LaunchCommand(kOwner, script.command, script.title, run);
    CHECK(shell.starts <= (run ? 1 : 0));
    CHECK(!info.started || shell.starts == 1);
    if (script.command.size() > kLongestCompared) {
        return;
    }
    ScriptedShell plainShell(script.first, script.second);
    LaunchInfo plain;
    const auto runMode = script.title.empty() ? LaunchMode::shellStart : LaunchMode::processStart;
    plain.mode = run ? runMode : LaunchMode::parseOnly;
    try {
        PlainLaunch(plainShell, script.title, plain).Run(script.command);
    } catch (const Fault&) {
        // What was learnt before it stays.
    }
    CHECK(shell.log == plainShell.log);
    CHECK(info.foundProgram == plain.foundProgram);
    CHECK(info.quotedProgram == plain.quotedProgram);
    CHECK(info.plainProgram == plain.plainProgram);
    CHECK(info.arguments == plain.arguments);
    CHECK(info.switchText == plain.switchText);
    CHECK(info.workingDirectory == plain.workingDirectory);
    CHECK(info.targetKind == plain.targetKind);
    CHECK(info.mode == plain.mode);
    CHECK(info.started == plain.started);
}

void CheckSplit(const std::string& command)
{
    for (const bool keepQuotes : {false, true}) {
        const SplitResult split = SplitCommand(command, keepQuotes);
        const SplitResult plain = PlainSplit(command, keepQuotes);
        CHECK(split.program == plain.program && split.arguments == plain.arguments);
    }
    // As written, nothing of the command is lost.
    const SplitResult kept = SplitCommand(command, true);
    CHECK(kept.program + kept.arguments == Trim(command));
}

void CheckClick(const Script& script)
{
    ScriptedShell shell(script.first, script.second);
    ShellExe shellExe(shell, kFolder);
    const auto menu = MenuToOpen(shellExe, kOwner, script.command);
    CHECK(!menu || FileExtension(*menu) == "NVM");
    ScriptedShell parsing(script.first, script.second);
    const LaunchInfo parsed =
        ShellExe(parsing, kFolder).LaunchCommand(kOwner, script.command, "", false);
    const bool quoted = script.command.starts_with('"');
    ScriptedShell expanding(script.first, script.second);
    CHECK(ShellExe(expanding, kFolder).ExpandLauncher(kOwner, script.command) ==
          (UpperCase(script.command).substr(quoted ? 1 : 0, 5) == "NVSUB"
               ? "\"D:\\Navrix\\NVSUB.exe\"" + parsed.arguments + parsed.switchText
               : script.command));
    CHECK(shell.starts + expanding.starts == 0);
    LaunchLink(shellExe, kOwner, script.command);
    CHECK(shell.starts <= 1);
}

void CheckCompanion(const Script& script)
{
    // By the number of the show state; minimized has three.
    static constexpr std::array kHandedOn = {"", "", " /NV-", " /NV+", "", "", " /NV-", " /NV-"};
    const std::size_t show = script.title.size() % kHandedOn.size();
    std::string command = script.command;
    command.erase(0, command.find_first_not_of(" \t"));
    if (!command.empty() && UpperCase(command).find("/NV") == std::string::npos) {
        command += kHandedOn[show];
    }
    CHECK(CompanionCommand(script.command, static_cast<int>(show)) == command);
    ScriptedShell shell(script.first, script.second);
    const LaunchInfo info = ShellExe(shell, kFolder).LaunchCommand(kOwner, command, "", true);
    for (const CodePage& codePage : kCodePages) {
        const std::string text = CannotStartText(info, codePage);
        CHECK(!text.empty() && codePage.CountCharacters(text) < 1200); // fits a screen
    }
}

} // namespace
} // namespace nv

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    using namespace nv;
    const auto fields = Fields(InputText(data, size), 4);
    const Script script{std::string(fields[0]), fields[1], fields[2], std::string(fields[3])};
    CheckSplit(script.command);
    CheckLaunch(script, true);
    CheckLaunch(script, false);
    CheckClick(script);
    CheckCompanion(script);
    return 0;
}
