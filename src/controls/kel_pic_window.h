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
    KelPicWindow(GdiText& text, Pictures& pictures, const CodePage& codePage, const Font& font);

    bool Create(HWND parent);
    void SetCaption(const std::string& caption);

protected:
    std::optional<LRESULT> Route(UINT message, WPARAM wParam, LPARAM lParam) override;

private:
    void OnPaint();
    void OnTimer();

    GdiText& text_;
    Pictures& pictures_;
    Font font_;
    KelPic pic_;
};

} // namespace nv
