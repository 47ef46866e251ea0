#pragma once

#include "mainwindow/command_buttons.h"

namespace nv
{

// The toolbar strip T1: a column of buttons, each for one command. In locked mode only its upper
// part stays in view.
class ToolStrip final : public PaintedWindow
{
public:
    // Both must outlive the strip. run: called on a click; may re-enter.
    ToolStrip(GdiText& text, Pictures& pictures, std::function<void(Command)> run);

    // Creates the strip with its buttons.
    bool Create(HWND parent);
    // Enables each button whose command is to be had.
    void SetFacts(const Facts& facts) { buttons_.SetFacts(facts); }

    static constexpr Twips kWidth = 1760;
    static constexpr Twips kHeight = 5300;
    static constexpr Twips kLockedHeight = 2200;

protected:
    void Paint(Canvas& canvas, const TwipRect& clip) override;

private:
    CommandButtons buttons_;
};

} // namespace nv
