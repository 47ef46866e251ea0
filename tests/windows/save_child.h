// What a test does with real files, and a program does that dies in it.
#pragma once

#include "fakes/fake_desk.h"
#include "fakes/faulty_files.h"
#include "win32/win_files.h"

namespace nv
{

using FaultyDesk = FakeDesk<Faulty<WinFiles>>;

constexpr unsigned kKilledExitCode = 99;
const std::string kSavedMenu = std::string(3000, 'n') + "\r\n";

// deed: "save"; "unreplaced", a save where no file can be replaced; "create", which opens a menu
// that is not there.
inline bool Do(FaultyDesk& desk, const std::string& deed, const std::string& path)
{
    desk.prompts.toQuestions = Answer::yes;
    desk.files.refuseReplace = deed == "unreplaced" ? kAccessDenied : 0;
    if (deed == "create") {
        return desk.document.FOpen(path);
    }
    desk.document.Lines().Append(kSavedMenu.substr(0, kSavedMenu.size() - 2));
    return desk.document.SavePDM(path);
}

} // namespace nv
