#include "support/nv_support.h"

#include "resource.h"
#include "support/count_box.h"
#include "win32/clipboard.h"
#include "win32/screen.h"
#include "win32/window_text.h"

#include <new>

namespace nv
{

namespace
{

constexpr int kCommand2 = IDCANCEL; // the Close button; the window needs no more of it
constexpr int kBold = 700;

int ControlOf(TicketField field)
{
    switch (field) {
    case TicketField::counts:
        return IDC_TEXT2;
    case TicketField::serverSystems:
        return IDC_CHECK1;
    case TicketField::workstationSystems:
        return IDC_CHECK2;
    case TicketField::problem:
        return IDC_TEXT3;
    case TicketField::email:
        break;
    }
    return IDC_TEXT1;
}

bool IsCountBox(int control)
{
    return control >= IDC_TEXT2 && control < IDC_TEXT2 + static_cast<int>(kCountBoxes);
}

template <std::size_t count>
void SetCaptions(HWND dialog, int first, const std::array<const char*, count>& captions)
{
    for (const char* caption : captions) {
        SetDlgItemTextA(dialog, first++, caption);
    }
}

template <std::size_t count>
void ReadChecks(HWND dialog, int first, std::array<bool, count>& checked)
{
    for (bool& box : checked) {
        box = IsDlgButtonChecked(dialog, first++) == BST_CHECKED;
    }
}

} // namespace

NVSupport::NVSupport(const FormServices& services, Files& files, ComDial& comDial,
                     std::string supportAddress, std::string applicationInformation)
    : FormDialog(services, IDD_SUPPORT), files_(files), comDial_(comDial),
      supportAddress_(std::move(supportAddress)),
      applicationInformation_(std::move(applicationInformation))
{
}

HWND NVSupport::OnLoad()
{
    SetTextOf(Control(IDC_LABEL5), "Please fill out our hardware questionary about your network or "
                                   "standalone computer:");
    MakeBold(IDC_LABEL1);
    SetTextOf(Control(IDC_TEXT4), IntroductoryLetter());
    SetCaptions(Window(), IDC_CHECK1, kServerSystems);
    SetCaptions(Window(), IDC_CHECK2, kWorkstationSystems);
    for (int box = IDC_TEXT2; IsCountBox(box); ++box) {
        SetTextOf(Control(box), CountWhenLeft(""));
        TakeDigitsOnly(Control(box));
    }
    SendMessageA(Control(IDC_TEXT3), EM_SETLIMITTEXT, 0, 0); // as much as fits into memory
    return Control(IDC_TEXT1);
}

void NVSupport::MakeBold(int control)
{
    const auto font = reinterpret_cast<HFONT>(SendMessageA(Control(control), WM_GETFONT, 0, 0));
    if (auto record = RecordOf(font)) {
        record->lfWeight = kBold;
        bold_.Reset(CreateFontIndirectA(&*record));
        SendMessageA(Control(control), WM_SETFONT, reinterpret_cast<WPARAM>(bold_.Get()), TRUE);
    }
}

void NVSupport::OnCommand(int control, int notification)
{
    if (notification == EN_KILLFOCUS && IsCountBox(control)) {
        SetTextOf(Control(control), CountWhenLeft(TextOf(Control(control))));
    } else if (notification == EN_SETFOCUS && control == IDC_TEXT4) {
        // The Tab key would select the letter and scroll to its end.
        PostMessageA(Control(IDC_TEXT4), EM_SETSEL, 0, 0);
    } else if (notification == BN_CLICKED && control == IDC_COMMAND1) {
        SendToClipboard();
    } else if (notification == BN_CLICKED && control == IDC_COMMAND3) {
        SaveToFile();
    }
}

// The ticket

TicketFields NVSupport::Fields() const
{
    TicketFields fields;
    fields.email = TextOf(Control(IDC_TEXT1));
    int box = IDC_TEXT2;
    for (std::string& count : fields.counts) {
        count = TextOf(Control(box++));
    }
    ReadChecks(Window(), IDC_CHECK1, fields.servers);
    ReadChecks(Window(), IDC_CHECK2, fields.workstations);
    fields.problem = TextOf(Control(IDC_TEXT3));
    return fields;
}

std::string NVSupport::Ticket()
{
    try {
        const TicketFields fields = Fields();
        if (const auto refusal = CheckTicket(fields, ProcessCodePage())) {
            Tell(refusal->message, PromptIcon::exclamation);
            FocusOn(ControlOf(refusal->field));
            return {};
        }
        return BuildTicket(fields, supportAddress_, applicationInformation_);
    } catch (const std::bad_alloc&) {
        Tell(kTicketFault, PromptIcon::exclamation);
        return {};
    }
}

void NVSupport::SendToClipboard()
{
    const std::string ticket = Ticket();
    if (ticket.empty()) {
        return;
    }
    try {
        if (!PutOnClipboard(Window(), ticket)) {
            Tell(kClipboardBusy, PromptIcon::exclamation);
            return;
        }
    } catch (const std::bad_alloc&) {
        Tell(kTicketFault, PromptIcon::exclamation);
        return;
    }
    Tell(OnClipboardText(supportAddress_), PromptIcon::information);
    FocusOn(kCommand2);
}

void NVSupport::SaveToFile()
{
    const std::string ticket = Ticket();
    if (ticket.empty()) {
        return;
    }
    const std::string filter("Trouble Ticket (*.txt)\0*.txt\0", 29);
    const std::string fileName = comDial_.SaveFileDialog(
        "Please select file name for your Trouble Ticket file", filter, 1, "txt", Window());
    if (fileName.empty()) {
        return;
    }
    if (!WriteTicket(files_, fileName, ticket)) {
        Tell(CannotWriteText(fileName), PromptIcon::stop);
        return;
    }
    Tell(InFileText(fileName, supportAddress_), PromptIcon::information);
    FocusOn(kCommand2);
}

void NVSupport::Tell(const std::string& text, PromptIcon icon)
{
    services_.prompts.Ask(text, icon, PromptButtons::ok);
}

void NVSupport::FocusOn(int control)
{
    // As the Tab key does it, so that Enter presses a button that gets the keyboard.
    SendMessageA(Window(), WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(Control(control)), TRUE);
    if (control == IDC_TEXT3) {
        // That selects a box's text: the next key would wipe out all that was described.
        const int end = GetWindowTextLengthA(Control(control));
        SendMessageA(Control(control), EM_SETSEL, static_cast<WPARAM>(end), end);
    }
}

} // namespace nv
