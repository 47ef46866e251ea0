#include "system/sopen.h"

#include "resource.h"
#include "win32/window_text.h"

namespace nv
{

Sopen::Sopen(const FormServices& services, MenuDocument& document, Files& files, Settings& settings,
             ComDial& comDial, bool create)
    : FormDialog(services, IDD_SOPEN), document_(document), files_(files), settings_(settings),
      comDial_(comDial), create_(create)
{
}

HWND Sopen::OnLoad()
{
    SetUpButton(IDCANCEL, "Cancel", 19);
    SetUpButton(IDC_BROWSE, "Browse", 10);
    confirm_ = &SetUpButton(IDOK, "Ok", 13);
    SetMNew(create_);
    SetText1(SettingText(settings_.GetKeyValue("Settings", "Last", "C:\\Start.nvm")));
    return Control(IDC_PATH);
}

void Sopen::OnCommand(int control, int notification)
{
    if (notification != BN_CLICKED) {
        return;
    }
    switch (control) {
    case IDC_OPEN_EXISTING:
    case IDC_CREATE_NEW:
        SetMNew(control == IDC_CREATE_NEW);
        break;
    case IDC_BROWSE:
        Browse();
        break;
    case IDOK:
        if (ConfirmOpenMenu(*this, document_, files_, services_.prompts)) {
            Close();
        }
        break;
    default:
        break;
    }
}

bool Sopen::OnActivate()
{
    FocusText1();
    SendMessageA(Control(IDC_PATH), EM_SETSEL, 0, -1);
    return true;
}

void Sopen::Browse()
{
    const std::string filter("Navrix Menu (*.nvm)\0*.nvm\0", 26);
    const std::string path = comDial_.OpenFileDialog("Browse", "", filter, 1, !MNew(), Window());
    if (!path.empty()) {
        SetText1(path);
    }
}

std::string Sopen::Text1() const
{
    return TextOf(Control(IDC_PATH));
}

void Sopen::SetText1(const std::string& path)
{
    SetTextOf(Control(IDC_PATH), path);
}

void Sopen::FocusText1()
{
    SetFocus(Control(IDC_PATH));
}

bool Sopen::MNew() const
{
    return IsDlgButtonChecked(Window(), IDC_CREATE_NEW) == BST_CHECKED;
}

void Sopen::SetMNew(bool create)
{
    CheckRadioButton(Window(), IDC_OPEN_EXISTING, IDC_CREATE_NEW,
                     create ? IDC_CREATE_NEW : IDC_OPEN_EXISTING);
    confirm_->SetBImage({Picture::Source::own, create ? 8 : 13});
    confirm_->SetCaption(create ? "Create Menu" : "Open Menu");
    RefreshButton(IDOK);
}

} // namespace nv
