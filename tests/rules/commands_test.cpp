#include "mainwindow/commands.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <vector>

namespace nv
{
namespace
{

// When everything is there, and what takes it away.
TEST(Commands, AreToBeHadByTheFacts)
{
    using List = std::vector<Command>;
    const List always = {Command::back, Command::help};
    const List withMenu = {Command::back, Command::help, Command::revert, Command::home};
    const List noMenu = {Command::back,     Command::help,    Command::helpPages, Command::normal,
                         Command::openMenu, Command::newMenu, Command::options};
    List run = noMenu;
    run.insert(run.end(), {Command::revert, Command::home, Command::edit, Command::saveMenu,
                           Command::setHome});
    List edit = run;
    edit.insert(edit.end(), {Command::insertNew, Command::remove, Command::moveUp,
                             Command::moveDown, Command::changeFont, Command::insertPath,
                             Command::browse, Command::undo, Command::redo});
    // locked, fileOpen, homeSet, editing, fontInUse, browseInUse, canUndo, canRedo
    const struct {
        const char* what;
        Facts facts;
        List available;
    } cases[] = {
        {"nothing", {}, noMenu},
        {"locked, no menu", {true}, always},
        {"a menu", {false, true, true, false, true, true, true, true}, run},
        {"a menu, locked", {true, true, true, false, true, true, true, true}, withMenu},
        {"editing", {false, true, true, true, true, true, true, true}, edit},
        {"editing, were it locked", {true, true, true, true, true, true, true, true}, withMenu},
    };
    for (const auto& each : cases) {
        for (int command = 0; command <= static_cast<int>(Command::helpPages); ++command) {
            const bool wanted = std::count(each.available.begin(), each.available.end(),
                                           static_cast<Command>(command)) != 0;
            EXPECT_EQ(Available(static_cast<Command>(command), each.facts), wanted)
                << each.what << ", command " << command;
        }
    }
    const Facts plain = {false, true, true, true, false, false, false, false};
    for (const Command command : {Command::changeFont, Command::insertPath, Command::browse,
                                  Command::undo, Command::redo}) {
        EXPECT_FALSE(Available(command, plain));
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
        {Key::backspace, none, box, std::nullopt},
        {Key::backspace, control, view, std::nullopt},
        {Key::left, alt, box, Command::back},
        {Key::left, none, view, std::nullopt},
        {Key::home, alt, view, Command::home},
        {Key::home, none, list, std::nullopt},
        {Key::f5, none, view, Command::revert},
        {Key::f5, shift, view, std::nullopt},
        {Key::del, none, list, Command::remove},
        {Key::del, none, box, std::nullopt},
        {Key::up, control, list, Command::moveUp},
        {Key::down, control, list, Command::moveDown},
        {Key::down, control, box, std::nullopt},
        {Key::down, none, list, std::nullopt},
        {Key::e, control, view, Command::edit},
        {Key::e, control, box, Command::normal},
        {Key::e, none, box, std::nullopt},
        {Key::e, altGr, box, std::nullopt}, // writes a letter
        {Key::s, control, view, Command::saveMenu},
        {Key::s, altGr, box, std::nullopt},
        {Key::z, control, box, Command::undo},
        {Key::y, control, list, Command::redo},
        {Key::z, altGr, box, std::nullopt},
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
