#include "mainwindow/edit_panel.h"

#include "mainwindow/browse.h"
#include "platform/mark.h"
#include "win32/dropped_files.h"
#include "win32/screen.h"
#include "win32/window_text.h"

#include <algorithm>
#include <cstring>
#include <utility>

namespace nv
{

namespace
{

constexpr double kLargestSize = 100; // points, in which a caption shows
// The longest texts, in bytes, that are edited in the boxes, which take seconds for more. Longer
// ones stay as they are.
constexpr std::size_t kLongestCaption = 10000;
constexpr std::size_t kLongestCommand = 32767; // no program takes more

// What an entry's type is called in the type box; the index is its code.
constexpr const char* kTypes[] = {"0 - vNotVisible", "1 - vTitle", "2 - vLabel",
                                  "3 - vLink",       "4 - vSpace", "5 - vLine"};

} // namespace

EditPanel::EditPanel(GdiText& text, Pictures& pictures, MenuDocument& document, ComDial& comDial,
                     std::function<void(Command)> run)
    : PaintedWindow(text, pictures), codePage_(document.Page()), editor_(*this, document),
      comDial_(comDial), buttons_(text, pictures, std::move(run)),
      title_(text, pictures, document.Page())
{
    const LOGFONTA design = LogFontOf(Font(), text.Scale());
    designFont_.Reset(CreateFontIndirectA(&design));
    Font bold;
    bold.bold = true;
    title_.Pic().SetFont(bold);
    list_.Text = [this](std::size_t index) { return editor_.ItemText(index); };
    list_.Dropped = [this](std::size_t from, std::size_t gap) {
        if (MayEdit()) {
            editor_.Select(from);
            editor_.MoveTo(gap);
        }
    };
}

// The type box is filled with the six types; the caption and command boxes start empty.
bool EditPanel::Create(HWND parent)
{
    if (!Window::Create({"NavrixEditPanel", WS_CHILD | WS_CLIPCHILDREN, WS_EX_CONTROLPARENT},
                        parent, "Menu Edit") ||
        !CreateControls()) {
        return false;
    }
    for (const char* type : kTypes) {
        SendMessageA(typeBox_, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(type));
    }
    SendMessageA(captionBox_, EM_SETLIMITTEXT, kLongestCaption, 0);
    SendMessageA(commandBox_, EM_SETLIMITTEXT, kLongestCommand, 0);
    DragAcceptFiles(Handle(), TRUE);
    created_ = true;
    ItemsReplaced();
    FillFields();
    return true;
}

HWND EditPanel::AddControl(const char* windowClass, const char* text, DWORD style, int id)
{
    const bool box = id != 0;
    const HWND control = CreateWindowExA(
        box ? WS_EX_CLIENTEDGE : 0, windowClass, text,
        WS_CHILD | WS_VISIBLE | (box ? WS_TABSTOP : 0) | style, 0, 0, 0, 0, Handle(),
        reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)), GetModuleHandleA(nullptr), nullptr);
    SendMessageA(control, WM_SETFONT, reinterpret_cast<WPARAM>(designFont_.Get()), FALSE);
    return control;
}

void EditPanel::Show()
{
    title_.SetCaption(title_.Pic().Caption()); // types itself out
    ShowWindow(Handle(), SW_SHOW);
    SetFocus(list_.Handle());
}

void EditPanel::FocusNewEntry()
{
    const bool caption = editor_.Use().caption;
    SetFocus(caption ? captionBox_ : typeBox_);
    if (caption) {
        SelectAll(captionBox_);
    }
}

void EditPanel::Hide()
{
    ShowWindow(Handle(), SW_HIDE);
}

void EditPanel::FitFonts()
{
    list_.FitFont();
    captionFont_.Reset(); // its box shows the entry's font, not the window's
    ShowCaptionFont();
}

std::optional<LRESULT> EditPanel::RouteInput(UINT message, WPARAM wParam, LPARAM lParam)
{
    switch (message) {
    case WM_SIZE:
        OnSize();
        return 0;
    case WM_COMMAND:
        return OnCommand(LOWORD(wParam), HIWORD(wParam));
    case WM_DRAWITEM:
        list_.Draw(*reinterpret_cast<const DRAWITEMSTRUCT*>(lParam));
        return 1;
    case WM_CTLCOLOREDIT:
        if (reinterpret_cast<HWND>(lParam) == captionBox_) {
            return OnCaptionColor(reinterpret_cast<HDC>(wParam));
        }
        return std::nullopt;
    case WM_DROPFILES:
        return OnDropFiles(reinterpret_cast<HDROP>(wParam));
    case WM_CLOSE:
        return 0; // a box of several lines asks for it at the Esc key
    default:
        if (message == ItemList::DragMessage()) {
            return list_.OnDrag(*reinterpret_cast<const DRAGLISTINFO*>(lParam));
        }
        return std::nullopt;
    }
}

LRESULT EditPanel::OnCommand(int control, int notification)
{
    if (filling_) {
        return 0;
    }
    if (control == kItemList && notification == LBN_SELCHANGE) {
        editor_.Select(list_.Selected());
    } else if (control == kTypeBox && notification == CBN_SELCHANGE) {
        const LRESULT type = SendMessageA(typeBox_, CB_GETCURSEL, 0, 0);
        if (type >= 0) {
            editor_.SetType(static_cast<ItemType>(type));
            ShowUse();
        }
    } else if (control == kCaptionBox && notification == EN_CHANGE) {
        editor_.SetCaption(TextOf(captionBox_));
    } else if (control == kCommandBox && notification == EN_CHANGE) {
        editor_.SetLink(TextOf(commandBox_));
    } else if (notification == EN_KILLFOCUS) {
        editor_.EndTyping();
    }
    return 0;
}

bool EditPanel::OnCaptionKey(const MSG& message) const
{
    if (message.message != WM_KEYDOWN || message.hwnd != captionBox_) {
        return false;
    }
    const bool control = GetKeyState(VK_CONTROL) < 0;
    if (message.wParam == VK_TAB && !control) {
        const HWND top = GetAncestor(Handle(), GA_ROOT);
        SetFocus(GetNextDlgTabItem(top, captionBox_, GetKeyState(VK_SHIFT) < 0));
        return true;
    }
    if (message.wParam == 'A' && control && GetKeyState(VK_MENU) >= 0) {
        SelectAll(captionBox_);
        return true;
    }
    return false;
}

// The text has the entry's colour; where that would not be seen, the ground is a dark one.
LRESULT EditPanel::OnCaptionColor(HDC dc)
{
    const auto rgb = [](Color color) {
        return color < 0 ? GetSysColor(color & 0xFF) : static_cast<COLORREF>(color);
    };
    const auto brightness = [](COLORREF color) {
        return (GetRValue(color) * 299 + GetGValue(color) * 587 + GetBValue(color) * 114) / 1000;
    };
    const COLORREF text = rgb(editor_.Fields().fontColor);
    const int contrast = brightness(text) - brightness(GetSysColor(COLOR_WINDOW));
    const int ground = contrast > -48 && contrast < 48 ? COLOR_BTNSHADOW : COLOR_WINDOW;
    SetTextColor(dc, text);
    SetBkColor(dc, GetSysColor(ground));
    return reinterpret_cast<LRESULT>(GetSysColorBrush(ground));
}

// Each file becomes a link where it was dropped on the list; the first one the command, or a path
// in the caption, where it was dropped on their boxes.
LRESULT EditPanel::OnDropFiles(HDROP drop)
{
    const DroppedFiles dropped = TakeDroppedFiles(Handle(), drop);
    const auto isOver = [&dropped](HWND box) {
        RECT area = {};
        GetWindowRect(box, &area);
        return IsWindowEnabled(box) && PtInRect(&area, dropped.at);
    };
    if (dropped.paths.empty() || !MayEdit()) {
        return 0;
    }
    if (const auto gap = list_.GapAt(dropped.at)) {
        editor_.InsertFiles(dropped.paths, *gap);
    } else if (isOver(commandBox_) && MayInsertInto(commandBox_)) {
        SelectAll(commandBox_);
        InsertIntoCommand(dropped.paths.front());
    } else if (isOver(captionBox_) && MayInsertInto(captionBox_)) {
        InsertIntoBox(captionBox_, dropped.paths.front());
    }
    return 0;
}

// Pickers

void EditPanel::ChangeFont(HWND owner)
{
    Font font = editor_.Fields().font;
    Color color = editor_.Fields().fontColor;
    const HDC dc = GetDC(owner);
    const Color chosen = ComDial::FontDialog(dc, owner, font, color);
    ReleaseDC(owner, dc);
    editor_.SetFont(font, chosen == -1 ? color : chosen);
    ShowCaptionFont();
}

void EditPanel::InsertPath(HWND owner)
{
    if (!MayInsertInto(captionBox_)) {
        return;
    }
    const std::string path =
        comDial_.OpenFileDialog("Browse", "", BrowseFilter(), BrowseFilterIndex(""), true, owner);
    if (!path.empty()) {
        InsertIntoBox(captionBox_, path);
    }
}

void EditPanel::Browse(HWND owner)
{
    if (!MayInsertInto(commandBox_)) {
        return;
    }
    const std::string path = comDial_.OpenFileDialog(
        "Browse", "", BrowseFilter(), BrowseFilterIndex(TextOf(commandBox_)), true, owner);
    if (path.empty()) {
        return;
    }
    // Where the user has touched neither text nor caret, the pick takes the place of what stands
    // there: the old command, or a wrong pick.
    if (left_.text == TextOf(commandBox_) && left_.selection == SelectionOf(commandBox_)) {
        SetSelection(commandBox_, left_.replaced);
    }
    InsertIntoCommand(path);
}

// In quotes, at the selection. The caret then stands behind it, for arguments.
void EditPanel::InsertIntoCommand(const std::string& path)
{
    const DWORD begin = SelectionOf(commandBox_).begin;
    const TextAround around = TextAroundSelection(commandBox_);
    InsertIntoBox(commandBox_, QuotedForBox(path, around.before, around.after));
    const BoxSelection caret = SelectionOf(commandBox_);
    left_ = {TextOf(commandBox_), caret, {begin, caret.end}};
}

// One step for Undo, apart from what was typed before and after.
void EditPanel::InsertIntoBox(HWND box, const std::string& text)
{
    editor_.EndTyping();
    SendMessageA(box, EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(text.c_str()));
    editor_.EndTyping();
    SetFocus(box);
}

// What the editor tells

void EditPanel::ItemsReplaced()
{
    ShowCount();
    SelectionChanged();
}

void EditPanel::ItemInserted(std::size_t)
{
    ShowCount();
}

void EditPanel::ItemRemoved(std::size_t)
{
    ShowCount();
}

void EditPanel::ShowCount()
{
    if (created_) {
        list_.SetCount(editor_.Count());
    }
}

void EditPanel::ItemsChanged(std::size_t first, std::size_t last)
{
    if (created_) {
        list_.Redraw(first, last);
    }
}

void EditPanel::SelectionChanged()
{
    if (created_) {
        list_.Select(editor_.Selected());
    }
}

void EditPanel::FieldsChanged()
{
    if (created_) {
        FillFields();
    }
}

void EditPanel::LinesChanged()
{
    LinesEdited();
}

void EditPanel::FillFields()
{
    {
        const Mark filling(filling_);
        const MenuItem& fields = editor_.Fields();
        ShowCaptionFont();
        const bool caption = FillBox(captionBox_, fields.caption, kLongestCaption);
        const std::string before = TextOf(commandBox_);
        const bool command = FillBox(commandBox_, fields.link, kLongestCommand);
        ShowTitle(caption && command ? "Menu Edit" : "Some of this text cannot be edited here.");
        LeaveCommandBox(before);
        // A hand-edited file may hold other codes than the box has: none is chosen then.
        const bool known = fields.type <= ItemType::vLine;
        SendMessageA(typeBox_, CB_SETCURSEL, known ? static_cast<WPARAM>(fields.type) : WPARAM(-1),
                     0);
    }
    ShowUse();
}

// Selects the whole command, for Browse to replace. A user who takes back what he wrote in the box
// goes on writing there: with the keyboard in it nothing is selected. before: its text until now.
void EditPanel::LeaveCommandBox(const std::string& before)
{
    const bool writing = GetFocus() == commandBox_;
    const std::string text = TextOf(commandBox_);
    if (writing && text == before) {
        return;
    }
    if (!writing) {
        SelectAll(commandBox_);
    }
    const auto end = static_cast<DWORD>(GetWindowTextLengthA(commandBox_));
    left_ = {text, SelectionOf(commandBox_), {0, end}};
}

void EditPanel::ShowTitle(const std::string& title)
{
    if (title_.Pic().Caption() != title) {
        title_.SetCaption(title);
    }
}

// False: the text is too long to be edited, or holds what the box drops (a NUL ends it, say). Its
// beginning is shown.
bool EditPanel::FillBox(HWND box, const std::string& text, std::size_t longest)
{
    const bool fits = text.size() <= longest;
    SetTextOf(box, fits ? text : std::string(codePage_.WholeCharacters(text, longest)));
    const bool whole = fits && TextOf(box) == text;
    SendMessageA(box, EM_SETREADONLY, !whole, 0);
    return whole;
}

bool EditPanel::MayInsertInto(HWND box)
{
    const bool readOnly = (GetWindowLongPtrA(box, GWL_STYLE) & ES_READONLY) != 0;
    if (readOnly) {
        MessageBeep(MB_OK);
    }
    return !readOnly;
}

void EditPanel::ShowCaptionFont()
{
    Font font = editor_.Fields().font;
    font.size = std::min(font.size, kLargestSize);
    const LOGFONTA wanted = LogFontOf(font, text_.Scale());
    LOGFONTA shown = {};
    if (!captionFont_ || GetObjectA(captionFont_.Get(), sizeof shown, &shown) == 0 ||
        std::memcmp(&wanted, &shown, sizeof wanted) != 0) {
        FontHandle made(CreateFontIndirectA(&wanted));
        SendMessageA(captionBox_, WM_SETFONT, reinterpret_cast<WPARAM>(made.Get()), TRUE);
        captionFont_ = std::move(made);
    }
    InvalidateRect(captionBox_, nullptr, TRUE); // its colour may be another
}

void EditPanel::ShowUse()
{
    const FieldUse use = editor_.Use();
    const HWND focus = GetFocus();
    EnableWindow(captionLabel_, use.caption);
    EnableWindow(captionBox_, use.caption);
    EnableWindow(commandLabel_, use.command);
    EnableWindow(commandBox_, use.command);
    if (focus != nullptr && IsChild(Handle(), focus) && !IsWindowEnabled(focus)) {
        SetFocus(list_.Handle()); // a disabled window that keeps it leaves the keyboard dead
    }
    if (use != shownUse_) {
        shownUse_ = use;
        UseChanged();
    }
}

} // namespace nv
