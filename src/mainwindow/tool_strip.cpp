#include "mainwindow/tool_strip.h"

#include "platform/system_colors.h"

namespace nv
{

namespace
{

constexpr Twips kButtonHeight = 480;
constexpr Twips kGap = 60;
constexpr Twips kGroupGap = 180;

} // namespace

// Top to bottom, which is also the order of the Tab key. What locked mode leaves comes first.
const std::array<ToolStrip::Place, 9> ToolStrip::kPlaces = {{
    {Command::back, "Back", 3, kGap},
    {Command::revert, "Revert", 4, kGap},
    {Command::home, "Home", 5, kGap},
    {Command::help, "Help", 16, kGap},
    {Command::openMenu, "Open Menu", 13, kGroupGap},
    {Command::newMenu, "New Menu", 8, kGap},
    {Command::normal, "Normal", 2, kGroupGap},
    {Command::edit, "Edit", 7, kGap},
    {Command::options, "Options", 6, kGap},
}};

ToolStrip::ToolStrip(GdiText& text, Pictures& pictures, std::function<void(Command)> run)
    : PaintedWindow(text, pictures), run_(std::move(run))
{
}

bool ToolStrip::Create(HWND parent)
{
    if (!Window::Create(
            {"NavrixToolStrip", WS_CHILD | WS_VISIBLE | WS_CLIPCHILDREN, WS_EX_CONTROLPARENT},
            parent)) {
        return false;
    }
    Twips top = 0;
    for (std::size_t index = 0; index < kPlaces.size(); ++index) {
        const Place& place = kPlaces[index];
        auto& window = buttons_[index];
        window = std::make_unique<KelButtonWindow>(text_, pictures_);
        if (!window->Create(Handle())) {
            return false;
        }
        KelButton& button = window->Button();
        button.SetCaption(place.caption);
        button.SetBImage({Picture::Source::own, place.picture});
        button.DisablePointer();
        button.ButtonClick = [this, command = place.command] { run_(command); };
        top += place.gap;
        areas_[index] = {kGap, top, kWidth - 2 * kGap, kButtonHeight};
        window->MoveTo(areas_[index]);
        window->Refresh();
        top += kButtonHeight;
    }
    return true;
}

void ToolStrip::SetFacts(const Facts& facts)
{
    for (std::size_t index = 0; index < kPlaces.size(); ++index) {
        KelButton& button = buttons_[index]->Button();
        const bool available = Available(kPlaces[index].command, facts);
        if (button.EnabledM() != available) {
            button.SetEnabledM(available);
            buttons_[index]->Refresh();
        }
    }
}

void ToolStrip::Paint(Canvas& canvas, const TwipRect& clip)
{
    canvas.Fill(clip, kButtonFace);
    const ScreenScale& scale = text_.Scale();
    const Twips x = scale.TwipsX(1);
    const Twips y = scale.TwipsY(1);
    for (const TwipRect& area : areas_) {
        // One pixel wide, right at the button's edge.
        canvas.Frame({area.left - x, area.top - y, area.width + 2 * x, area.height + 2 * y},
                     kButtonShadow, kHighlight3D);
    }
}

} // namespace nv
