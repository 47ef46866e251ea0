#pragma once

#include "controls/kel_button_window.h"
#include "system/form_fonts.h"
#include "win32/gdi_text.h"
#include "win32/message_boxes.h"
#include "win32/pictures.h"

#include <windows.h>

#include <memory>
#include <string>
#include <vector>

namespace nv
{

// What every dialog of the program uses. All must outlive the dialog.
struct FormServices {
    GdiText& text;
    Pictures& pictures;
    FormFonts& fonts;
    MessageBoxes& prompts;
};

// The skeleton of the program's dialogs. Each is a modal window from a DIALOGEX template, in the
// program's font, centred on its owner. Its message boxes stand over it. The control IDCANCEL, the
// Esc key and the close button of its caption close it.
class FormDialog
{
public:
    FormDialog(const FormDialog&) = delete;
    FormDialog& operator=(const FormDialog&) = delete;
    virtual ~FormDialog() = default;

    // Shows the dialog until it is closed. May re-enter: it runs a message loop.
    void ShowModal(HWND owner);

protected:
    FormDialog(const FormServices& services, int templateId)
        : services_(services), templateId_(templateId)
    {
    }

    // The controls are there and have their fonts, the window is not to be seen yet. The control
    // that it returns gets the keyboard; null: the first one.
    virtual HWND OnLoad() = 0;
    // A control reports: a button was pressed, a box was left. While the command of one KelButton
    // runs, presses of others and the closing of the dialog are dropped. May re-enter.
    virtual void OnCommand(int control, int notification) = 0;
    // The window comes to be the active one; true: it has put the keyboard where it belongs.
    virtual bool OnActivate() { return false; }

    HWND Window() const { return window_; }
    HWND Control(int id) const { return GetDlgItem(window_, id); }
    // Gives the KelButton at id its caption and picture; a press comes to OnCommand.
    KelButton& SetUpButton(int id, const char* caption, std::int32_t picture);
    // Shows a changed button.
    void RefreshButton(int id);
    void Close();

    FormServices services_;

private:
    static INT_PTR CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
    INT_PTR Route(UINT message, WPARAM wParam, LPARAM lParam);
    void OnControl(int control, int notification);
    INT_PTR OnInitDialog();
    void OnPaint();
    KelButtonWindow* FindButton(int id) const;
    void CentreOnOwner();
    RECT PlaceOf(const KelButtonWindow& button) const;
    void RedrawFrames();
    void DrawFrame(Canvas& canvas, const KelButtonWindow& button) const;

    int templateId_;
    HWND window_ = nullptr;
    bool pressed_ = false; // a button's command runs
    std::vector<std::unique_ptr<KelButtonWindow>> buttons_;
};

} // namespace nv
