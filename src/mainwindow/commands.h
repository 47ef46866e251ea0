#pragma once

#include <optional>

namespace nv
{

// What the toolbar, the edit panel and the keyboard can ask for.
enum class Command {
    back,
    revert,
    home,
    normal,
    edit,
    options,
    help,
    openMenu,
    newMenu,
    insertNew,
    remove,
    moveUp,
    moveDown,
    changeFont,
    insertPath, // Browse for the caption box
    browse,     // Browse for the command box
    saveMenu,
    setHome,
    undo,
    redo,
    helpPages, // the help in a browser, by the key F1
};

// What decides whether a command is to be had.
struct Facts {
    bool locked = false;      // started with "/l"
    bool fileOpen = false;    // FFile is not empty
    bool homeSet = false;     // Home is not empty
    bool editing = false;     // the edit panel is shown
    bool fontInUse = false;   // the chosen type leaves Change Font enabled
    bool browseInUse = false; // ... both Browse buttons
    bool canUndo = false;
    bool canRedo = false;
};

bool Available(Command command, const Facts& facts);

// Keys of the main window, apart from those of the column, the boxes and of the focus.
enum class Key { backspace, left, home, up, down, insert, del, e, n, o, s, y, z, f5, other };

struct KeyPress {
    Key key = Key::other;
    bool alt = false;
    bool control = false;
    bool shift = false;
};

// The command that a key stands for. inItemList: the keyboard is at the editor's item list.
std::optional<Command> CommandOfKey(const KeyPress& press, const Facts& facts, bool inItemList);

} // namespace nv
