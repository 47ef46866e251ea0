#pragma once

#include <string>

namespace nv
{

enum class PromptIcon { none, stop, question, exclamation, information };
// noYes: as yesNo, but the Enter key says No: for what cannot be taken back.
enum class PromptButtons { ok, yesNo, noYes, yesNoCancel };
enum class Answer { ok, yes, no, cancel };

// The message boxes of the program. They carry the program's title.
class Prompts
{
public:
    virtual ~Prompts() = default;
    // Shows text and waits for the user. Lines of text are parted by line feeds. A box that is
    // closed without an answer counts as cancel. May re-enter: the box runs a message loop.
    virtual Answer Ask(const std::string& text, PromptIcon icon, PromptButtons buttons) = 0;
};

} // namespace nv
