#include "mainwindow/commands.h"

namespace nv
{

namespace
{

std::optional<Command> CommandOfPlainKey(Key key, bool editing, bool inItemList)
{
    switch (key) {
    case Key::backspace:
        // In the editor it is a key to write with.
        return editing ? std::nullopt : std::optional(Command::back);
    case Key::f5:
        return Command::revert;
    case Key::insert:
        return inItemList ? std::optional(Command::insertNew) : std::nullopt;
    case Key::del:
        return inItemList ? std::optional(Command::remove) : std::nullopt;
    default:
        return std::nullopt;
    }
}

std::optional<Command> CommandOfControlKey(Key key, bool editing, bool inItemList)
{
    switch (key) {
    case Key::e:
        return editing ? Command::normal : Command::edit;
    case Key::n:
        return Command::newMenu;
    case Key::o:
        return Command::openMenu;
    case Key::s:
        return Command::saveMenu;
    case Key::z:
        return Command::undo;
    case Key::y:
        return Command::redo;
    case Key::up:
        return inItemList ? std::optional(Command::moveUp) : std::nullopt;
    case Key::down:
        return inItemList ? std::optional(Command::moveDown) : std::nullopt;
    default:
        return std::nullopt;
    }
}

} // namespace

bool Available(Command command, const Facts& facts)
{
    const bool editing = facts.editing && !facts.locked;
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
    case Command::saveMenu:
    case Command::setHome:
        return !facts.locked && facts.fileOpen;
    case Command::insertNew:
    case Command::remove:
    case Command::moveUp:
    case Command::moveDown:
        return editing; // where there is nothing to do they do nothing
    case Command::changeFont:
        return editing && facts.fontInUse;
    case Command::insertPath:
    case Command::browse:
        return editing && facts.browseInUse;
    case Command::undo:
        return editing && facts.canUndo;
    case Command::redo:
        return editing && facts.canRedo;
    case Command::options:
    case Command::openMenu:
    case Command::newMenu:
    case Command::helpPages: // a browser leads anywhere
        return !facts.locked;
    case Command::help:
        return true;
    }
    return false;
}

std::optional<Command> CommandOfKey(const KeyPress& press, const Facts& facts, bool inItemList)
{
    // Ctrl and Alt together are AltGr, which writes letters.
    if (press.shift || (press.alt && press.control)) {
        return std::nullopt;
    }
    if (press.control) {
        return CommandOfControlKey(press.key, facts.editing, inItemList);
    }
    if (!press.alt) {
        return CommandOfPlainKey(press.key, facts.editing, inItemList);
    }
    if (press.key == Key::left) {
        return Command::back;
    }
    return press.key == Key::home ? std::optional(Command::home) : std::nullopt;
}

} // namespace nv
