#include "win32/win_shell.h"

#include "win32/mouse_presses.h"
#include "win32/process.h"

#include <windows.h>

#include <shellapi.h>

namespace nv
{

namespace
{

// Wine's shell crashes on some that are longer.
constexpr std::size_t kLongestFileUnderWine = 960;

// The calls that answer with a number dressed as an instance handle.
std::int32_t ResultOf(HINSTANCE result)
{
    return static_cast<std::int32_t>(reinterpret_cast<INT_PTR>(result));
}

const char* TextOrNone(const std::string& text)
{
    return text.empty() ? nullptr : text.c_str();
}

// A started program inherits the error mode and the search path for DLLs: for the time of the start
// they are what it would find without us.
class InheritedDefaults
{
public:
    InheritedDefaults() : errorMode_(SetErrorMode(0)) { SetDllDirectoryA(nullptr); }
    ~InheritedDefaults()
    {
        SetErrorMode(errorMode_);
        SetDllDirectoryA("");
    }
    InheritedDefaults(const InheritedDefaults&) = delete;
    InheritedDefaults& operator=(const InheritedDefaults&) = delete;

private:
    UINT errorMode_;
};

} // namespace

std::int32_t WinShell::FindProgram(const std::string& file, const std::string& directory,
                                   std::span<char> answer)
{
    StartCom();
    return ResultOf(FindExecutableA(file.c_str(), TextOrNone(directory), answer.data()));
}

std::int32_t WinShell::StartByShell(const ShellStartRequest& request)
{
    if (request.file.size() > kLongestFileUnderWine && UnderWine()) {
        return SE_ERR_FNF;
    }
    StartCom();
    const InheritedDefaults defaults;
    const PressesInPicker presses; // it may ask what to open the file with
    return ResultOf(ShellExecuteA(reinterpret_cast<HWND>(request.owner), TextOrNone(request.verb),
                                  request.file.c_str(), TextOrNone(request.parameters),
                                  TextOrNone(request.directory), static_cast<int>(request.show)));
}

std::int32_t WinShell::StartProcess(const ProcessStartRequest& request)
{
    // Both are written to, or declared so.
    std::string commandLine = request.commandLine;
    std::string title = request.title;

    SECURITY_ATTRIBUTES ofProcess = {};
    ofProcess.nLength = sizeof ofProcess;
    SECURITY_ATTRIBUTES ofThread = ofProcess;
    STARTUPINFOA startup = {};
    startup.cb = request.startupSize;
    startup.lpTitle = title.empty() ? nullptr : title.data();
    startup.dwFillAttribute = request.fillAttribute;
    startup.dwFlags = request.startupFlags;
    startup.wShowWindow = static_cast<WORD>(request.show);
    PROCESS_INFORMATION process = {};
    const InheritedDefaults defaults;
    const BOOL started = CreateProcessA(nullptr, commandLine.data(), &ofProcess, &ofThread,
                                        request.inheritHandles, request.creationFlags, nullptr,
                                        TextOrNone(request.directory), &startup, &process);
    if (started) {
        CloseHandle(process.hThread);
        CloseHandle(process.hProcess);
    }
    return started;
}

} // namespace nv
