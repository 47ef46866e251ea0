#pragma once

#include <string>

namespace nv
{

// What every program of ours does first: no system boxes about empty drives, no DLLs from the
// folder that a document lies in. At the end of its life it ends COM, too.
class ProcessSetup
{
public:
    ProcessSetup();
    ~ProcessSetup();
    ProcessSetup(const ProcessSetup&) = delete;
    ProcessSetup& operator=(const ProcessSetup&) = delete;
};

// Makes the program's thread fit for those calls of the shell and of its pickers that need COM: to
// be called before them. The first call does it, any other nothing. Lets no events through.
void StartCom();

// The folder that the program's file stands in, without closing backslash unless it is a drive
// root.
std::string ProgramFolder();

// text with the values of the environment variables it names in %; unknown names stay.
std::string ExpandVariables(const std::string& text);

} // namespace nv
