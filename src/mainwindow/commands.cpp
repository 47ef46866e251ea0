#include "mainwindow/commands.h"

namespace nv
{

bool Available(Command command, const Facts& facts)
{
    switch (command) {
    case Command::back:
        return true; // with an empty history it does nothing
    case Command::revert:
        return facts.fileOpen;
    case Command::home:
        return facts.homeSet;
    case Command::normal:
        return !facts.locked;
    case Command::edit:
    case Command::options:
    case Command::help:
    case Command::openMenu:
    case Command::newMenu:
        return false; // what they show does not exist yet
    }
    return false;
}

std::optional<Command> CommandOfKey(Key key, bool alt, bool control, bool shift)
{
    if (control || shift) {
        return std::nullopt;
    }
    switch (key) {
    case Key::backspace:
        return alt ? std::nullopt : std::optional(Command::back);
    case Key::left:
        return alt ? std::optional(Command::back) : std::nullopt;
    case Key::home:
        return alt ? std::optional(Command::home) : std::nullopt;
    case Key::f5:
        return alt ? std::nullopt : std::optional(Command::revert);
    case Key::other:
        break;
    }
    return std::nullopt;
}

} // namespace nv
