// What the rules ask of the system's shell and of process creation. Every parameter of the calls
// that the rules decide on stands here; the implementation only passes them on.
#pragma once

#include <cstdint>
#include <span>
#include <string>

namespace nv
{

// A window of the platform, as an owner of what the shell shows. 0 is none.
using WindowHandle = std::uintptr_t;

// How a started program shows its window; the values are the platform's own.
enum class ShowMode : int { normal = 1, minimized = 2, maximized = 3 };

// Results of the shell up to this one are failures.
inline constexpr std::int32_t kLastShellFailure = 32;

struct ShellStartRequest {
    WindowHandle owner = 0;
    std::string verb;
    std::string file;
    std::string parameters;
    std::string directory;
    ShowMode show = ShowMode::normal;
};

struct ProcessStartRequest {
    std::string commandLine;
    std::string directory;         // empty: none is passed, the child inherits the current one
    std::string title;             // empty: none
    std::uint32_t startupSize = 0; // the size field of the start-up record, as given
    std::uint32_t startupFlags = 0;
    std::uint32_t fillAttribute = 0;
    ShowMode show = ShowMode::normal;
    bool inheritHandles = false;
    std::uint32_t creationFlags = 0;
};

// The names of its functions are not those of the platform's calls, which <windows.h> makes macros.
class Shell
{
public:
    virtual ~Shell() = default;
    // The program that opens file: writes its path and a NUL into answer and returns the shell's
    // result, above 32 for success. answer must hold at least 260 characters; file must not be
    // longer than 259.
    virtual std::int32_t FindProgram(const std::string& file, const std::string& directory,
                                     std::span<char> answer) = 0;
    // Starts or opens a file; the shell's result, above 32 for success. May re-enter.
    virtual std::int32_t StartByShell(const ShellStartRequest& request) = 0;
    // Starts a process and closes its handles at once; not 0 for success.
    virtual std::int32_t StartProcess(const ProcessStartRequest& request) = 0;
};

} // namespace nv
