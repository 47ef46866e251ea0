#pragma once

#include "support/trouble_ticket.h"
#include "system/com_dial.h"
#include "system/form_dialog.h"

namespace nv
{

// The support window: a short questionnaire, of which it makes a trouble ticket for the clipboard
// or a text file. What was typed is gone once it is closed.
class NVSupport final : public FormDialog
{
public:
    // supportAddress: where users mail their tickets. applicationInformation: the program's name
    // and version. files and comDial must outlive the dialog.
    NVSupport(const FormServices& services, Files& files, ComDial& comDial,
              std::string supportAddress, std::string applicationInformation);

private:
    HWND OnLoad() override;
    void OnCommand(int control, int notification) override;

    void MakeBold(int control);
    TicketFields Fields() const;
    // The ticket; empty: the user was told what is missing and has the keyboard there. May
    // re-enter.
    std::string Ticket();
    void SendToClipboard();
    void SaveToFile();
    void Tell(const std::string& text, PromptIcon icon);
    void FocusOn(int control);

    Files& files_;
    ComDial& comDial_;
    std::string supportAddress_;
    std::string applicationInformation_;
    FontHandle bold_;
};

} // namespace nv
