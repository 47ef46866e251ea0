#include "robot/hand.h"

#include "robot/desktop.h"
#include "robot/usage.h"

#include <algorithm>

namespace nv::robot
{

using namespace e2e;

namespace
{

constexpr std::size_t kShownActions = 50;
constexpr int kPathBox = 203;
constexpr int kFileNameBox = 0x47c; // the system's number

// A virtual key, and in the high byte the one that is held meanwhile.
constexpr int kShift = VK_SHIFT << 8;
constexpr int kCtrl = VK_CONTROL << 8;
constexpr int kAlt = VK_MENU << 8;
// Nothing that closes the window or opens its system menu.
constexpr WORD kEditKeys[] = {kCtrl | 'A',   kCtrl | 'C',    kCtrl | 'X', kCtrl | 'E',
                              kCtrl | 'E',   kCtrl | 'S',    kCtrl | 'Z', kCtrl | 'Y',
                              kCtrl | VK_UP, kCtrl | VK_DOWN};
constexpr WORD kKeys[] = {VK_UP,     VK_DOWN,  VK_PRIOR,       VK_NEXT,         VK_HOME,   VK_END,
                          VK_LEFT,   VK_RIGHT, VK_TAB,         kShift | VK_TAB, VK_RETURN, VK_SPACE,
                          VK_ESCAPE, VK_BACK,  VK_DELETE,      VK_F1,           VK_F4,     VK_F5,
                          'Q',       '1',      kAlt | VK_LEFT, kAlt | VK_HOME};
constexpr WORD kMenuKeys[] = {VK_ESCAPE, VK_DOWN, VK_RETURN};
constexpr WORD kBoxKeys[] = {VK_RETURN, VK_ESCAPE};
constexpr WORD kDialogKeys[] = {VK_TAB,   kShift | VK_TAB, VK_RETURN, VK_ESCAPE,
                                VK_SPACE, VK_UP,           VK_DOWN,   'Q',
                                '1',      kCtrl | 'Z',     VK_F1,     VK_DELETE};

constexpr const char* kButtons[] = {
    "Back",        "Revert",         "Home",   "Help",      "Open Menu",
    "New Menu",    "Normal",         "Edit",   "Edit",      "Options",
    "Insert New",  "Insert New",     "Remove", "Move Up",   "Move Down",
    "Insert Path", "Change Font...", "Browse", "Save Menu", "Set This Menu As Home Menu"};

std::string NameOf(BYTE key)
{
    char name[64] = "";
    GetKeyNameTextA(static_cast<LONG>(MapVirtualKeyA(key, MAPVK_VK_TO_VSC) << 16), name,
                    sizeof name);
    return name;
}

std::string Press(WORD key, int times)
{
    const BYTE held = HIBYTE(key);
    for (int count = 0; count < times; ++count) {
        held != 0 ? PressKey(LOBYTE(key), {held}) : PressKey(LOBYTE(key));
    }
    return "key " + (held != 0 ? NameOf(held) + "+" : "") + NameOf(LOBYTE(key)) + ", " +
           std::to_string(times) + " times";
}

// A point of the window's client area that is on the screen.
POINT PointIn(HWND window, Random& random)
{
    RECT client = {};
    GetClientRect(window, &client);
    POINT at = {random.Below(std::max<int>(client.right, 1)),
                random.Below(std::max<int>(client.bottom, 1))};
    ClientToScreen(window, &at);
    at.x = std::clamp<LONG>(at.x, 0, GetSystemMetrics(SM_CXSCREEN) - 1);
    at.y = std::clamp<LONG>(at.y, 0, GetSystemMetrics(SM_CYSCREEN) - 1);
    return at;
}

std::string Text(POINT at)
{
    return std::to_string(at.x) + "," + std::to_string(at.y);
}

std::string ClickIn(HWND window, Random& random)
{
    const POINT at = PointIn(window, random);
    const int times = random.Chance(20) ? 2 : 1;
    const bool right = random.Chance(10);
    for (int count = 0; count < times; ++count) {
        PressMouse(at, right ? MOUSEEVENTF_RIGHTDOWN : MOUSEEVENTF_LEFTDOWN);
        ReleaseMouse(at, right ? MOUSEEVENTF_RIGHTUP : MOUSEEVENTF_LEFTUP);
    }
    return std::string(right ? "right click at " : "click at ") + Text(at) +
           (times > 1 ? ", twice" : "");
}

std::string DragIn(HWND window, Random& random)
{
    POINT at = PointIn(window, random);
    std::string done = "drag " + Text(at);
    PressMouse(at);
    for (int moves = random.From(1, 6); moves > 0; --moves) {
        MoveMouse(at = PointIn(window, random));
        done += " " + Text(at);
    }
    ReleaseMouse(at);
    return done;
}

// The first window of a class below parent, or parent itself.
HWND Part(HWND parent, const char* className)
{
    const std::vector<HWND> found = EnabledChildren(parent, className);
    return found.empty() ? parent : found.front();
}

std::string Resize(HWND main, Random& random)
{
    static constexpr std::pair<const char*, int> kShown[] = {
        {"minimise", SW_MINIMIZE}, {"maximise", SW_MAXIMIZE}, {"restore", SW_RESTORE}};
    if (random.Chance(30)) {
        const auto& [name, show] = random.Of(kShown);
        ShowWindowAsync(main, show);
        return name;
    }
    const int width = random.From(100, 1270);
    const int height = random.From(100, 1010);
    SetWindowPos(main, nullptr, random.Below(200), random.Below(200), width, height,
                 SWP_NOZORDER | SWP_NOACTIVATE | SWP_ASYNCWINDOWPOS);
    return "size " + std::to_string(width) + " by " + std::to_string(height);
}

std::string OnMain(HWND main, Random& random)
{
    const int choice = random.Below(100);
    if (choice < 5) {
        return Resize(main, random);
    }
    if (IsIconic(main)) {
        ShowWindowAsync(main, SW_RESTORE);
        return "restore";
    }
    if (choice < 40) {
        return Press(choice < 15 ? random.Of(kEditKeys) : random.Of(kKeys),
                     random.Chance(20) ? random.From(2, 20) : 1);
    }
    if (choice < 65) {
        const std::string wanted = random.Of(kButtons);
        const std::vector<HWND> buttons = EnabledChildren(main, "KelButton", wanted);
        if (buttons.empty()) {
            return "no button " + wanted;
        }
        Click(CentreOf(buttons.front()));
        return "button " + wanted;
    }
    if (choice < 85) {
        return ClickIn(choice < 75 ? Part(main, "NavrixMenuView") : main, random);
    }
    if (choice < 92) {
        return DragIn(random.Chance(50) ? main : Part(main, "ListBox"), random);
    }
    const POINT at = PointIn(main, random);
    const int notches = random.From(-30, 30);
    TurnWheel(at, notches);
    return "wheel " + std::to_string(notches) + " at " + Text(at);
}

std::string OnBox(HWND box, Random& random)
{
    const std::vector<HWND> buttons = EnabledChildren(box, "Button");
    const std::string text = " to the box: " + TextOf(GetDlgItem(box, 0xFFFF)).substr(0, 60);
    if (random.Chance(30) || buttons.empty()) {
        return Press(random.Of(kBoxKeys), 1) + text;
    }
    const HWND button = random.Of(buttons);
    const std::string caption = TextOf(button);
    Click(CentreOf(button));
    return caption + text;
}

} // namespace

Hand::Hand(std::string folder, std::vector<std::string> names, unsigned seed)
    : folder_(std::move(folder)), names_(std::move(names)), seed_(seed)
{
}

void Hand::Act(HWND main)
{
    Random random(seed_, ++actions_);
    const bool besides = random.Chance(10); // to the main window, whatever lies over it
    const HWND modal = ModalOver(main);
    const ModalKind kind = KindOf(modal);
    // Nothing at random in the pickers: they show real files.
    const bool picker = kind == ModalKind::fileNames || kind == ModalKind::fonts;
    // They are told by messages, which no box over them keeps away as it keeps a user: Wine's crash
    // when one closes them while they wait for a box. Once the last message is taken it is there.
    if (picker && (!Until([main] { return !InputWaits(main); }) || ModalOver(main) != modal)) {
        return Note("wait for the picker");
    }
    Note(modal == nullptr || (besides && !picker) ? OnMain(main, random) : OnModal(modal, random));
}

void Hand::Note(const std::string& what)
{
    log_.push_back(std::to_string(actions_) + ": " + what);
    if (log_.size() > kShownActions) {
        log_.erase(log_.begin());
    }
}

std::string Hand::LastActions() const
{
    std::string all;
    for (const std::string& line : log_) {
        all += line + "\n";
    }
    return all;
}

std::string Hand::OnModal(HWND modal, Random& random)
{
    const ModalKind kind = KindOf(modal);
    if (kind == ModalKind::menu) {
        return "in a menu, " + Press(random.Of(kMenuKeys), 1);
    }
    if (kind == ModalKind::box) {
        return OnBox(modal, random);
    }
    if (kind == ModalKind::dialog) {
        return OnDialog(modal, random);
    }
    const std::string path = RandomPath(random);
    const bool take = random.Chance(50);
    if (kind == ModalKind::fileNames && take) {
        SetText(GetDlgItem(modal, kFileNameBox), path);
    }
    PostMessageA(modal, WM_COMMAND, take ? IDOK : IDCANCEL, 0);
    return take ? "pick " + path + " or the font" : "cancel the picker";
}

// A name that may or may not be that of a menu, in the folder.
std::string Hand::RandomPath(Random& random) const
{
    static const char* const kOthers[] = {"New.nvm", "New folder\\New.nvm", "New", "a|b.nvm",
                                          "recorder.exe"};
    return folder_ + "\\" + (random.Chance(70) ? random.Of(names_) : random.Of(kOthers));
}

std::string Hand::OnDialog(HWND dialog, Random& random)
{
    const std::string where = "in " + TextOf(dialog) + ", ";
    const std::vector<HWND> children = EnabledChildren(dialog);
    const int choice = random.Below(100);
    if (choice < 30 && GetDlgItem(dialog, kPathBox) != nullptr) {
        const std::string path = RandomPath(random);
        SetText(GetDlgItem(dialog, kPathBox), path);
        PressKey(VK_RETURN);
        return where + "Enter after " + path;
    }
    if (choice < 60 && !children.empty()) {
        return where + ClickIn(random.Of(children), random);
    }
    if (choice < 65) {
        PostMessageA(dialog, WM_CLOSE, 0, 0);
        return where + "close it";
    }
    return where + Press(random.Of(kDialogKeys), random.Chance(20) ? random.From(2, 6) : 1);
}

} // namespace nv::robot
