#pragma once

#include "platform/shell.h"

namespace nv
{

// The system's own shell and processes. Text with a NUL in it counts up to there. COM must be
// initialised on the calling thread, as the shell's extensions expect.
class WinShell : public Shell
{
public:
    std::int32_t FindProgram(const std::string& file, const std::string& directory,
                             std::span<char> answer) override;
    std::int32_t StartByShell(const ShellStartRequest& request) override;
    std::int32_t StartProcess(const ProcessStartRequest& request) override;
};

} // namespace nv
