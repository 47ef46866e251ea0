#pragma once

#include "platform/prompts.h"

#include <windows.h>

#include <string>

namespace nv
{

// Message boxes that carry the program's title, owned by one of its windows.
class MessageBoxes final : public Prompts
{
public:
    void SetTitle(std::string title) { title_ = std::move(title); }
    // The window that the boxes stand over, and which they disable meanwhile; null: none.
    HWND Owner() const { return owner_; }
    void SetOwner(HWND owner) { owner_ = owner; }
    Answer Ask(const std::string& text, PromptIcon icon, PromptButtons buttons) override;

private:
    std::string title_;
    HWND owner_ = nullptr;
};

} // namespace nv
