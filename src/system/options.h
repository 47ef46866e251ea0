#pragma once

#include "platform/settings.h"
#include "system/form_dialog.h"

#include <functional>

namespace nv
{

// The Options dialog: what the program opens when it starts. It stores the choice itself and gives
// nothing back.
class Options final : public FormDialog
{
public:
    // settings must outlive the dialog. showSupport: shows the support window over its argument;
    // may re-enter.
    Options(const FormServices& services, Settings& settings,
            std::function<void(HWND)> showSupport);

private:
    HWND OnLoad() override;
    void OnCommand(int control, int notification) override;
    void Apply();

    Settings& settings_;
    std::function<void(HWND)> showSupport_;
};

} // namespace nv
