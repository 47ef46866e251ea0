#include "system/options.h"

#include "resource.h"

namespace nv
{

namespace
{

constexpr int kChoices = 4; // O1: their controls are numbered as the stored values are

} // namespace

Options::Options(const FormServices& services, Settings& settings,
                 std::function<void(HWND)> showSupport)
    : FormDialog(services, IDD_OPTIONS), settings_(settings), showSupport_(std::move(showSupport))
{
}

HWND Options::OnLoad()
{
    SetUpButton(IDOK, "Apply", 18);
    SetUpButton(IDCANCEL, "Cancel", 19);
    SetUpButton(IDC_SUPPORT, "Navrix Support", 16);
    const int stored = SettingNumber(settings_.GetKeyValue("Settings", "StartOpen", 0), 0);
    if (stored < 0 || stored >= kChoices) {
        // No choice has that value. The keyboard must not come to one, as that would make it.
        return Control(IDOK);
    }
    CheckDlgButton(Window(), IDC_O1 + stored, BST_CHECKED);
    return Control(IDC_O1 + stored);
}

void Options::OnCommand(int control, int notification)
{
    if (notification != BN_CLICKED) {
        return;
    }
    if (control == IDOK) {
        Apply();
        Close();
    } else if (control == IDC_SUPPORT) {
        showSupport_(Window());
    }
}

void Options::Apply()
{
    for (int choice = 0; choice < kChoices; ++choice) {
        if (IsDlgButtonChecked(Window(), IDC_O1 + choice) == BST_CHECKED) {
            // Ignored: the program then starts as it did before.
            (void)settings_.SetKeyValue("Settings", "StartOpen", choice);
            return;
        }
    }
}

} // namespace nv
