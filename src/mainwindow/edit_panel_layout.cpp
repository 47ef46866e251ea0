// What stands in the edit panel, and where.
#include "controls/edge_frame.h"
#include "mainwindow/edit_panel.h"
#include "platform/system_colors.h"
#include "win32/screen.h"

#include <algorithm>

namespace nv
{

namespace
{

// In twips. At the smallest size of the window the panel is 5300 high.
constexpr Twips kEdge = 15; // for the frames around what stands at the panel's edge
constexpr Twips kGap = 75;
constexpr Twips kTitleHeight = 210; // of a line of text
constexpr Twips kButtonWidth = 1800;
constexpr Twips kButtonHeight = 420;
constexpr Twips kLabelWidth = 900;
constexpr Twips kLineHeight = 330; // of a box of one line
constexpr Twips kCaptionHeight = 1005;
constexpr Twips kListHeight = 4 * (kButtonHeight + kGap);

// In the order of the Tab key, which is also that of reading.
enum Button { kInsertNew, kRemove, kUp, kDown, kInsertPath, kFont, kBrowse, kSave, kSetHome };
constexpr CommandButtons::Face kFaces[] = {
    {Command::insertNew, "Insert New", 8},
    {Command::remove, "Remove", 9},
    {Command::moveUp, "Move Up", 11},
    {Command::moveDown, "Move Down", 12},
    {Command::insertPath, "Insert Path", 10},
    {Command::changeFont, "Change Font...", 17},
    {Command::browse, "Browse", 10},
    {Command::saveMenu, "Save Menu", 14},
    {Command::setHome, "Set This Menu As Home Menu", 5},
};

} // namespace

bool EditPanel::CreateControls()
{
    const auto addButtons = [this](Button first, Button last) {
        for (int button = first; button <= last; ++button) {
            if (!buttons_.Add(Handle(), kFaces[button])) {
                return false;
            }
        }
        return true;
    };
    if (!title_.Create(Handle()) || !list_.Create(Handle(), kItemList) ||
        !addButtons(kInsertNew, kDown)) {
        return false;
    }
    SendMessageA(list_.Handle(), WM_SETFONT, reinterpret_cast<WPARAM>(designFont_.Get()), FALSE);
    typeLabel_ = AddControl("STATIC", "Type:", SS_NOPREFIX);
    typeBox_ = AddControl("COMBOBOX", "", CBS_DROPDOWNLIST | WS_VSCROLL, kTypeBox);
    captionLabel_ = AddControl("STATIC", "Caption:", SS_NOPREFIX);
    captionBox_ = AddControl("EDIT", "", ES_MULTILINE | ES_WANTRETURN | ES_AUTOVSCROLL | WS_VSCROLL,
                             kCaptionBox);
    if (!addButtons(kInsertPath, kFont)) {
        return false;
    }
    commandLabel_ = AddControl("STATIC", "Command:", SS_NOPREFIX);
    commandBox_ = AddControl("EDIT", "", ES_AUTOHSCROLL, kCommandBox);
    if (!addButtons(kBrowse, kSetHome)) {
        return false;
    }
    buttons_[kSetHome].Button().SetFixedSize(true); // sizes itself to its long caption
    return typeBox_ != nullptr && captionBox_ != nullptr && commandBox_ != nullptr;
}

void EditPanel::MoveTo(HWND window, const TwipRect& area) const
{
    MoveWindowTo(window, area, text_.Scale());
}

void EditPanel::OnSize()
{
    if (!created_) {
        return; // the platform sizes a window while it makes it, before there are controls
    }
    RECT pixels = {};
    GetClientRect(Handle(), &pixels);
    const TwipRect client = ToTwips(pixels, text_.Scale());
    const TwipRect title = {kEdge, kEdge, client.width - 2 * kEdge, kTitleHeight};
    titleArea_ = ToTwips(ToPixels(title, text_.Scale()), text_.Scale());
    MoveTo(title_.Handle(), titleArea_);

    const Twips top = kEdge + kTitleHeight + kGap;
    const Twips below = 4 * kGap + 2 * kLineHeight + kCaptionHeight + kButtonHeight + 2 * kGap;
    // What the panel has beyond the least goes to the list, and a third of it to the caption.
    const Twips spare = std::max<Twips>(client.height - top - kListHeight - below, 0);
    const Twips listHeight = kListHeight + spare * 2 / 3;
    const Twips boxes = client.width - kButtonWidth - kEdge - kGap;
    MoveTo(list_.Handle(), {0, top, boxes, listHeight});
    LayFields({0, top + listHeight + kGap, boxes, kCaptionHeight + spare / 3});
    LayButtons(client, top);
    InvalidateRect(Handle(), nullptr, FALSE);
}

// area: from the top of the type box; its height is that of the caption box.
void EditPanel::LayFields(TwipRect area)
{
    const Twips left = kLabelWidth;
    const Twips width = area.width - left;
    const Twips right = area.width + kGap;
    const Twips dropped = 2400;     // a drop-down list's height counts with its list
    constexpr Twips kTextDown = 60; // so that labels stand on the line of their boxes
    const auto label = [&](HWND window, Twips top) {
        MoveTo(window, {0, top + kTextDown, kLabelWidth - kGap, kLineHeight - kTextDown});
    };
    Twips top = area.top;
    label(typeLabel_, top);
    MoveTo(typeBox_, {left, top, width, dropped});
    top += kLineHeight + kGap;
    label(captionLabel_, top);
    MoveTo(captionBox_, {left, top, width, area.height});
    buttons_.MoveTo(kInsertPath, {right, top + kEdge, kButtonWidth, kButtonHeight});
    buttons_.MoveTo(kFont,
                    {right, top + kEdge + kButtonHeight + kGap, kButtonWidth, kButtonHeight});
    top += area.height + kGap;
    label(commandLabel_, top + (kButtonHeight - kLineHeight) / 2);
    MoveTo(commandBox_, {left, top + (kButtonHeight - kLineHeight) / 2, width, kLineHeight});
    buttons_.MoveTo(kBrowse, {right, top, kButtonWidth, kButtonHeight});
}

void EditPanel::LayButtons(const TwipRect& client, Twips listTop)
{
    const Twips right = client.width - kButtonWidth - kEdge;
    for (int button = kInsertNew; button <= kDown; ++button) {
        const auto row = static_cast<Twips>(button - kInsertNew);
        buttons_.MoveTo(
            static_cast<std::size_t>(button),
            {right, listTop + kEdge + row * (kButtonHeight + kGap), kButtonWidth, kButtonHeight});
    }
    const TwipSize size = buttons_[kSetHome].Button().Size();
    const Twips bottom = client.height - kEdge - (kButtonHeight + size.height) / 2;
    buttons_.MoveTo(kSave, {kEdge, bottom, kButtonWidth, size.height});
    buttons_.MoveTo(kSetHome, {kEdge + kButtonWidth + kGap, bottom, size.width, size.height});
}

void EditPanel::Paint(Canvas& canvas, const TwipRect& clip)
{
    canvas.Fill(clip, kButtonFace);
    buttons_.PaintFrames(canvas);
    PaintEdgeFrame(canvas, titleArea_, text_.Scale());
}

} // namespace nv
