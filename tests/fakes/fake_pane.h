#pragma once

#include "fakes/fake_measure.h"
#include "fakes/fake_shell.h"
#include "fakes/fake_surroundings.h"
#include "mainwindow/menu_pane.h"

#include <map>
#include <optional>
#include <string>
#include <vector>

namespace nv
{

// The shell's icons; a file that is not among them has none.
class FakeIcons final : public IconLookup
{
public:
    std::optional<std::int32_t> SmallIcon(const std::string& path) override
    {
        ++asked[path];
        const auto icon = icons.find(path);
        return icon == icons.end() ? std::nullopt : std::optional(icon->second);
    }
    std::map<std::string, std::int32_t> icons;
    std::map<std::string, int> asked;
};

// A pane over a menu of its own, with everything it needs; remembers what the pane asks for.
struct FakePane : private PaneHost {
    explicit FakePane(TwipSize size) { pane.SetViewSize(size); }
    FakePane(const FakePane&) = delete;
    FakePane& operator=(const FakePane&) = delete;

    FakeMeasure measure;
    FakeShell shell;
    FakeIcons icons;
    ShellExe shellExe{shell, "C:\\Menus"};
    LinkPictures pictures{shellExe, icons};
    MenuLines lines;
    Font defaultFont;
    FakePump pump;
    MenuPane pane{*this, measure, pictures, CodePage(), lines, defaultFont};
    std::vector<std::uint32_t> clicked;
    int focusTaken = 0;
    int columns = 0;
    int focusMoves = 0;
    bool ticking = false;
    bool picturesWanted = false;

private:
    void Redraw(const TwipRect&) override {}
    void ColumnChanged() override {}
    void TakeFocus() override { ++focusTaken; }
    void SetTicking(bool on) override { ticking = on; }
    void PicturesWanted() override { picturesWanted = true; }
    void ColumnReplaced() override { ++columns; }
    void FocusMoved() override { ++focusMoves; }
    void HoverChanged() override {}
    void EntryClicked(std::uint32_t entry) override { clicked.push_back(entry); }
};

} // namespace nv
