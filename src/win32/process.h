#pragma once

#include <string>

namespace nv
{

// What every program of ours does first: COM for shell calls, no system boxes about empty drives,
// no DLLs from the folder that a document lies in. Undone at the end of its life.
class ProcessSetup
{
public:
    ProcessSetup();
    ~ProcessSetup();
    ProcessSetup(const ProcessSetup&) = delete;
    ProcessSetup& operator=(const ProcessSetup&) = delete;

private:
    bool comStarted_ = false;
};

// The folder that the program's file stands in, without closing backslash unless it is a drive
// root.
std::string ProgramFolder();

// text with the values of the environment variables it names in %; unknown names stay.
std::string ExpandVariables(const std::string& text);

} // namespace nv
