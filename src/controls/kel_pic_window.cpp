#include "controls/kel_pic_window.h"

#include "platform/system_colors.h"

#include <windows.h>

#include <oleacc.h>

namespace nv
{

namespace
{

constexpr UINT_PTR kTypingTimer = 1;

} // namespace

KelPicWindow::KelPicWindow(GdiText& text, Pictures& pictures, const CodePage& codePage)
    : PaintedWindow(text, pictures), pic_(codePage)
{
}

bool KelPicWindow::Create(HWND parent)
{
    return Window::Create({"NavrixKelPic", WS_CHILD | WS_VISIBLE}, parent);
}

void KelPicWindow::SetCaption(const std::string& caption)
{
    SetWindowTextA(Handle(), caption.c_str());
    const bool renamed = caption != pic_.Caption();
    pic_.SetCaption(caption);
    RunTimer();
    if (renamed) {
        TellChange(EVENT_OBJECT_NAMECHANGE, Handle(), CHILDID_SELF);
    }
}

std::optional<LRESULT> KelPicWindow::RouteInput(UINT message, WPARAM, LPARAM)
{
    switch (message) {
    case WM_TIMER:
        OnTimer();
        return 0;
    default:
        return std::nullopt;
    }
}

void KelPicWindow::OnTimer()
{
    pic_.Tick();
    if (!pic_.Typing()) {
        KillTimer(Handle(), kTypingTimer);
    } else if (pic_.Inter() != runningInterval_) {
        RunTimer();
    }
    InvalidateRect(Handle(), nullptr, FALSE);
}

void KelPicWindow::RunTimer()
{
    runningInterval_ = pic_.Inter();
    SetTimer(Handle(), kTypingTimer, static_cast<UINT>(runningInterval_), nullptr);
}

void KelPicWindow::Paint(Canvas& canvas, const TwipRect& clip)
{
    canvas.Fill(clip, kButtonFace);
    canvas.Text({0, 0}, pic_.Font(), pic_.FontColor(), pic_.Shown());
}

LONG KelPicWindow::Role(LONG) const
{
    return ROLE_SYSTEM_STATICTEXT;
}

LONG KelPicWindow::State(LONG) const
{
    return STATE_SYSTEM_READONLY;
}

} // namespace nv
