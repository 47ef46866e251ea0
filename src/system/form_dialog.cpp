#include "system/form_dialog.h"

#include "controls/edge_frame.h"
#include "platform/mark.h"
#include "win32/gdi_canvas.h"
#include "win32/screen.h"

#include <algorithm>
#include <new>

namespace nv
{

void FormDialog::ShowModal(HWND owner)
{
    KelButtonWindow::RegisterWindowClass();
    const HWND ownerOfBoxes = services_.prompts.Owner();
    // Ignored: how a dialog was closed says nothing; what it did is done.
    (void)DialogBoxParamA(GetModuleHandleA(nullptr), MAKEINTRESOURCEA(templateId_), owner,
                          Procedure, reinterpret_cast<LPARAM>(this));
    services_.prompts.SetOwner(ownerOfBoxes);
    buttons_.clear();
    window_ = nullptr;
}

INT_PTR CALLBACK FormDialog::Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (message == WM_INITDIALOG) {
        SetWindowLongPtrA(window, DWLP_USER, lParam);
        reinterpret_cast<FormDialog*>(lParam)->window_ = window;
    }
    auto* self = reinterpret_cast<FormDialog*>(GetWindowLongPtrA(window, DWLP_USER));
    if (self == nullptr) {
        return FALSE;
    }
    try {
        return self->Route(message, wParam, lParam);
    } catch (const std::bad_alloc&) {
        // No exception may get into the platform. What was asked for is not done; of a dialog that
        // could not be made nothing is shown.
        if (message == WM_INITDIALOG) {
            EndDialog(window, 0);
        }
        return TRUE;
    }
}

INT_PTR FormDialog::Route(UINT message, WPARAM wParam, LPARAM)
{
    switch (message) {
    case WM_INITDIALOG:
        return OnInitDialog();
    case WM_COMMAND:
        OnControl(LOWORD(wParam), HIWORD(wParam));
        return TRUE;
    case WM_ACTIVATE:
        return LOWORD(wParam) != WA_INACTIVE && OnActivate();
    case WM_PAINT:
        OnPaint();
        return TRUE;
    default:
        return FALSE;
    }
}

void FormDialog::OnControl(int control, int notification)
{
    const bool ours = FindButton(control) != nullptr;
    if (ours && notification != BN_CLICKED) {
        RedrawFrames(); // the keyboard has come to it or left it
        return;
    }
    const bool press = notification == BN_CLICKED && (control == IDCANCEL || ours);
    if (!press) {
        OnCommand(control, notification);
    } else if (!pressed_ && IsWindowEnabled(window_)) {
        // A press may open a menu, which lets events through: another one has to wait for its end.
        const Mark pressed(pressed_);
        if (control == IDCANCEL) {
            Close();
        } else {
            OnCommand(control, notification);
        }
    }
}

INT_PTR FormDialog::OnInitDialog()
{
    services_.prompts.SetOwner(window_);
    services_.fonts.SetFormFonts(window_);
    const HWND focus = OnLoad();
    CentreOnOwner();
    if (focus != nullptr) {
        SetFocus(focus);
    }
    return focus == nullptr;
}

void FormDialog::CentreOnOwner()
{
    const HWND owner = GetWindow(window_, GW_OWNER);
    MONITORINFO monitor = {};
    monitor.cbSize = sizeof monitor;
    GetMonitorInfoA(MonitorFromWindow(owner != nullptr ? owner : window_, MONITOR_DEFAULTTONEAREST),
                    &monitor);
    const RECT& work = monitor.rcWork;
    RECT around = work;
    if (owner != nullptr && IsWindowVisible(owner) && !IsIconic(owner)) {
        GetWindowRect(owner, &around);
    }
    RECT own = {};
    GetWindowRect(window_, &own);
    const int width = own.right - own.left;
    const int height = own.bottom - own.top;
    // All of it is to be seen, its left top corner first of all.
    const int left = std::max<int>(
        work.left, std::min<int>((around.left + around.right - width) / 2, work.right - width));
    const int top = std::max<int>(
        work.top, std::min<int>((around.top + around.bottom - height) / 2, work.bottom - height));
    SetWindowPos(window_, nullptr, left, top, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

void FormDialog::OnPaint()
{
    const PaintDc dc(window_);
    GdiCanvas canvas(dc.Get(), services_.text, services_.pictures);
    for (const auto& button : buttons_) {
        DrawFrame(canvas, *button);
    }
}

RECT FormDialog::PlaceOf(const KelButtonWindow& button) const
{
    RECT place = {};
    GetWindowRect(button.Handle(), &place);
    MapWindowPoints(nullptr, window_, reinterpret_cast<POINT*>(&place), 2);
    return place;
}

void FormDialog::DrawFrame(Canvas& canvas, const KelButtonWindow& button) const
{
    const TwipRect area = ToTwips(PlaceOf(button), services_.text.Scale());
    PaintEdgeFrame(canvas, area, services_.text.Scale());
    // Enter presses the button that has the keyboard, and from anything else the default one.
    const HWND focus = GetFocus();
    const bool onButton = std::any_of(buttons_.begin(), buttons_.end(), [focus](const auto& each) {
        return each->Handle() == focus;
    });
    if (onButton ? button.Handle() == focus : GetDlgCtrlID(button.Handle()) == IDOK) {
        PaintDefaultFrame(canvas, area, services_.text.Scale());
    }
}

void FormDialog::RedrawFrames()
{
    constexpr int kFrames = 2; // pixels around a button
    for (const auto& button : buttons_) {
        RECT place = PlaceOf(*button);
        InflateRect(&place, kFrames, kFrames);
        InvalidateRect(window_, &place, TRUE);
    }
}

KelButton& FormDialog::SetUpButton(int id, const char* caption, std::int32_t picture)
{
    buttons_.push_back(std::make_unique<KelButtonWindow>(services_.text, services_.pictures));
    KelButtonWindow& window = *buttons_.back();
    window.AttachTo(Control(id));
    KelButton& button = window.Button();
    Font font = FormFont();
    button.SetFont(font);
    button.SetCaption(caption);
    button.SetBImage({Picture::Source::own, picture});
    button.DisablePointer();
    button.ButtonClick = [this, id] {
        SendMessageA(window_, WM_COMMAND, MAKEWPARAM(id, BN_CLICKED),
                     reinterpret_cast<LPARAM>(Control(id)));
    };
    window.Refresh();
    return button;
}

KelButtonWindow* FormDialog::FindButton(int id) const
{
    for (const auto& button : buttons_) {
        if (GetDlgCtrlID(button->Handle()) == id) {
            return button.get();
        }
    }
    return nullptr;
}

void FormDialog::RefreshButton(int id)
{
    if (KelButtonWindow* button = FindButton(id)) {
        button->Refresh();
    }
}

void FormDialog::Close()
{
    EndDialog(window_, 0);
}

} // namespace nv
