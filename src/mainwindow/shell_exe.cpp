#include "mainwindow/shell_exe.h"

#include <algorithm>
#include <array>
#include <exception>
#include <utility>

namespace nv
{

namespace
{

constexpr auto npos = std::string::npos;

// The shell may write 260 characters as an answer; 255 of them are looked at.
constexpr std::size_t kAnswerBuffer = 1024;
constexpr std::size_t kAnswerField = 255;
// A longer file name is no file's, and the shell does not survive some of them.
constexpr std::size_t kLongestFile = 259;
// The shell takes addresses that are longer than files, but no more than that.
constexpr std::size_t kLongestAddress = 2047;
// A process is not given more; some systems start it with what is left after cutting.
constexpr std::size_t kLongestCommandLine = 32766;

// What every process of a link is created with. The size is that of no real record; the system does
// not look at it.
constexpr std::uint32_t kStartupSize = 65;
constexpr std::uint32_t kUseShowWindow = 1;
constexpr std::uint32_t kFillAttribute = 16;
constexpr std::uint32_t kNormalPriorityNewGroup = 0x20 | 0x200;

std::string InQuotes(std::string_view text)
{
    return '"' + std::string(text) + '"';
}

// Splits a text that begins with a double quote; two in a row stand for one inside the program.
SplitResult SplitQuoted(std::string_view text, bool keepQuotes)
{
    SplitResult split;
    if (keepQuotes) {
        split.program = '"';
    }
    for (std::size_t at = 1; at < text.size(); ++at) {
        if (text[at] != '"') {
            split.program += text[at];
            continue;
        }
        const bool pair = at + 1 < text.size() && text[at + 1] == '"';
        split.program += pair || keepQuotes ? "\"" : "";
        if (!pair) {
            split.arguments = text.substr(at + 1);
            break;
        }
        split.program += keepQuotes ? "\"" : "";
        ++at;
    }
    return split;
}

// Some associations append a quoted placeholder to the program's path: it goes, with its blank.
void CutPlaceholder(std::string& path)
{
    const auto at = path.ends_with('"') ? path.rfind(" \"") : npos;
    if (at != npos) {
        path.resize(at);
    }
}

// "C:" of "C:\Menus". A folder on another computer has none.
std::string DriveOf(std::string_view folder)
{
    return std::string(folder.size() >= 2 && folder[1] == ':' ? folder.substr(0, 2) : "");
}

// The state of one LaunchCommand. Fills info as it goes, so that what was learnt before a fault
// stays.
class Launch
{
public:
    Launch(Shell& shell, WindowHandle owner, const std::string& consoleTitle, LaunchInfo& info)
        : shell_(shell), owner_(owner), consoleTitle_(consoleTitle), info_(info)
    {
    }

    void Run(std::string_view command, const std::string& drive);

private:
    bool TakeSwitch(std::string_view command);
    bool AskShell();
    bool AmendForRetry(const std::string& drive);
    bool IsDocument() const;
    void StartFound(const std::string& document);
    void StartAsWritten();
    bool ShellStart(const std::string& file, const std::string& parameters);
    bool ProcessStart(const std::string& commandLine, const std::string& directory);

    Shell& shell_;
    const WindowHandle owner_;
    const std::string& consoleTitle_;
    LaunchInfo& info_;

    std::string commandLine_; // the command without its switch; then what is run in the end
    std::string found_;       // the shell's answer
    ShowMode show_ = ShowMode::normal;
};

void Launch::Run(std::string_view command, const std::string& drive)
{
    command = Trim(command);
    if (command.empty() || !TakeSwitch(command)) {
        return;
    }
    if (!AskShell() && !(AmendForRetry(drive) && AskShell())) {
        StartAsWritten();
    } else if (IsDocument()) {
        info_.targetKind = TargetKind::document;
        StartFound(info_.quotedProgram);
    } else {
        info_.targetKind = TargetKind::program;
        StartFound("");
    }
}

// False: there is nothing before the switch.
bool Launch::TakeSwitch(std::string_view command)
{
    auto at = FindSwitch(command);
    if (at == npos) {
        commandLine_ = command;
        return true;
    }
    info_.switchText = ' ' + std::string(command.substr(at));
    commandLine_ = command.substr(0, at);
    if (Trim(commandLine_).empty()) {
        return false;
    }
    at += 3;
    if (at < command.size() && (command[at] == '+' || command[at] == '-')) {
        show_ = command[at] == '+' ? ShowMode::maximized : ShowMode::minimized;
        ++at;
    }
    if (at < command.size()) {
        if (info_.mode != LaunchMode::parseOnly) {
            info_.mode = LaunchMode::processStart;
        }
        info_.workingDirectory = Trim(command.substr(at));
    }
    return true;
}

// Splits commandLine_ and asks for the program that opens the program part. An empty answer with a
// good result counts as found.
bool Launch::AskShell()
{
    info_.plainProgram = SplitCommand(commandLine_, false).program;
    SplitResult quoted = SplitCommand(commandLine_, true);
    info_.quotedProgram = std::move(quoted.program);
    info_.arguments = std::move(quoted.arguments);
    if (info_.plainProgram.size() > kLongestFile) {
        return false;
    }
    std::array<char, kAnswerBuffer> answer;
    answer.fill(' ');
    const std::int32_t result = shell_.FindProgram(info_.plainProgram, "0", answer);
    std::replace(answer.begin(), answer.end(), '\0', ' ');
    found_ = Trim({answer.data(), kAnswerField});
    CutPlaceholder(found_);
    return result > kLastShellFailure;
}

// A path that begins with "\" is meant on the drive of the program's folder. False: a second try is
// of no use.
bool Launch::AmendForRetry(const std::string& drive)
{
    if (commandLine_.size() < 3) {
        return false;
    }
    const std::size_t first = commandLine_.front() == '"' ? 1 : 0;
    if (commandLine_[first] == '\\') {
        commandLine_.insert(first, drive);
    }
    const bool menu = UpperCase(commandLine_).find(".NV") != npos;
    return !menu && commandLine_.find('.', 1) != npos;
}

// A target that ends like the program found for it is that program itself. What is compared is the
// extension, when it has two characters or more. Of a target in quotes it is the "." too, and the
// character before it; one without that character is a fault.
bool Launch::IsDocument() const
{
    const std::string& target = info_.quotedProgram;
    const auto dot = target.rfind('.');
    if (dot == npos) {
        return false;
    }
    const bool quoted = target.back() == '"';
    const std::string ending =
        quoted ? target.substr(dot - 1, target.size() - dot) : target.substr(dot + 1);
    if (ending.size() < 2) {
        return false;
    }
    const auto same = std::min(ending.size(), found_.size());
    return !EqualIgnoringCase(ending, std::string_view(found_).substr(found_.size() - same));
}

// Starts the program found with the document, when there is one, and the arguments.
void Launch::StartFound(const std::string& document)
{
    const std::string parameters = document + info_.arguments;
    commandLine_ = InQuotes(found_) + (document.empty() ? "" : " ") + parameters;
    info_.foundProgram = found_;
    if (info_.mode == LaunchMode::shellStart) {
        info_.started = ShellStart(found_, parameters);
    } else if (info_.mode == LaunchMode::processStart) {
        info_.started = ProcessStart(commandLine_, info_.workingDirectory);
    }
}

// The shell or the system may know better; the arguments and the folder are not passed.
void Launch::StartAsWritten()
{
    if (info_.mode == LaunchMode::shellStart) {
        info_.started = FitsShell(info_) && ShellStart(info_.quotedProgram, "");
    } else if (info_.mode == LaunchMode::processStart) {
        info_.started = ProcessStart(info_.quotedProgram, "");
    }
}

// The directory is the command line as it stands, which is hardly ever a folder: the program then
// starts in ours.
bool Launch::ShellStart(const std::string& file, const std::string& parameters)
{
    // The shell puts quotes around the file, and a blank behind it.
    if (file.size() + parameters.size() + 3 > kLongestCommandLine) {
        return false;
    }
    return shell_.StartByShell({owner_, "open", file, parameters, commandLine_, show_}) >
           kLastShellFailure;
}

bool Launch::ProcessStart(const std::string& commandLine, const std::string& directory)
{
    if (commandLine.empty() || commandLine.size() > kLongestCommandLine) {
        return false;
    }
    ProcessStartRequest request;
    request.commandLine = commandLine;
    request.directory = directory;
    request.title = consoleTitle_.empty() ? directory : consoleTitle_;
    request.startupSize = kStartupSize;
    request.startupFlags = kUseShowWindow;
    request.fillAttribute = kFillAttribute;
    request.show = show_;
    request.inheritHandles = true;
    request.creationFlags = kNormalPriorityNewGroup;
    return shell_.StartProcess(request) != 0;
}

LaunchMode FirstMode(bool run, const std::string& consoleTitle)
{
    if (!run) {
        return LaunchMode::parseOnly;
    }
    return consoleTitle.empty() ? LaunchMode::shellStart : LaunchMode::processStart;
}

} // namespace

SplitResult SplitCommand(std::string_view command, bool keepQuotes)
{
    command = Trim(command);
    if (!command.empty() && command.front() == '"') {
        return SplitQuoted(command, keepQuotes);
    }
    const auto blank = std::min(command.find(' '), command.size());
    return {std::string(command.substr(0, blank)), std::string(command.substr(blank))};
}

std::size_t FindSwitch(std::string_view command)
{
    return UpperCase(command).rfind("/NV");
}

bool IsLauncherCommand(std::string_view command)
{
    if (!command.empty() && command.front() == '"') {
        command.remove_prefix(1);
    }
    return UpperCase(command.substr(0, 5)) == "NVSUB";
}

bool IsAddress(std::string_view target)
{
    const auto isLetter = [](char ch) {
        return (ch >= 'a' && ch <= 'z') || (ch >= 'A' && ch <= 'Z');
    };
    const auto isOfName = [&](char ch) {
        return isLetter(ch) || (ch >= '0' && ch <= '9') || ch == '-' || ch == '+';
    };
    const auto colon = target.find(':');
    const std::string_view name = target.substr(0, colon);
    return colon != npos && name.size() >= 2 && isLetter(name.front()) &&
           std::all_of(name.begin(), name.end(), isOfName);
}

bool FitsShell(const LaunchInfo& info)
{
    const std::size_t longest = IsAddress(info.plainProgram) ? kLongestAddress : kLongestFile;
    // Doubled quotes make the program as written longer than its plain form.
    return info.plainProgram.size() <= longest && info.quotedProgram.size() <= longest + 2;
}

ShellExe::ShellExe(Shell& shell, std::string programFolder)
    : shell_(shell), programFolder_(std::move(programFolder))
{
}

LaunchInfo ShellExe::LaunchCommand(WindowHandle owner, const std::string& command,
                                   const std::string& consoleTitle, bool run)
{
    LaunchInfo info;
    info.mode = FirstMode(run, consoleTitle);
    try {
        Launch(shell_, owner, consoleTitle, info).Run(command, DriveOf(programFolder_));
    } catch (const std::exception&) {
        // A fault on the way shows as a command that was not started, like any other failure.
    }
    return info;
}

std::string ShellExe::ExpandLauncher(WindowHandle owner, const std::string& command)
{
    if (!IsLauncherCommand(command)) {
        return command;
    }
    const LaunchInfo parsed = LaunchCommand(owner, command, "", false);
    return InQuotes(LauncherPath()) + parsed.arguments + parsed.switchText;
}

} // namespace nv
