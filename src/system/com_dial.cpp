#include "system/com_dial.h"

#include "win32/gdi_canvas.h"
#include "win32/gdi_text.h"
#include "win32/load_function.h"
#include "win32/mouse_presses.h"
#include "win32/process.h"
#include "win32/screen.h"

namespace nv
{

namespace
{

constexpr DWORD kPathBuffer = 256;
constexpr std::size_t kLongestFace = 30;
constexpr double kPointsPerInch = 72;
constexpr double kTenths = 10; // the font picker's sizes are in tenths of a point

std::string CurrentFolder()
{
    const DWORD size = GetCurrentDirectoryA(0, nullptr);
    std::string folder(size, '\0');
    const DWORD length = GetCurrentDirectoryA(size, folder.data());
    folder.resize(length < size ? length : 0);
    return folder;
}

// A double click on a file closes the picker at the second press. The release that follows is for
// nothing below.
template <class Pick> bool InPicker(const Pick& pick)
{
    const PressesInPicker presses;
    return pick() != FALSE;
}

} // namespace

LOGFONTA PickerRecord(const Font& font, int dpi, const CodePage& codePage)
{
    Font cut = font;
    cut.name = codePage.WholeCharacters(font.name, kLongestFace);
    LOGFONTA record = LogFontOf(cut, ScreenScale::OfDpi(dpi, dpi));
    record.lfHeight = RecordHeight(font.size * dpi / kPointsPerInch);
    return record;
}

ComDial::ComDial(std::string programFolder) : programFolder_(std::move(programFolder)) {}

std::string ComDial::OpenFileDialog(const std::string& title, const std::string&,
                                    const std::string& filter, int filterIndex, bool mustExist,
                                    HWND owner)
{
    OPENFILENAMEA record = {};
    record.Flags = OFN_HIDEREADONLY | (mustExist ? OFN_FILEMUSTEXIST : 0u);
    return PickFile("GetOpenFileNameA", record, title, filter, filterIndex, owner);
}

std::string ComDial::SaveFileDialog(const std::string& title, const std::string& filter,
                                    int filterIndex, const std::string& defaultExtension,
                                    HWND owner)
{
    OPENFILENAMEA record = {};
    record.Flags = OFN_HIDEREADONLY | OFN_OVERWRITEPROMPT;
    record.lpstrDefExt = defaultExtension.c_str();
    return PickFile("GetSaveFileNameA", record, title, filter, filterIndex, owner);
}

std::string ComDial::PickFile(const char* picker, OPENFILENAMEA record, const std::string& title,
                              const std::string& filter, int filterIndex, HWND owner)
{
    StartCom();
    // In UTF-8 a unit of 16 bits has up to three bytes; what was cut is longer than the longest
    // path.
    const DWORD size = ProcessCodePage().IsUtf8() ? kPathBuffer * 3 + 4 : kPathBuffer;
    const DWORD longest = ProcessCodePage().IsUtf8() ? (kPathBuffer - 1) * 3 : kPathBuffer - 1;
    std::string path(size + 1, '\0');
    std::string fileTitle = path;
    const std::string closedFilter = filter + '\0';      // a second NUL ends the list
    record.lStructSize = OPENFILENAME_SIZE_VERSION_400A; // no newer field is used
    record.hwndOwner = owner;
    record.hInstance = GetModuleHandleA(nullptr);
    record.lpstrFilter = closedFilter.c_str();
    record.nFilterIndex = static_cast<DWORD>(filterIndex);
    record.lpstrFile = path.data();
    record.nMaxFile = size;
    record.lpstrFileTitle = fileTitle.data();
    record.nMaxFileTitle = size;
    record.lpstrInitialDir = lastFolder_.c_str();
    record.lpstrTitle = title.c_str();
    BOOL(WINAPI * pick)(LPOPENFILENAMEA) = nullptr;
    const bool loaded = LoadFunction("comdlg32.dll", picker, pick);
    const bool picked = loaded && InPicker([&] { return pick(&record); });
    lastFolder_ = CurrentFolder();
    RestoreProgramFolder();
    // Of a path that is too long, the buffer holds something else, or in UTF-8 its beginning.
    path.resize(path.find('\0'));
    return picked && path.size() <= longest ? path : "";
}

Color ComDial::FontDialog(HDC deviceContext, HWND owner, Font& font, Color color)
{
    StartCom();
    const int dpi = GetDeviceCaps(deviceContext, LOGPIXELSY);
    LOGFONTA record = PickerRecord(font, dpi, ProcessCodePage());
    const COLORREF rgb = ColorRef(color);
    CHOOSEFONTA choice = {};
    choice.lStructSize = sizeof choice;
    choice.hwndOwner = owner;
    choice.lpLogFont = &record;
    choice.Flags = CF_SCREENFONTS | CF_PRINTERFONTS | CF_INITTOLOGFONTSTRUCT | CF_EFFECTS;
    choice.rgbColors = rgb;
    decltype(&ChooseFontA) choose = nullptr;
    const bool loaded = LoadFunction("comdlg32.dll", "ChooseFontA", choose);
    const bool chosen = loaded && InPicker([&] { return choose(&choice); });
    if (!chosen) {
        return kCancelled; // the record may have changed all the same, the font has not
    }
    font = FontOf(record, ScreenScale::OfDpi(dpi, dpi));
    font.size = choice.iPointSize / kTenths;
    font.bold = record.lfWeight != 0;
    // A caller's color may have the number that says cancelled; it is black then.
    const bool sameColor = choice.rgbColors == rgb && color != kCancelled;
    return sameColor ? color : static_cast<Color>(choice.rgbColors);
}

void ComDial::RestoreProgramFolder() const
{
    // If the folder is gone, relative paths fail later with messages of their own.
    (void)SetCurrentDirectoryA(programFolder_.c_str());
}

} // namespace nv
