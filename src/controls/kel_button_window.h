#pragma once

#include "controls/kel_button.h"
#include "win32/gdi_text.h"
#include "win32/pictures.h"
#include "win32/window.h"

namespace nv
{

// A KelButton as a child window: paints it, gives it the mouse, the keyboard (Space and Enter) and
// a visible focus.
class KelButtonWindow final : public Window
{
public:
    // Both must outlive the window.
    KelButtonWindow(GdiText& text, Pictures& pictures);

    // Creates the button as a tab stop of parent.
    bool Create(HWND parent);
    // What it shows and does; call Refresh after changing how it looks.
    KelButton& Button() { return button_; }
    // Takes over the button's caption, enabled state and look.
    void Refresh();
    // Moves the window; area in twips of its parent.
    void MoveTo(const TwipRect& area);

protected:
    std::optional<LRESULT> Route(UINT message, WPARAM wParam, LPARAM lParam) override;

private:
    void OnPaint();
    void OnMouseMove();
    void OnKey(WPARAM key, bool down);
    void SetLook(const ButtonLook& look);

    GdiText& text_;
    Pictures& pictures_;
    KelButton button_;
    ButtonLook look_;
};

} // namespace nv
