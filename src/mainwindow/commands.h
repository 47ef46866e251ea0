#pragma once

#include <optional>

namespace nv
{

// What the toolbar and the keyboard can ask for.
enum class Command { back, revert, home, normal, edit, options, help, openMenu, newMenu };

// What decides whether a command is to be had.
struct Facts {
    bool locked = false;   // started with "/l"
    bool fileOpen = false; // FFile is not empty
    bool homeSet = false;  // Home is not empty
};

bool Available(Command command, const Facts& facts);

// Keys of the main window, apart from those of the column and of the focus.
enum class Key { backspace, left, home, f5, other };

// The command that a key stands for.
std::optional<Command> CommandOfKey(Key key, bool alt, bool control, bool shift);

} // namespace nv
