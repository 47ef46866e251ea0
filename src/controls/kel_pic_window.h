#pragma once

#include "controls/kel_pic.h"
#include "win32/gdi_text.h"
#include "win32/pictures.h"
#include "win32/window.h"

namespace nv
{

// A KelPic as a child window with a timer of its own: the open menu's title.
class KelPicWindow final : public Window
{
public:
    // Both must outlive the window.
    KelPicWindow(GdiText& text, Pictures& pictures, const CodePage& codePage);

    bool Create(HWND parent);
    // What it shows; its caption is set here, so that its timer runs.
    KelPic& Pic() { return pic_; }
    void SetCaption(const std::string& caption);

protected:
    std::optional<LRESULT> Route(UINT message, WPARAM wParam, LPARAM lParam) override;

private:
    void OnPaint();
    void OnTimer();
    void RunTimer();

    GdiText& text_;
    Pictures& pictures_;
    KelPic pic_;
    std::int16_t runningInterval_ = 0; // milliseconds of the timer as it was last set
};

} // namespace nv
