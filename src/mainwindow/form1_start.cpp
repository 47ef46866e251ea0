// The main window's start-up and its end.
#include "mainwindow/command_line.h"
#include "mainwindow/form1.h"
#include "mainwindow/help.h"
#include "resource.h"
#include "system/assoc.h"
#include "win32/screen.h"

#include <new>
#include <vector>

namespace nv
{

namespace
{

HICON ProgramIcon()
{
    return LoadIconA(GetModuleHandleA(nullptr), MAKEINTRESOURCEA(IDI_APP));
}

BOOL CALLBACK AddWorkArea(HMONITOR monitor, HDC, LPRECT, LPARAM areas)
{
    MONITORINFO info = {};
    info.cbSize = sizeof info;
    if (GetMonitorInfoA(monitor, &info)) {
        auto& list = *reinterpret_cast<std::vector<TwipRect>*>(areas);
        const TwipRect area = ToTwips(info.rcWork, PrimaryScreenScale());
        list.insert((info.dwFlags & MONITORINFOF_PRIMARY) != 0 ? list.begin() : list.end(), area);
    }
    return TRUE;
}

std::vector<TwipRect> WorkAreas()
{
    std::vector<TwipRect> areas;
    EnumDisplayMonitors(nullptr, nullptr, AddWorkArea, reinterpret_cast<LPARAM>(&areas));
    if (areas.empty()) {
        const RECT screen = {0, 0, GetSystemMetrics(SM_CXSCREEN), GetSystemMetrics(SM_CYSCREEN)};
        areas.push_back(ToTwips(screen, PrimaryScreenScale()));
    }
    return areas;
}

} // namespace

bool Form1::StartUp(std::string_view arguments, int showCommand)
{
    if (!CheckLauncher()) {
        return false;
    }
    // If the folder is gone, relative paths fail later with messages of their own.
    comDial_.RestoreProgramFolder();
    if (!CreateWindows()) {
        return false;
    }
    const std::string defaultHome = DefaultHome(files_, programFolder_);
    const std::string home = SettingText(settings_.GetKeyValue("Settings", "Home", ""));
    document_.SetHome(home.empty() ? defaultHome : document_.FullPath(home));
    // Ignored: the program is as useful to who opens its menus from within.
    static_cast<void>(RegisterMenuFileType(programFolder_));
    CommandLine commandLine = ParseCommandLine(arguments, document_.Page());
    locked_ = commandLine.locked;
    DragAcceptFiles(view_.Handle(), !locked_);
    UpdateButtons();
    if (commandLine.filePart.empty()) {
        commandLine.filePart = StartFileChoice(settings_, defaultHome, document_.Home());
    }
    Place();
    OnSize();
    ShowWindow(Handle(), showCommand);
    TMode(Mode::run);
    WhenFree([this, filePart = commandLine.filePart] { OpenFirstMenu(filePart); });
    const TwipSize minimum = MinimumSize(nonClientHeight_, locked_);
    minTrack_ = SIZE{scale_.PixelsX(minimum.width), scale_.PixelsY(minimum.height)};
    return Handle() != nullptr;
}

bool Form1::CheckLauncher()
{
    if (!files_.List(programFolder_ + "\\NVSub.exe", 1).empty()) {
        return true;
    }
    prompts_.Ask(MissingLauncherText(), PromptIcon::exclamation, PromptButtons::ok);
    return false;
}

bool Form1::CreateWindows()
{
    const DWORD style = WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN;
    if (!Create({"NavrixForm1", style, WS_EX_CONTROLPARENT, ProgramIcon()}, nullptr,
                title_.c_str())) {
        return false;
    }
    prompts_.SetOwner(Handle());
    if (!header_.Create(Handle()) || !strip_.Create(Handle()) || !view_.Create(Handle())) {
        return false;
    }
    SetWindowContextHelpId(Handle(), kHelpOnMenus);
    SetWindowContextHelpId(view_.Handle(), kHelpOnMenus);
    formFonts_.SetFormFonts(Handle());
    return true;
}

// The editor has more windows than all else together: the start does not wait for them.
bool Form1::CreatePanel()
{
    if (panel_.Handle() != nullptr) {
        return panel_.IsCreated();
    }
    if (!panel_.Create(Handle())) {
        return false;
    }
    SetWindowContextHelpId(panel_.Handle(), kHelpOnEditing);
    formFonts_.SetFormFonts(panel_.Handle());
    panel_.FitFonts();
    OnSize();
    return true;
}

void Form1::Place()
{
    nonClientHeight_ = static_cast<Twips>(TrueWindowSize(Handle(), true));
    const Twips caption = scale_.TwipsY(GetSystemMetrics(SM_CYCAPTION));
    const Placement place =
        StartPlacement(ReadPlacement(settings_), nonClientHeight_, locked_, WorkAreas(), caption);
    // The size is rounded by itself, not with the place: it must not come out a pixel smaller than
    // the smallest size, which is rounded so too.
    SetWindowPos(Handle(), nullptr, scale_.PixelsX(place.left), scale_.PixelsY(place.top),
                 scale_.PixelsX(place.width), scale_.PixelsY(place.height),
                 SWP_NOZORDER | SWP_NOACTIVATE);
}

void Form1::OpenFirstMenu(const std::string& filePart)
{
    try {
        if (!filePart.empty()) {
            document_.FOpen(StripQuotes(filePart));
        }
    } catch (const std::bad_alloc&) {
        TellNoMemory();
    }
    // Who asks for something else while the first menu loads has chosen already.
    if (document_.FFile().empty() && document_.CutShort().empty() && !next_) {
        WhenFree([this] { ShowOpenMenu(false); }); // in locked mode as well: it has no other way
    }
}

void Form1::OnClose()
{
    if (!IsWindowEnabled(Handle())) {
        // A message box waits for an answer: that comes first.
        SetForegroundWindow(GetLastActivePopup(Handle()));
        return;
    }
    WhenFree([this] {
        if (document_.MayClose()) {
            DestroyWindow(Handle());
        }
    });
}

void Form1::StorePlacement()
{
    if (!IsIconic(Handle()) && !IsZoomed(Handle())) {
        RECT window = {};
        GetWindowRect(Handle(), &window);
        const TwipRect place = ToTwips(window, scale_);
        WritePlacement(settings_, {place.left, place.top, place.width, place.height});
    }
}

void Form1::OnDestroy()
{
    StorePlacement();
    helpViewer_.Quit(Handle());
    minTrack_.reset();
    prompts_.SetOwner(nullptr);
    pump_.EndWork();
    PostQuitMessage(0);
}

} // namespace nv
