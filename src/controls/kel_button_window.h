#pragma once

#include "controls/kel_button.h"
#include "win32/painted_window.h"

namespace nv
{

// A KelButton as a child window: paints it, gives it the mouse, the keyboard (Space and Enter) and
// a visible focus.
class KelButtonWindow final : public PaintedWindow, private AccessibleSource
{
public:
    // Both must outlive the window.
    KelButtonWindow(GdiText& text, Pictures& pictures);

    // Registers the class "KelButton", which dialog templates name.
    static void RegisterWindowClass();
    // Creates the button as a tab stop of parent.
    bool Create(HWND parent);
    // Becomes the button behind a window of that class: its size and font are the window's.
    void AttachTo(HWND window);
    // What it shows and does; call Refresh after changing how it looks.
    KelButton& Button() { return button_; }
    // Takes over the button's caption, enabled state and look.
    void Refresh();
    // Moves the window; area in twips of its parent.
    void MoveTo(const TwipRect& area);

protected:
    std::optional<LRESULT> RouteInput(UINT message, WPARAM wParam, LPARAM lParam) override;
    void Paint(Canvas& canvas, const TwipRect& clip) override;
    const Font* ShownFont() const override { return &button_.Font(); }
    void SetShownFont(const Font& font) override;
    AccessibleSource* Accessibility() override { return this; }

private:
    void OnFocus(bool focused);
    void OnMouseMove();
    void OnKey(WPARAM key, bool down);
    void SetLook(const ButtonLook& look);

    LONG Role(LONG part) const override;
    LONG State(LONG part) const override;
    std::string Name(LONG) const override { return button_.Caption(); }
    std::string Description(LONG) const override { return button_.ToolT(); }
    std::string DefaultAction(LONG) const override { return "Press"; }
    void DoDefaultAction(LONG part) override;

    KelButton button_;
    ButtonLook look_;
};

} // namespace nv
