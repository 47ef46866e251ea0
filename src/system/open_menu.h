#pragma once

#include "docs/menu_document.h"

#include <string>

namespace nv
{

// The fields of the Open/Create Menu dialog, as its rules see them.
class OpenMenuFields
{
public:
    virtual ~OpenMenuFields() = default;
    // The path, as typed.
    virtual std::string Text1() const = 0;
    virtual void SetText1(const std::string& path) = 0;
    virtual void FocusText1() = 0;
    // Whether a menu is to be created, not opened.
    virtual bool MNew() const = 0;
    virtual void SetMNew(bool create) = 0;
};

// What the dialog's confirm button does: opens or creates the menu that the fields name, or tells
// the user why not. True: the dialog is to close. May re-enter.
bool ConfirmOpenMenu(OpenMenuFields& fields, MenuDocument& document, Files& files,
                     Prompts& prompts);

} // namespace nv
