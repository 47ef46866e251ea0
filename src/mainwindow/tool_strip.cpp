#include "mainwindow/tool_strip.h"

#include "platform/system_colors.h"

namespace nv
{

namespace
{

constexpr Twips kButtonHeight = 480;
constexpr Twips kGap = 60;
constexpr Twips kGroupGap = 180;

struct Place {
    CommandButtons::Face face;
    Twips gap; // above the button
};

// Top to bottom, which is also the order of the Tab key. What locked mode leaves comes first.
constexpr Place kPlaces[] = {
    {{Command::back, "Back", 3}, kGap},
    {{Command::revert, "Revert", 4}, kGap},
    {{Command::home, "Home", 5}, kGap},
    {{Command::help, "Help", 16}, kGap},
    {{Command::openMenu, "Open Menu", 13}, kGroupGap},
    {{Command::newMenu, "New Menu", 8}, kGap},
    {{Command::normal, "Normal", 2}, kGroupGap},
    {{Command::edit, "Edit", 7}, kGap},
    {{Command::options, "Options", 6}, kGap},
};

} // namespace

ToolStrip::ToolStrip(GdiText& text, Pictures& pictures, std::function<void(Command)> run)
    : PaintedWindow(text, pictures), buttons_(text, pictures, std::move(run))
{
}

bool ToolStrip::Create(HWND parent)
{
    if (!Window::Create(
            {"NavrixToolStrip", WS_CHILD | WS_VISIBLE | WS_CLIPCHILDREN, WS_EX_CONTROLPARENT},
            parent, "Toolbar")) {
        return false;
    }
    Twips top = 0;
    std::size_t index = 0;
    for (const Place& place : kPlaces) {
        if (!buttons_.Add(Handle(), place.face)) {
            return false;
        }
        top += place.gap;
        buttons_.MoveTo(index++, {kGap, top, kWidth - 2 * kGap, kButtonHeight});
        top += kButtonHeight;
    }
    return true;
}

void ToolStrip::Paint(Canvas& canvas, const TwipRect& clip)
{
    canvas.Fill(clip, kButtonFace);
    buttons_.PaintFrames(canvas);
}

} // namespace nv
