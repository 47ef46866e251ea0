#include "mainwindow/command_buttons.h"

#include "controls/edge_frame.h"
#include "win32/screen.h"

namespace nv
{

CommandButtons::CommandButtons(GdiText& text, Pictures& pictures, std::function<void(Command)> run)
    : text_(text), pictures_(pictures), run_(std::move(run))
{
}

bool CommandButtons::Add(HWND panel, const Face& face)
{
    auto window = std::make_unique<KelButtonWindow>(text_, pictures_);
    if (!window->Create(panel)) {
        return false;
    }
    KelButton& button = window->Button();
    button.SetCaption(face.caption);
    button.SetBImage({Picture::Source::own, face.picture});
    button.DisablePointer();
    button.ButtonClick = [this, command = face.command] { run_(command); };
    window->Refresh();
    buttons_.push_back({face.command, std::move(window), {}});
    return true;
}

void CommandButtons::MoveTo(std::size_t index, const TwipRect& area)
{
    // Of whole pixels, so that the frame fits the window.
    buttons_[index].area = ToTwips(ToPixels(area, text_.Scale()), text_.Scale());
    buttons_[index].window->MoveTo(buttons_[index].area);
}

void CommandButtons::SetFacts(const Facts& facts)
{
    for (const Button& each : buttons_) {
        KelButton& button = each.window->Button();
        const bool available = Available(each.command, facts);
        if (button.EnabledM() != available) {
            button.SetEnabledM(available);
            each.window->Refresh();
        }
    }
}

void CommandButtons::PaintFrames(Canvas& canvas) const
{
    for (const Button& each : buttons_) {
        PaintEdgeFrame(canvas, each.area, text_.Scale());
    }
}

} // namespace nv
