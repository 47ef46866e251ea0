#include "mainwindow/commands.h"

#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace nv
{
namespace
{

TEST(Commands, AreToBeHadByTheFacts)
{
    // locked, fileOpen, homeSet, editing, fontInUse, browseInUse, canUndo, canRedo
    const Facts facts[] = {
        {},                                                   // nothing
        {true},                                               // locked, no menu
        {false, true, true, false, true, true, true, true},   // a menu
        {true, true, true, false, true, true, true, true},    // a menu, locked
        {false, true, true, true, true, true, true, true},    // editing
        {true, true, true, true, true, true, true, true},     // editing, were it locked
        {false, true, true, true, false, false, false, false} // editing what has nothing
    };
    using enum Command;
    const struct {
        std::vector<Command> commands;
        std::string available; // by facts
    } cases[] = {
        {{back, help}, "1111111"},
        {{revert, home}, "0011111"},
        {{normal, options, openMenu, newMenu, helpPages}, "1010101"},
        {{edit, saveMenu, setHome}, "0010101"},
        {{insertNew, Command::remove, moveUp, moveDown}, "0000101"},
        {{changeFont, insertPath, browse, undo, redo}, "0000100"},
    };
    for (const auto& each : cases) {
        for (const Command command : each.commands) {
            std::string available;
            for (const Facts& fact : facts) {
                available += Available(command, fact) ? '1' : '0';
            }
            EXPECT_EQ(available, each.available) << static_cast<int>(command);
        }
    }
}

TEST(Commands, HaveKeys)
{
    enum Held { none, alt, control, altGr, shift };
    enum Place { view, list, box };
    const struct {
        Key key;
        Held held;
        Place place;
        std::optional<Command> command;
    } cases[] = {
        {Key::backspace, none, view, Command::back},
        {Key::backspace, none, list, std::nullopt},
        {Key::backspace, control, view, std::nullopt},
        {Key::left, alt, box, Command::back},
        {Key::left, none, view, std::nullopt},
        {Key::home, alt, view, Command::home},
        {Key::home, none, list, std::nullopt},
        {Key::f5, none, view, Command::revert},
        {Key::f5, shift, view, std::nullopt},
        {Key::insert, none, list, Command::insertNew},
        {Key::insert, none, box, std::nullopt},
        {Key::del, none, list, Command::remove},
        {Key::del, none, box, std::nullopt},
        {Key::up, control, list, Command::moveUp},
        {Key::down, control, list, Command::moveDown},
        {Key::down, control, box, std::nullopt},
        {Key::down, none, list, std::nullopt},
        {Key::e, control, view, Command::edit},
        {Key::e, control, box, Command::normal},
        {Key::e, altGr, box, std::nullopt}, // writes a letter
        {Key::n, control, box, Command::newMenu},
        {Key::o, control, view, Command::openMenu},
        {Key::s, control, view, Command::saveMenu},
        {Key::z, control, box, Command::undo},
        {Key::y, control, list, Command::redo},
    };
    int number = 0;
    for (const auto& each : cases) {
        const KeyPress press = {each.key, each.held == alt || each.held == altGr,
                                each.held == control || each.held == altGr, each.held == shift};
        Facts facts;
        facts.editing = each.place != view;
        EXPECT_EQ(CommandOfKey(press, facts, each.place == list), each.command)
            << "case " << number;
        ++number;
    }
}

} // namespace
} // namespace nv
