#pragma once

#include <string>

namespace nv
{

// What every program of ours does first: no system boxes about empty drives, no DLLs from the
// folder that a document lies in.
void SetUpProcess();

// Makes the program's thread fit for those calls of the shell and of its pickers that need COM: to
// be called before them. The first call does it, until the end of the program; any other nothing.
// Where COM is not to be had, those calls fail by themselves. Lets no events through.
void StartCom();

// The folder that the program's file stands in, without closing backslash unless it is a drive
// root.
std::string ProgramFolder();

// Whether this is Wine, whose calls fail in places where those of Windows do not.
bool UnderWine();

// text with the values of the environment variables it names in %; unknown names stay.
std::string ExpandVariables(const std::string& text);

} // namespace nv
