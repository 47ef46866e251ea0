#pragma once

#include "controls/kel_pic.h"
#include "win32/painted_window.h"

namespace nv
{

// A KelPic as a child window with a timer of its own: the open menu's title.
class KelPicWindow final : public PaintedWindow, private AccessibleSource
{
public:
    // Both must outlive the window.
    KelPicWindow(GdiText& text, Pictures& pictures, const CodePage& codePage);

    bool Create(HWND parent);
    // What it shows; its caption is set here, so that its timer runs.
    KelPic& Pic() { return pic_; }
    void SetCaption(const std::string& caption);

protected:
    std::optional<LRESULT> RouteInput(UINT message, WPARAM wParam, LPARAM lParam) override;
    void Paint(Canvas& canvas, const TwipRect& clip) override;
    const Font* ShownFont() const override { return &pic_.Font(); }
    void SetShownFont(const Font& font) override { pic_.SetFont(font); }
    AccessibleSource* Accessibility() override { return this; }

private:
    void OnTimer();
    void RunTimer();

    LONG Role(LONG part) const override;
    LONG State(LONG part) const override;
    // All of it, also while it is being typed out.
    std::string Name(LONG) const override { return OneLine(pic_.Caption()); }

    KelPic pic_;
    std::int16_t runningInterval_ = 0; // milliseconds of the timer as it was last set
};

} // namespace nv
