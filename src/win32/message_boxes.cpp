#include "win32/message_boxes.h"

namespace nv
{

namespace
{

UINT IconFlag(PromptIcon icon)
{
    switch (icon) {
    case PromptIcon::stop:
        return MB_ICONHAND;
    case PromptIcon::question:
        return MB_ICONQUESTION;
    case PromptIcon::exclamation:
        return MB_ICONEXCLAMATION;
    case PromptIcon::information:
        return MB_ICONASTERISK;
    case PromptIcon::none:
        break;
    }
    return 0;
}

UINT ButtonsFlag(PromptButtons buttons)
{
    switch (buttons) {
    case PromptButtons::yesNo:
        return MB_YESNO;
    case PromptButtons::noYes:
        return MB_YESNO | MB_DEFBUTTON2;
    case PromptButtons::yesNoCancel:
        return MB_YESNOCANCEL;
    case PromptButtons::ok:
        break;
    }
    return MB_OK;
}

} // namespace

Answer MessageBoxes::Ask(const std::string& text, PromptIcon icon, PromptButtons buttons)
{
    switch (
        MessageBoxA(owner_, text.c_str(), title_.c_str(), IconFlag(icon) | ButtonsFlag(buttons))) {
    case IDOK:
        return Answer::ok;
    case IDYES:
        return Answer::yes;
    case IDNO:
        return Answer::no;
    default:
        return Answer::cancel;
    }
}

} // namespace nv
