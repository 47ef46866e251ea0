#pragma once

#include "platform/ansi_text.h"
#include "platform/font.h"

#include <windows.h>

#include <commdlg.h>

#include <string>

namespace nv
{

// What the font picker starts from; dpi: pixels per inch.
LOGFONTA PickerRecord(const Font& font, int dpi, const CodePage& codePage);

// The system's pickers of a file and of a font. Both run a message loop of their own.
class ComDial
{
public:
    // What FontDialog returns when the user cancels, or the system has no such picker.
    static constexpr Color kCancelled = -1;

    // programFolder: without closing backslash, unless it is a drive root.
    explicit ComDial(std::string programFolder);

    // Lets the user pick a file; empty when cancelled, or when the path has more than 255 bytes.
    // The picker starts in LastFolder, whatever initialFolder says. filter: descriptions and
    // patterns in turn, each closed by a NUL; filterIndex counts the pairs from 1. mustExist: the
    // picker takes no name of a file that is not there. The program's folder is the current one
    // afterwards. May re-enter.
    std::string OpenFileDialog(const std::string& title, const std::string& initialFolder,
                               const std::string& filter, int filterIndex, bool mustExist,
                               HWND owner);

    // Lets the user name a file to be written, as OpenFileDialog does; one that is there already
    // only after asking. A name typed without an extension gets defaultExtension, which has no dot.
    // The folder of the name may be missing. May re-enter.
    std::string SaveFileDialog(const std::string& title, const std::string& filter, int filterIndex,
                               const std::string& defaultExtension, HWND owner);

    // Lets the user change font and color; returns the color, or kCancelled and leaves the font as
    // it was. deviceContext says how many pixels an inch has. Every font that comes back is bold,
    // as any weight counts. A color left as it was comes back itself, a system colour too. May
    // re-enter.
    static Color FontDialog(HDC deviceContext, HWND owner, Font& font, Color color);

    // Makes the program's folder the current drive and folder again.
    void RestoreProgramFolder() const;

    // The folder that was current when the last pick ended; empty before the first one.
    const std::string& LastFolder() const { return lastFolder_; }

private:
    // picker: the system's function; record: how this pick differs from others.
    std::string PickFile(const char* picker, OPENFILENAMEA record, const std::string& title,
                         const std::string& filter, int filterIndex, HWND owner);

    std::string programFolder_;
    std::string lastFolder_;
};

} // namespace nv
