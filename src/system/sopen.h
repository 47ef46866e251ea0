#pragma once

#include "system/com_dial.h"
#include "system/form_dialog.h"
#include "system/open_menu.h"

namespace nv
{

// The Open/Create Menu dialog: the user names a Menu file and opens or creates it. It acts on the
// document itself and gives nothing back. The references must outlive it.
class Sopen final : public FormDialog, private OpenMenuFields
{
public:
    // create: starts in create mode.
    Sopen(const FormServices& services, MenuDocument& document, Files& files, Settings& settings,
          ComDial& comDial, bool create);

private:
    HWND OnLoad() override;
    void OnCommand(int control, int notification) override;
    bool OnActivate() override;
    void Browse();

    std::string Text1() const override;
    void SetText1(const std::string& path) override;
    void FocusText1() override;
    bool MNew() const override;
    void SetMNew(bool create) override;

    MenuDocument& document_;
    Files& files_;
    Settings& settings_;
    ComDial& comDial_;
    KelButton* confirm_ = nullptr; // while the dialog is there
    bool create_;
};

} // namespace nv
