// A shell that answers from a script and writes down every request with all its parameters.
#pragma once

#include "platform/shell.h"

#include <algorithm>
#include <map>
#include <stdexcept>
#include <string>
#include <vector>

namespace nv
{

class FakeShell : public Shell
{
public:
    // The programs of files, which may be themselves. Files that are not among them are not found.
    std::map<std::string, std::string> answers;

    // Each request as a line: find [file] [directory], shell ... or process ..., in order.
    std::vector<std::string> calls;

    std::int32_t FindProgram(const std::string& file, const std::string& directory,
                             std::span<char> answer) override
    {
        calls.push_back("find [" + file + "] [" + directory + "]");
        if (answer.size() < 260) {
            throw std::logic_error("the shell may write 260 characters");
        }
        const auto found = answers.find(file);
        const std::string program = found == answers.end() ? "" : found->second.substr(0, 259);
        std::copy(program.begin(), program.end(), answer.begin());
        answer[program.size()] = '\0'; // what stood behind it stays, as with the real shell
        return found == answers.end() ? 2 : 33;
    }

    std::int32_t StartByShell(const ShellStartRequest& request) override
    {
        calls.push_back("shell " + std::to_string(request.owner) + " " + request.verb + " [" +
                        request.file + "] [" + request.parameters + "] in [" + request.directory +
                        "] show " + std::to_string(static_cast<int>(request.show)));
        return 33;
    }

    std::int32_t StartProcess(const ProcessStartRequest& request) override
    {
        calls.push_back("process [" + request.commandLine + "] in [" + request.directory +
                        "] title [" + request.title + "] size " +
                        std::to_string(request.startupSize) + " flags " +
                        std::to_string(request.startupFlags) + " fill " +
                        std::to_string(request.fillAttribute) + " show " +
                        std::to_string(static_cast<int>(request.show)) +
                        (request.inheritHandles ? " inherit" : "") + " creation " +
                        std::to_string(request.creationFlags));
        return 1;
    }
};

} // namespace nv
