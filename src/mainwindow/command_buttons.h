#pragma once

#include "controls/kel_button_window.h"
#include "mainwindow/commands.h"

#include <functional>
#include <memory>
#include <vector>

namespace nv
{

// The buttons of a panel, each for one command.
class CommandButtons
{
public:
    struct Face {
        Command command;
        const char* caption;
        std::int32_t picture; // in Im1
    };
    // text and pictures must outlive the buttons. run: called on a click; may re-enter.
    CommandButtons(GdiText& text, Pictures& pictures, std::function<void(Command)> run);

    // Creates a button in panel, behind those that are there in the order of the Tab key.
    bool Add(HWND panel, const Face& face);
    // The button at index, in the order of adding.
    KelButtonWindow& operator[](std::size_t index) { return *buttons_[index].window; }
    // Moves the button at index; area in twips of the panel.
    void MoveTo(std::size_t index, const TwipRect& area);
    // Enables each button whose command is to be had.
    void SetFacts(const Facts& facts);
    // Draws a frame around each button: on the panel, one pixel wide, right at the button's edge.
    void PaintFrames(Canvas& canvas) const;

private:
    struct Button {
        Command command;
        std::unique_ptr<KelButtonWindow> window;
        TwipRect area;
    };

    GdiText& text_;
    Pictures& pictures_;
    std::function<void(Command)> run_;
    std::vector<Button> buttons_;
};

} // namespace nv
